#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Documents.h"
#include "billing/invoices/InvoiceRecord.h"
#include "billing/runs/MonthlyReminder.h"
#include "billing/screens/InvoiceScreens.h"
#include "gui/ScreenFixture.h"
#include "setup/demo/DemoBusiness.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTimer>

namespace quillary {
namespace {

/// Over the invoices of Abbott (1), who is billed with each job, and Brown (2), billed monthly.
class InvoiceScreensTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    Run(Sql("UPDATE infSystem SET Invoice_Number = 1000"));
    Run(
        Sql("UPDATE Clients SET Statement_Type = 'With Job', Street_Number = '1', "
            "Street = 'High St' WHERE Client_ID = 1"));
    Run(Sql("UPDATE Clients SET Statement_Type = 'Monthly' WHERE Client_ID = 2"));
    billing::RegisterInvoiceScreens(business(), {navigator, host, runner});
  }
  /// Documents that are asked for are noted instead of written.
  void NotePrinting() {
    navigator.Register<PrintInvoices>([this](const PrintInvoices& request) {
      return Note(QStringLiteral("invoices %1 %2")
                      .arg(request.fileNamePart.simplified())
                      .arg(request.priceIncludesGST),
                  request.invoices);
    });
    navigator.Register<PrintStatements>([this](const PrintStatements& request) {
      return Note(QStringLiteral("statements %1 %2 %3")
                      .arg(request.from.toString(Qt::ISODate), request.to.toString(Qt::ISODate))
                      .arg(request.priceIncludesGST),
                  request.invoices);
    });
    navigator.Register<PrintReminders>([this](const PrintReminders& request) {
      return Note(QStringLiteral("reminders %1").arg(request.priceIncludesGST), request.invoices);
    });
    navigator.Register<EmailLastDocument>([this](const EmailLastDocument&) { Note("mailed"); });
  }
  bool Note(const QString& words, const std::vector<Id<Invoice>>& invoices = {}) {
    QStringList selected;
    for (const Id<Invoice> invoice : invoices) selected += QString::number(invoice.Number());
    printed += words + QStringLiteral(" of ") + selected.join(u',');
    return true;
  }
  Id<Entry> AddJob(qint64 client, const char* status, double price = 110) {
    return Build().Add<Entry>({{"Client_ID", client},
                               {"Employee_ID", 1},
                               {"Status", status},
                               {"Schedule_Date", business().Today()},
                               {"Description", "MO"},
                               {"Total_Price", price},
                               {"Total_GST", price / 11}});
  }
  Id<Invoice> StoreInvoice(Id<Client> client, std::optional<Id<Entry>> job = {}) {
    billing::InvoiceForm form = billing::NewInvoice(business(), client, job);
    EXPECT_FALSE(billing::SaveInvoices(business(), form));
    return *form.invoiceId;
  }
  QString JobState(Id<Entry> job) {
    const Recordset row = Run(Sql("SELECT Status, Invoice_ID FROM Diary WHERE Diary_ID = {}", job));
    return row.Field(u"Status").ToText() + u' ' + row.Field(u"Invoice_ID").ToText("-");
  }
  static int RowsIn(const QObject* in, const char* grid) {
    return Find<Grid>(in, grid)->model()->rowCount();
  }
  static QString TextOf(const QObject* in, const char* field) {
    return Find<QLineEdit>(in, field)->text();
  }
  /// What the user does in the dialog that the next command opens over another.
  static void Then(const std::function<void(Dialog&)>& use) {
    QTimer::singleShot(0, qApp, [use] {
      auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
      use(*dialog);
      if (dialog->isVisible()) dialog->done(QDialog::Rejected);
    });
  }
  static void TickAll(const QObject* in) { Find<QCheckBox>(in, "chkTickUntickAll")->click(); }
  static QString Doubled(const QWidget& screen, QString letters) {
    QString doubled;
    const auto take = [&](const QString& caption) {
      for (qsizetype at = 0; at + 1 < caption.size(); ++at) {
        if (caption[at] != u'&') continue;
        const QChar letter = caption[++at].toUpper();
        if (letter == u'&') continue;
        if (letters.contains(letter)) doubled += letter;
        letters += letter;
      }
    };
    for (const auto* label : screen.findChildren<QLabel*>())
      if (label->buddy()) take(label->text());
    for (const auto* button : screen.findChildren<QAbstractButton*>())
      if (button->isVisible()) take(button->text());
    return doubled;
  }

  QStringList printed;
};

TEST_F(InvoiceScreensTest, RefusalsComeInOrderAtTheirField) {
  AddJob(1, "JD");
  EXPECT_FALSE(UseDialog(AddInvoice{}, [&](Dialog& invoice) {
    ClickOn(&invoice, "cmdShowListOfJobs");
    EXPECT_EQ(Told(), "Please select a client first.");
    ClickOn(&invoice, "cmdSave");
    EXPECT_EQ(Told(), "Please select the billed client.");
    EXPECT_TRUE(Find<QWidget>(&invoice, "cmdBilledClient")->hasFocus());
    TypeChoice(&invoice, "cmdBilledClient", "ab");
    EXPECT_EQ(Find<QPlainTextEdit>(&invoice, "txtMadeOutTo")->toPlainText(),
              "Abbott\n1 High St\nKEW ");
    EXPECT_EQ(Find<QLabel>(&invoice, "lblOutstanding")->text(),
              "Current outstanding amount is $0.00");
    TypeOver(&invoice, "txtInvoiceNumber", "A1");
    ClickOn(&invoice, "cmdSave");
    EXPECT_EQ(Told(), "Please enter the invoice number.");
    EXPECT_TRUE(Find<QWidget>(&invoice, "txtInvoiceNumber")->hasFocus());
    ClickOn(&invoice, "cmdRemoveJob");
    EXPECT_EQ(Told(), "Please select a job to remove.");
    outside.prompter.Expect("Close without saving changes?", Answer::Yes);
    ClickOn(&invoice, "cmdClose");
  }));
  EXPECT_EQ(Count("Invoices"), 0);
  EXPECT_EQ(Number(Sql("SELECT Invoice_Number FROM infSystem")), 1001);
}

TEST_F(InvoiceScreensTest, EachPressSpendsANumber) {
  EXPECT_TRUE(UseDialog(AddInvoice{1_client, {}}, [&](Dialog& invoice) {
    EXPECT_EQ(TextOf(&invoice, "txtInvoiceNumber"), "1001");
    ClickOn(&invoice, "cmdGetLastNumber");
    ClickOn(&invoice, "cmdGetLastNumber");
    EXPECT_EQ(TextOf(&invoice, "txtInvoiceNumber"), "1003");
    TypeOver(&invoice, "txtInvoiceNumber", "12A");
    ClickOn(&invoice, "cmdSave");
    EXPECT_FALSE(invoice.isVisible()) << "no question about jobs here";
  }));
  EXPECT_EQ(Word(Sql("SELECT Invoice_Number FROM Invoices")), "12A");
  UseDialog(EditInvoice{1_invoice}, [&](Dialog& invoice) {
    EXPECT_EQ(TextOf(&invoice, "txtInvoiceNumber"), "12");
    EXPECT_EQ(TextOf(&invoice, "txtInvoiceAmount"), "$0.00");
  });
}

TEST_F(InvoiceScreensTest, AnInvoiceOfAJobHasNothingToChoose) {
  const Id<Entry> job = AddJob(1, "JD");
  EXPECT_TRUE(UseDialog(AddInvoice{1_client, job}, [&](Dialog& invoice) {
    EXPECT_FALSE(Find<QWidget>(&invoice, "fraLstOfAttachedJobs")->isVisible());
    EXPECT_EQ(TextOf(&invoice, "txtInvoiceAmount"), "$110.00");
    EXPECT_EQ(TextOf(&invoice, "txtGSTIncluded"), "$10.00");
    ClickOn(&invoice, "cmdSaveAndClose");
  }));
  EXPECT_EQ(JobState(job), "JI 1");
  EXPECT_EQ(Number(Sql("SELECT Total_Amount FROM Invoices")), 110);
}

TEST_F(InvoiceScreensTest, JobsOfANewInvoiceAreAttachedWithItsFirstSave) {
  const Id<Entry> one = AddJob(1, "JD");
  const Id<Entry> two = AddJob(1, "J", 55);
  EXPECT_TRUE(UseDialog(AddInvoice{1_client, {}}, [&](Dialog& invoice) {
    outside.prompter.Expect("You did not attach a job to this invoice.\n\n", Answer::Yes);
    Then([&](Dialog& list) {
      EXPECT_EQ(RowsIn(&list, "fgJobs"), 2);
      auto* grid = Find<Grid>(&list, "fgJobs");
      EXPECT_EQ(Find<QLabel>(&list, "lblTickedTotal")->text(), "0 jobs ticked = $0.00");
      grid->SelectId(two);
      QTest::keyClick(grid, Qt::Key_Space);
      EXPECT_EQ(Find<QLabel>(&list, "lblTickedTotal")->text(), "1 job ticked = $55.00");
      TickAll(&list);
      EXPECT_EQ(Find<QLabel>(&list, "lblTickedTotal")->text(), "2 jobs ticked = $165.00");
      ClickOn(&list, "cmdAttachJobsToInvoice");
    });
    ClickOn(&invoice, "cmdSaveAndClose");
    EXPECT_TRUE(invoice.isVisible()) << "the screen stays";
    EXPECT_EQ(TextOf(&invoice, "txtInvoiceAmount"), "$165.00");
    EXPECT_EQ(JobState(one), "JD 1") << "its first save had made the invoice";
    Find<Grid>(&invoice, "fgJobs")->SelectId(one);
    ClickOn(&invoice, "cmdRemoveJob");
    EXPECT_EQ(TextOf(&invoice, "txtInvoiceAmount"), "$55.00");
    ClickOn(&invoice, "cmdSaveAndClose");
  }));
  EXPECT_EQ(JobState(one) + u',' + JobState(two), "JD -,J 1");
  EXPECT_EQ(Number(Sql("SELECT Total_Amount FROM Invoices")), 55);

  UseDialog(AddInvoice{1_client, {}}, [&](Dialog& invoice) {
    Then([&](Dialog& list) {
      TickAll(&list);
      outside.prompter.Expect("This job stands on another invoice:", Answer::No);
      ClickOn(&list, "cmdAttachJobsToInvoice");
      EXPECT_TRUE(list.isVisible());
      outside.prompter.Expect("invoice 1001\n\nTake it off there?", Answer::Yes);
      ClickOn(&list, "cmdAttachJobsToInvoice");
    });
    ClickOn(&invoice, "cmdShowListOfJobs");
    EXPECT_EQ(RowsIn(&invoice, "fgJobs"), 2);
    outside.prompter.Expect("Close without saving changes?", Answer::Yes);
    ClickOn(&invoice, "cmdClose");
  });
  EXPECT_EQ(JobState(one) + u',' + JobState(two), "JD -,J 1") << "cancelled: nothing has moved";
}

TEST_F(InvoiceScreensTest, PrintingSavesFirstAndThenMayMail) {
  StoreInvoice(1_client);
  UseDialog(EditInvoice{1_invoice}, [&](Dialog& invoice) {
    EXPECT_FALSE(Find<QPushButton>(&invoice, "cmdPrintInvoice")->isEnabled())
        << "nothing can print yet";
  });
  NotePrinting();
  AddJob(1, "JD");
  UseDialog(EditInvoice{1_invoice}, [&](Dialog& invoice) {
    EXPECT_FALSE(Find<QPushButton>(&invoice, "cmdEmailInvoice")->isEnabled());
    Then([&](Dialog& list) {
      EXPECT_EQ(Told(), "Please select jobs to included on the invoice.");
      TickAll(&list);
      ClickOn(&list, "cmdAttachJobsToInvoice");
    });
    ClickOn(&invoice, "cmdPrintInvoice");
    EXPECT_TRUE(printed.isEmpty());
    Find<QCheckBox>(&invoice, "chkPriceExcludesGST")->click();
    ClickOn(&invoice, "cmdPrintInvoice");
    EXPECT_EQ(printed, QStringList("invoices Abbott 1 High St KEW 0 of 1"));
    EXPECT_EQ(Number(Sql("SELECT Total_Amount FROM Invoices")), 110) << "saved before it prints";
    ClickOn(&invoice, "cmdEmailInvoice");
    EXPECT_TRUE(printed.last().startsWith("mailed"));
  });
}

TEST_F(InvoiceScreensTest, ANoteOfAnEarlierInvoiceReplacesTheText) {
  StoreInvoice(1_client);
  Run(Sql("UPDATE Invoices SET Invoice_Notes = 'Gate is locked'"));
  UseDialog(AddInvoice{1_client, {}}, [&](Dialog& invoice) {
    auto* notes = Find<QPlainTextEdit>(&invoice, "txtInvoiceNotes");
    notes->setPlainText("typed");
    Then([&](Dialog& list) {
      Find<Grid>(&list, "fgNotes")->clearSelection();
      ClickOn(&list, "cmdSelect");
      EXPECT_EQ(Told(), "Please select a note from the list");
      Find<Grid>(&list, "fgNotes")->SelectFirst();
      QTest::keyClick(Find<Grid>(&list, "fgNotes"), Qt::Key_Return);
    });
    ClickOn(&invoice, "cmdShowInvoiceNotes");
    EXPECT_EQ(notes->toPlainText(), "Gate is locked");
    outside.prompter.Expect("Close without saving changes?", Answer::Yes);
    ClickOn(&invoice, "cmdClose");
  });
}

TEST_F(InvoiceScreensTest, TheListPrintsItsTicksAndDeletesThem) {
  NotePrinting();
  const Id<Entry> job = AddJob(1, "JD");
  StoreInvoice(1_client, job);
  StoreInvoice(2_client);
  Screen& list = OpenTab(OpenInvoicesList{});
  EXPECT_EQ(RowsIn(&list, "fgInvoices"), 2);
  auto* invoices = Find<Grid>(&list, "fgInvoices");
  for (const qint64 kept : invoices->ShownKeys()) {
    invoices->SelectKey(kept);
    list.Reload();
    EXPECT_EQ(invoices->Key(invoices->SelectedRow().value_or(-1)), kept)
        << "loading again moves the selection";
  }
  ClickOn(&list, "cmdPrintReminder");
  TickAll(&list);
  ClickOn(&list, "cmdPrintInvoices");
  Find<QCheckBox>(&list, "chkPriceExcludesGST")->click();
  ClickOn(&list, "cmdPrintInvoices");
  ClickOn(&list, "cmdPrintStatement");
  EXPECT_EQ(printed.join(u'|'),
            "reminders 1 of |invoices True 1 of 1,2|invoices False 1 of 1,2|"
            "statements 2026-11-01 2026-11-30 0 of 1,2");
  outside.prompter.Expect("Are you sure you want to delete ticked invoices ", Answer::Yes);
  ClickOn(&list, "cmdDeleteInvoice");
  EXPECT_EQ(RowsIn(&list, "fgInvoices"), 0);
  EXPECT_FALSE(Find<QCheckBox>(&list, "chkTickUntickAll")->isChecked());
  EXPECT_EQ(JobState(job), "JI -");
  ClickOn(&list, "cmdViewInvoice");
  EXPECT_EQ(Told(), "Please select an invoice.");
}

TEST_F(InvoiceScreensTest, TheMonthlyRunAsksForADateAndFillsTheList) {
  const Id<Entry> job = AddJob(2, "JD");
  Screen& list = OpenTab(OpenInvoicesList{true});
  EXPECT_TRUE(Find<QCheckBox>(&list, "chkShowMonthly")->isChecked());
  const auto run = [&](bool confirm) {
    outside.prompter.Expect("This will automatically create invoice records", Answer::Yes);
    Then([&](Dialog& date) { ClickOn(&date, confirm ? "cmdOK" : "cmdCancel"); });
    ClickOn(&list, "cmdGenerateInvoiceAutomatically");
  };
  run(false);
  EXPECT_EQ(Count("Invoices"), 0) << "no date, no run";
  run(true);
  EXPECT_EQ(JobState(job), "JD 1");
  EXPECT_TRUE(list.isEnabled());
  ASSERT_EQ(RowsIn(&list, "fgInvoices"), 1);
  EXPECT_TRUE(RowText(Find<Grid>(&list, "fgInvoices"), 0)
                  .contains("Brown|2 Nov 2026|TAX INVOICE FOR NOVEMBER|$110.00|1001|No"));
}

TEST_F(InvoiceScreensTest, PickingAMonthOnlyMovesTheDates) {
  StoreInvoice(1_client);
  Screen& list = OpenTab(OpenInvoicesList{});
  auto* month = Find<QComboBox>(&list, "cboMonth");
  EXPECT_EQ(month->currentText(), "November 2026");
  month->setCurrentIndex(month->findText("March 2025"));
  emit month->activated(month->currentIndex());
  EXPECT_EQ(TextOf(&list, "dtFrom") + u' ' + TextOf(&list, "dtTo"),
            "Sat 1 Mar 2025 Mon 31 Mar 2025");
  EXPECT_EQ(RowsIn(&list, "fgInvoices"), 1);
  ClickOn(&list, "cmdList");
  EXPECT_EQ(RowsIn(&list, "fgInvoices"), 0);
}

TEST_F(InvoiceScreensTest, AJobOfTheDiaryIsInvoicedAloneOrWithItsDay) {
  const Id<Entry> job = AddJob(1, "JD");
  const Id<Entry> other = AddJob(1, "J", 22);
  const QDate day = business().Today();
  const ChooseInvoiceFor request{1_client, job, DateRange::Of(day)};
  UseDialog(request, [&](Dialog& options) {
    EXPECT_FALSE(Find<QPushButton>(&options, "cmdCreateNonMonthlyInvoice")->isEnabled());
    Then([&](Dialog& invoice) { ClickOn(&invoice, "cmdClose"); });
    ClickOn(&options, "cmdCreateNewInvoice");
    EXPECT_TRUE(options.isVisible()) << "nothing was saved";
    Then([&](Dialog& invoice) { ClickOn(&invoice, "cmdSave"); });
    ClickOn(&options, "cmdCreateNewInvoice");
    EXPECT_FALSE(options.isVisible());
  });
  EXPECT_EQ(JobState(job), "JI 1");
  NotePrinting();
  UseDialog(request, [&](Dialog& options) {
    ClickOn(&options, "cmdCreateNonMonthlyInvoice");
    EXPECT_FALSE(options.isVisible());
  });
  EXPECT_EQ(JobState(other), "J 2");
  EXPECT_EQ(printed, QStringList("invoices Abbott 1 of 1,2"));
  UseDialog(request, [&](Dialog& options) {
    Then([&](Dialog& invoice) { EXPECT_EQ(TextOf(&invoice, "txtInvoiceNumber"), "1002"); });
    ClickOn(&options, "cmdCreateNewInvoice");  // a job that has an invoice opens it
  });
  EXPECT_EQ(Count("Invoices"), 2);
}

TEST_F(InvoiceScreensTest, TheReminderIsMovedOrSwitchedOff) {
  Screen& list = OpenTab(OpenInvoicesList{});
  const auto stored = [&] {
    return business().FirstField(Sql("SELECT Monthly_Invoices_Reminder FROM infOptions")).ToDate();
  };
  Then([&](Dialog& reminder) {
    EXPECT_FALSE(Find<QWidget>(&reminder, "txtDate")->isEnabled());
    Find<QCheckBox>(&reminder, "chkYesPlease")->click();
    EXPECT_TRUE(Find<QWidget>(&reminder, "txtDate")->isEnabled());
    ClickOn(&reminder, "cmdOK");
  });
  ClickOn(&list, "cmdMonthlyInvoiceReminder");
  EXPECT_EQ(stored(), QDate(2026, 12, 2));
  Then([&](Dialog& reminder) {
    Find<QCheckBox>(&reminder, "chkYesPlease")->click();
    ClickOn(&reminder, "cmdOK");
  });
  ClickOn(&list, "cmdMonthlyInvoiceReminder");
  EXPECT_FALSE(stored().isValid());
}

TEST_F(InvoiceScreensTest, CriteriaOfTheInvoiceList) {
  std::optional<InvoiceListCriteria> picked;
  Then([&](Dialog& criteria) {
    PressAlt(&criteria, Qt::Key_D);
    ClickOn(&criteria, "cmdPreview");
  });
  picked = navigator.Open(PickInvoiceList{});
  ASSERT_TRUE(picked);
  EXPECT_EQ(picked->days.from, QDate(2026, 11, 1));
  EXPECT_EQ(picked->days.to, QDate(2026, 11, 30));
  EXPECT_EQ(picked->order, InvoiceListCriteria::Order::Date);
}

TEST_F(InvoiceScreensTest, NoLetterStandsForTwoControls) {
  const Id<Invoice> id = StoreInvoice(1_client);
  EXPECT_EQ(Doubled(OpenTab(OpenInvoicesList{}), "DACQFRNSHE"), "");
  const auto check = [](Dialog& dialog) {
    EXPECT_EQ(Doubled(dialog, {}), "") << dialog.objectName().toStdString();
    EXPECT_LE(dialog.height(), 664) << dialog.objectName().toStdString();
    EXPECT_LE(dialog.width(), 1248) << dialog.objectName().toStdString();
  };
  UseDialog(EditInvoice{id}, check);
  UseDialog(ChooseInvoiceFor{1_client, AddJob(1, "J"), DateRange::Of(business().Today())}, check);
}

class MonthlyReminderTest : public ProgramTest {};

TEST_F(MonthlyReminderTest, TheStartAsksFromItsDayOnAndOpensTheMonthlyInvoices) {
  {
    Business business(outside.Ports(), File());
    business.ConnectToDatabase();
    setup::WriteDemoBusiness(business, {.clients = 5, .months = 1});
    billing::SaveMonthlyReminder(business, business.Today());
    business.CloseConnection();
  }
  outside.prompter.Expect(
      "Reminder! You need to run your monthly invoices. Would you like to do this now?",
      Answer::Yes);
  program = std::make_unique<shell::Program>(outside.Ports(), navigator, folder.path());
  program->UseFile(File());
  ASSERT_TRUE(program->Start({}));
  auto* list = Find<Screen>(&Window(), "frmInvoicesList");
  EXPECT_TRUE(Find<QCheckBox>(list, "chkShowMonthly")->isChecked());
  EXPECT_EQ(billing::LoadMonthlyReminder(program->OpenBusiness()).stored, QDate(2026, 11, 2))
      << "answering does not move it";
}

}  // namespace
}  // namespace quillary
