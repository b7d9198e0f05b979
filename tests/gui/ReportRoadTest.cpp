#include "base/ports/requests/Documents.h"
#include "documents/screens/frmReportViewer.h"
#include "gui/DeskTest.h"

#include <QDir>
#include <QRadioButton>

namespace quillary {
namespace {

/// From each entry of the menu through its dialog to the preview, by keys.
class ReportRoadTest : public DeskTest {
 protected:
  void SetUp() override {
    qputenv("QUILLARY_HOME", folder.path().toUtf8());
    DeskTest::SetUp();
  }
  documents::frmReportViewer& Viewer() {
    return dynamic_cast<documents::frmReportViewer&>(*Find<Screen>(&Window(), "frmReportViewer"));
  }
  QString TextsOnFirstPage() {
    QStringList texts;
    for (const auto& run : Viewer().Shown().pages.pages.front().texts) texts += run.text;
    return texts.join('|');
  }
  QStringList Files() const { return QDir(folder.filePath("Report Doc")).entryList(QDir::Files); }
};

struct Road {
  const char* entry;
  const char* dialog;  // "" opens the preview at once
  const char* file;
  const char* title;
};
const Road kRoads[] = {
    {"mnuReportsClients", "dlgClients", "Client List.doc", "List Of Clients (By Suburb)"},
    {"mnuReportsQuotes", "", "Client List.doc", "List Of Clients (By Status)"},
    {"mnuReportsBadDebtors", "", "Bad Debtor.doc", "List Of Bad Debtors"},
    {"mnuInvoiceList", "dlgInvoiceList", "Invoice List.doc", "Invoice List"},
    {"mnuReportsJobsList", "dlgDates", "Jobs List.doc", "List Of Jobs"},
    {"mnuReportsOverdueJobs", "dlgFromDate", "Overdue Jobs.doc", "List Of Overdue Jobs"},
    {"mnuReportsWorkSummary", "dlgDatesWithEmployee", "Job Summary.doc", "Job Summary"},
    {"mnuPaymentsReceived", "dlgDateWithClients", "Payments.doc", "Payments Received"},
    {"mnuWorkDoneForClient", "dlgDateWithClients", "Work Done For Clients.doc",
     "Work Done For Clients"},
    {"mnuReportsGST", "dlgDates", "GST Report.doc", "GST Report"},
    {"mnuReportsDebtors", "dlgDebtorsOptions", "Debtor Creditor.doc", "List Of Debtors/Creditors"},
    {"mnuReportsPurchases", "dlgExpenses", "Purchases.doc", "Purchases Made"},
    {"mnuReportsAssets", "", "Asset Register.doc", "Asset Register"},
    {"mnuPLWithGST", "dlgDates", "Profit & Lost.doc", "(Amount with GST)"},
    {"mnuPLWithoutGST", "dlgDates", "Profit & Lost.doc", "(Amount without GST)"},
    {"mnuReportsUnpresentedCheques", "", "Unpresented Cheques.doc", "Unpresented Cheques"},
    {"mnuReportsConversionRate", "dlgDates", "Conversion Rate.doc", "Conversion Rate"},
    {"mnuReportsAccountantPack", "dlgDates", "Accountant Pack.doc", "Accountant's Pack"},
    {"mnuReportsAccountOfClient", "dlgClient", "Account Of Client.doc", "Account Of "},
};

TEST_F(ReportRoadTest, EveryEntryOfTheMenuEndsInItsPreview) {
  for (const Road& road : kRoads) {
    ASSERT_TRUE(Command(road.entry)->isEnabled()) << road.entry;
    if (*road.dialog) {
      Then(road.dialog, [&](QDialog& dialog) {
        if (QString(road.dialog) == "dlgDateWithClients")
          PressAlt(&dialog, Qt::Key_T);  // ticks all
        if (QString(road.dialog) == "dlgClient") {
          Find<QComboBox>(&dialog, "cmbClient")->setFocus(Qt::TabFocusReason);
          Keys("a");
          Key(Qt::Key_Tab);
        }
        PressAlt(&dialog, QString(road.dialog) == "dlgFromDate" ? Qt::Key_O : Qt::Key_P);
      });
    }
    Command(road.entry)->trigger();
    EXPECT_TRUE(Viewer().isVisible()) << road.entry;
    EXPECT_TRUE(TextsOnFirstPage().contains(road.title))
        << road.entry << ": " << TextsOnFirstPage().left(200).toStdString();
    EXPECT_TRUE(Files().contains(road.file)) << road.entry;
  }
}

TEST_F(ReportRoadTest, OtherDaysAreChosenAboveThePagesAndTheDialogRemembersItsOwn) {
  Then("dlgDates", [&](QDialog& dialog) {
    auto* period = Find<QComboBox>(&dialog, "cmbPeriod");
    period->setFocus(Qt::TabFocusReason);
    Keys("L");
    EXPECT_EQ(Find<QLineEdit>(&dialog, "dtFrom")->text(), "Thu 1 Oct 2026");
    PressAlt(&dialog, Qt::Key_P);
  });
  Command("mnuReportsJobsList")->trigger();
  EXPECT_TRUE(TextsOnFirstPage().contains("From 01-Oct-2026 to 31-Oct-2026"));
  auto* from = Find<QLineEdit>(&Viewer(), "dtReportFrom");
  Window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
  from->setFocus(Qt::TabFocusReason);
  from->selectAll();
  Keys("15/10/2026");
  Key(Qt::Key_Tab);
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return TextsOnFirstPage().contains("From 15-Oct-2026 to 31-Oct-2026"); }));
  Then("dlgDates", [&](QDialog& dialog) {
    EXPECT_EQ(Find<QComboBox>(&dialog, "cmbPeriod")->currentText(), "Last month");
    Find<QLineEdit>(&dialog, "dtTo")->setFocus(Qt::TabFocusReason);
    Find<QLineEdit>(&dialog, "dtTo")->selectAll();
    Keys("1/9/2026");
    PressAlt(&dialog, Qt::Key_P);
    EXPECT_TRUE(dialog.isVisible()) << "the range runs backwards";
  });
  Command("mnuReportsJobsList")->trigger();
  EXPECT_EQ(outside.prompter.TakeTold().join('|'), "Please enter a valid date range.");
}

TEST_F(ReportRoadTest, AFigureOpensWhatItIsMadeOfAndBackLeadsBack) {
  Then("dlgDates", [&](QDialog& dialog) {
    Find<QComboBox>(&dialog, "cmbPeriod")->setFocus(Qt::TabFocusReason);
    Keys("L");
    PressAlt(&dialog, Qt::Key_P);
  });
  Command("mnuPLWithGST")->trigger();
  auto* pages = Find<documents::PagePreview>(&Viewer(), "vsPr");
  pages->setFocus();
  QTest::keyClick(pages, Qt::Key_Down, Qt::ControlModifier);
  QTest::keyClick(pages, Qt::Key_Return);
  EXPECT_TRUE(TextsOnFirstPage().startsWith("Revenue By Account|From 01-Oct-2026"))
      << TextsOnFirstPage().left(100).toStdString();
  auto* back = Find<QPushButton>(&Viewer(), "cmdBack");
  EXPECT_TRUE(back->isVisible());
  PressAlt(&Viewer(), Qt::Key_B);
  EXPECT_TRUE(TextsOnFirstPage().startsWith("Profit & Loss|"));
  EXPECT_FALSE(back->isVisible());
}

TEST_F(ReportRoadTest, APreviewFollowsWhatIsWritten) {
  Command("mnuReportsBadDebtors")->trigger();
  EXPECT_FALSE(TextsOnFirstPage().contains("Zelda"));
  Run(Sql("INSERT INTO Clients (Status, Display_Name) VALUES ('Bad debtor', 'Zelda Zimmer')"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return TextsOnFirstPage().contains("Zelda Zimmer"); }));
}

TEST_F(ReportRoadTest, WhyAClientOwesIsShownFromItsScreenAndFromTheDebtors) {
  Command("mnuFinancialDebtors")->trigger();
  auto* debtors = Find<Screen>(&Window(), "frmDebtors");
  auto* grid = Find<Grid>(debtors, "grdDebtors");
  grid->SelectFirst();
  const auto debtor = grid->SelectedId<Client>();
  ASSERT_TRUE(debtor);
  const QString name = Run(Sql("SELECT Display_Name FROM Clients WHERE Client_ID = {}", *debtor))
                           .Field(size_t{0})
                           .ToText();
  ClickOn(debtors, "cmdAccountOfClient");
  EXPECT_TRUE(TextsOnFirstPage().startsWith("Account Of " + name));
  navigator.Open(OpenClient{*debtor});
  ClickOn(Find<Screen>(&Window(), "frmClients"), "cmdAccountOfClient");
  EXPECT_TRUE(Viewer().isVisible());
  EXPECT_TRUE(TextsOnFirstPage().startsWith("Account Of " + name));
}

}  // namespace
}  // namespace quillary
