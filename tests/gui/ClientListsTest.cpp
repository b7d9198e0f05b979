#include "balances/screens/BalanceScreens.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Documents.h"
#include "clients/screens/frmSetJobPricesForMonthly.h"
#include "gui/ClientFixture.h"
#include "kit/CurrencyField.h"

namespace quillary {
namespace {

class ClientListsTest : public ClientFixture {
 protected:
  QWidget* OpenList() {
    navigator.Open(OpenClientList{});
    grid = Find<Grid>(host.shown.get(), "grdClients");
    return host.shown.get();
  }
  QStringList Names() {
    QStringList names;
    for (int row = 0; row < RowCount(grid); ++row) names += Cell(grid, row, 1);
    return names;
  }
  Grid* grid = nullptr;
};

TEST_F(ClientListsTest, TheListNarrowsByStatusAndFindsAsOneTypes) {
  QWidget* list = OpenList();
  EXPECT_EQ(Names(), QStringList({"Abbott, Anna", "Brown, Bill", "Strata Pty"}))
      << "prospects are no clients yet";
  EXPECT_EQ(Find<QLabel>(list, "lblCount")->text(), "List Count = 3");
  Type(Line(list, "txtSearch"), "0412555");
  EXPECT_EQ(Names(), QStringList("Abbott, Anna")) << "a phone is found without its blanks";
  Line(list, "txtSearch")->clear();
  Pick(Find<QComboBox>(list, "cboStatus"), "Billing address");
  EXPECT_EQ(Names(), QStringList("Strata Pty"));
  Click(Find<QWidget>(list, "chkRegular"));
  EXPECT_EQ(Names(), QStringList());
}

TEST_F(ClientListsTest, EnterInTheSearchOpensTheClientFound) {
  QWidget* list = OpenList();
  Type(Line(list, "txtSearch"), "brown");
  QTest::keyClick(Line(list, "txtSearch"), Qt::Key_Return);
  EXPECT_EQ(host.shown->windowTitle(), "Client: Brown, Bill");
}

TEST_F(ClientListsTest, CommandsOfTheListNeedAClient) {
  QWidget* list = OpenList();
  Type(Line(list, "txtSearch"), "nobody of that name");
  ClickOn(list, "cmdView");
  EXPECT_EQ(Told(), "Please select a client to view/edit.");
  ClickOn(list, "cmdDelete");
  EXPECT_EQ(Told(), "Please select a record to delete.");
  EXPECT_FALSE(Find<QWidget>(list, "cmdPrintGrid")->isEnabled()) << "nothing prints lists yet";
}

TEST_F(ClientListsTest, DebtorsAndCreditorsAreComputedOnOpening) {
  balances::RegisterBalanceScreens(business(), {navigator, host, runner});
  AddJob(1, "JD", QDate(2026, 10, 26), 55);
  Run(Sql("INSERT INTO Payments (Client_ID, Amount) VALUES (3, 20)"));
  Run(Sql("UPDATE Clients SET Account_Balance = -9 WHERE Client_ID = 4"));
  navigator.Open(OpenDebtors{});
  QWidget* screen = host.shown.get();
  auto* debtors = Find<Grid>(screen, "grdDebtors");
  auto* creditors = Find<Grid>(screen, "grdCreditors");
  ASSERT_EQ(RowCount(debtors), 1) << "a stale balance is put right first";
  EXPECT_EQ(Cell(debtors, 0, 2) + Cell(debtors, 0, 7), "Abbott, Anna$55.00");
  ASSERT_EQ(RowCount(creditors), 1);
  EXPECT_EQ(Cell(creditors, 0, 2) + Cell(creditors, 0, 7), "Strata Pty-$20.00");

  Run(Sql("UPDATE Clients SET Status = 'Cancelled' WHERE Client_ID = 1"));
  Click(Find<QWidget>(screen, "chkActiveClients"));
  EXPECT_EQ(RowCount(debtors), 0);
  Click(Find<QWidget>(screen, "chkActiveClients"));
  Run(Sql("UPDATE Diary SET Total_Price = 60"));
  navigator.Open(OpenDebtors{});
  EXPECT_EQ(Cell(debtors, 0, 7), "$60.00") << "opening the open list computes anew";
  debtors->SelectFirst();
  QTest::keyClick(debtors, Qt::Key_Return);
  EXPECT_EQ(host.shown->windowTitle(), "Client: Abbott, Anna");
}

TEST_F(ClientListsTest, AMonthlyAmountIsSpreadOverTheTickedJobs) {
  for (const int day : {2, 9, 16}) AddJob(1, "J", QDate(2026, 11, day), 55);
  for (const int job : {1, 2, 3})
    Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price) VALUES ({}, 1, 55)", job));
  clients::frmSetJobPricesForMonthly dialog(business(), {navigator, host, runner}, 1_client);
  dialog.show();
  EXPECT_EQ(Find<QLabel>(&dialog, "lblClientName")->text(), "Abbott, Anna");
  ClickOn(&dialog, "cdmStart");
  EXPECT_EQ(Told(), "Please enter an amount greater than 0.");
  EXPECT_EQ(dialog.focusWidget()->objectName(), "txtAmount");
  Find<CurrencyField>(&dialog, "txtAmount")->SetAmount(Money::FromWhole(100));
  ClickOn(&dialog, "cdmStart");
  EXPECT_EQ(Told(), "You did not select any job.");
  Click(Find<QWidget>(&dialog, "chkTickUntickAll"));
  ClickOn(&dialog, "cdmStart");
  auto* jobs = Find<Grid>(&dialog, "fgJobs");
  EXPECT_EQ(Cell(jobs, 0, 5) + Cell(jobs, 1, 5) + Cell(jobs, 2, 5), "$33.33$33.33$33.33");
}

TEST_F(ClientListsTest, GeneralNotesKeepTheirWordsAndTheirLook) {
  Run(Sql("DELETE FROM infOptions"));
  Run(Sql("INSERT INTO infOptions (Invoice_Notes) VALUES ('Thank you')"));
  InDialog([&](QDialog* dialog) {
    auto* notes = Find<QPlainTextEdit>(dialog, "txtNotes");
    EXPECT_EQ(notes->toPlainText(), "Thank you");
    notes->setPlainText("Merry\nChristmas");
    Click(Find<QWidget>(dialog, "chkBold"));
    Pick(Find<QComboBox>(dialog, "cmbColour"), "Red");
    ClickOn(dialog, "cmdOK");
  });
  EXPECT_TRUE(navigator.Open(EditGeneralNotes{}));
  EXPECT_EQ(business().LookupField("infOptions.Invoice_Notes").ToText(), "Merry\nChristmas");
  const MemorySettings& kept = outside.settings;
  EXPECT_EQ(kept.Read("Reports", "Notes Bold", "") + kept.Read("Reports", "Notes Color", ""),
            "1Red");
  InDialog([](QDialog* dialog) {
    EXPECT_TRUE(Find<QCheckBox>(dialog, "chkBold")->isChecked());
    ClickOn(dialog, "cmdClearText");
    EXPECT_EQ(Find<QPlainTextEdit>(dialog, "txtNotes")->toPlainText(), "");
    ClickOn(dialog, "cmdOK");
  });
  navigator.Open(EditGeneralNotes{});
  EXPECT_EQ(business().LookupField("infOptions.Invoice_Notes").ToText(), "");
}

TEST_F(ClientListsTest, ReportCriteriaWaitForTheirReport) {
  InDialog([](QDialog* dialog) {
    EXPECT_FALSE(Find<QWidget>(dialog, "cmdPreview")->isEnabled());
    EXPECT_TRUE(Find<QAbstractButton>(dialog, "optAllClients")->isChecked());
  });
  EXPECT_FALSE(navigator.Open(PickClientReport{}).has_value());
  navigator.Register<ReportOnWorkDone>([](const ReportOnWorkDone&) {});
  InDialog([&](QDialog* dialog) {
    ClickOn(dialog, "cmdPreview");
    EXPECT_EQ(Told(), "Please tick a client first.");
    Click(Find<QWidget>(dialog, "chkTickUntickAll"));
    ClickOn(dialog, "cmdPreview");
  });
  const auto chosen = navigator.Open(PickDatesWithClients{});
  ASSERT_TRUE(chosen);
  EXPECT_EQ(chosen->clients.size(), 3U);
  EXPECT_EQ(chosen->days.from, QDate(2026, 11, 1));
  EXPECT_EQ(chosen->days.to, QDate(2026, 11, 30));
}

}  // namespace
}  // namespace quillary
