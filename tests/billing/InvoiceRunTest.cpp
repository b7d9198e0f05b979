#include "InvoiceTest.h"
#include "billing/invoices/InvoiceList.h"
#include "billing/runs/MonthlyRun.h"
#include "billing/runs/WithJobRun.h"
#include "data/store/Connection.h"

namespace quillary::billing {
namespace {

const MonthlyPeriod kOctober{{QDate(2026, 10, 1), QDate(2026, 10, 31)}, QDate(2026, 11, 2)};

class InvoiceRunTest : public InvoiceTest {
 protected:
  QString Invoices() {
    return Rows(
        Sql("SELECT Client_ID, Invoice_Number, Total_Amount, Total_GST FROM Invoices "
            "ORDER BY Invoice_ID"));
  }
  QString LastNumber() { return Rows(Sql("SELECT Invoice_Number FROM infSystem")); }
  void Execute(const char* statement) {
    sqlite3_exec(business().StoreConnection().Handle(), statement, nullptr, nullptr, nullptr);
  }
};

TEST_F(InvoiceRunTest, DescriptionNamesAMonthOrItsDates) {
  const std::tuple<QDate, QDate, const char*> cases[] = {
      {QDate(2026, 3, 1), QDate(2026, 3, 31), "TAX INVOICE FOR MARCH"},
      {QDate(2026, 2, 1), QDate(2026, 2, 28), "TAX INVOICE FOR FEBRUARY"},
      {QDate(2026, 3, 1), QDate(2026, 3, 30), "TAX INVOICE FOR 01-MAR-2026 TO 30-MAR-2026"},
      {QDate(2026, 3, 2), QDate(2026, 3, 31), "TAX INVOICE FOR 02-MAR-2026 TO 31-MAR-2026"},
      {QDate(2026, 3, 1), QDate(2026, 4, 30), "TAX INVOICE FOR 01-MAR-2026 TO 30-APR-2026"},
      {QDate(2025, 3, 1), QDate(2026, 3, 31), "TAX INVOICE FOR 01-MAR-2025 TO 31-MAR-2026"},
  };
  for (const auto& [from, to, words] : cases) EXPECT_EQ(MonthlyDescription({from, to}), words);
}

TEST_F(InvoiceRunTest, AGroupGetsOneInvoiceOfItsDoneJobs) {
  AddJob(3, "JD", QDate(2026, 10, 1));
  AddJob(3, "JU", QDate(2026, 10, 31), 55.5, 5.05);
  AddJob(2, "JP", QDate(2026, 10, 15), Value(), Value());
  const char* leftOut[] = {"J", "JI", "JC", "VD"};
  for (const char* status : leftOut) AddJob(3, status, QDate(2026, 10, 10));
  AddJob(3, "JD", QDate(2026, 11, 1));
  AddJob(1, "JD", QDate(2026, 10, 10));
  std::vector<std::pair<int, int>> heard;
  const InvoiceRunCount count = GenerateMonthlyInvoices(
      business(), kOctober, [&](int done, int total) { heard.emplace_back(done, total); });
  EXPECT_EQ(count.invoicesMade, 1);
  EXPECT_EQ(count.totalAmount, Money::FromUnits(165'5000));
  EXPECT_EQ(Invoices(), "2 1001 165.5 15.05");
  EXPECT_EQ(JobStates(), "JD 1,JU 1,JP 1,J -,JI -,JC -,VD -,JD -,JD -");
  EXPECT_EQ(Rows(Sql("SELECT From_Date, To_Date, Generation_Date, Statement_Type, Done_For, "
                     "Balance_Carried_Across, Invoice_Description FROM Invoices")),
            "2026-10-01 2026-10-31 2026-11-02 Monthly - 0 TAX INVOICE FOR OCTOBER");
  EXPECT_EQ(Rows(Sql("SELECT Made_Out_To FROM Invoices")), "Strata\n \n \n");
  EXPECT_EQ(Rows(Sql("SELECT Last_Monthly_Invoice_Ending FROM infSystem")), "2026-10-31");
  EXPECT_EQ(heard, (std::vector<std::pair<int, int>>{{1, 1}}));
}

TEST_F(InvoiceRunTest, ASecondRunFindsOnlyWhatCameLate) {
  AddJob(3, "JD", QDate(2026, 10, 1));
  GenerateMonthlyInvoices(business(), kOctober);
  EXPECT_EQ(GenerateMonthlyInvoices(business(), kOctober).invoicesMade, 0);
  EXPECT_EQ(LastNumber(), "1001") << "who gets no invoice costs no number";
  AddJob(3, "JD", QDate(2026, 10, 2), 22, 2);
  EXPECT_EQ(GenerateMonthlyInvoices(business(), kOctober).invoicesMade, 1);
  EXPECT_EQ(Invoices(), "2 1001 110 10,2 1002 22 2");
}

TEST_F(InvoiceRunTest, NothingToBillTakesTheInvoiceBackAndKeepsItsTraces) {
  AddJob(3, "JD", QDate(2026, 10, 1), 0, 0);
  AddJob(2, "JD", QDate(2026, 10, 2), Value(), Value());
  EXPECT_EQ(GenerateMonthlyInvoices(business(), kOctober).invoicesMade, 0);
  EXPECT_EQ(Count("Invoices"), 0);
  EXPECT_EQ(JobStates(), "JD 1,JD 1");
  EXPECT_EQ(LastNumber(), "1001");
  GenerateMonthlyInvoices(business(), kOctober);
  EXPECT_EQ(LastNumber(), "1001") << "no later run picks them up";
}

TEST_F(InvoiceRunTest, WhoIsNotToBeBilledIsSkipped) {
  struct Case {
    const char* status;
    const char* billed;
    bool monthly;
    bool withJob;
  };
  const Case cases[] = {
      {"Active", "Monthly", true, false},      {"Billing address", "monthly", true, false},
      {"Bad debtor", "Monthly", false, false}, {"Active", "None", false, false},
      {"Active", "With Job", false, true},     {"Bad debtor", "With Job", false, false}};
  for (const Case& c : cases) {
    Run(Sql("UPDATE Clients SET Status = {}, Statement_Type = {} WHERE Client_ID = 2", c.status,
            c.billed));
    AddJob(3, "JD", QDate(2026, 10, 5));
    EXPECT_EQ(GenerateMonthlyInvoices(business(), kOctober).invoicesMade, c.monthly ? 1 : 0)
        << c.status << ' ' << c.billed;
    EXPECT_EQ(GenerateWithJobInvoices(business(), DateRange::Of({2026, 10, 5})).invoicesMade,
              c.withJob ? 1 : 0)
        << c.status << ' ' << c.billed;
    Run(Sql("DELETE FROM Diary"));
  }
}

TEST_F(InvoiceRunTest, WithJobRunBillsEachJobOnceWhateverItsStatus) {
  Run(Sql("UPDATE Clients SET Statement_Type = 'With Job' WHERE Client_ID = 2"));
  AddJob(1, "JD", QDate(2026, 11, 2), 44, 4);
  const InvoiceForm before = AddInvoice(1_client, {1_entry});
  AddJob(1, "J", QDate(2026, 11, 2));
  AddJob(3, "JC", QDate(2026, 11, 2), Value(), Value());
  AddJob(1, "J", QDate(2026, 11, 3));
  Run(Sql("INSERT INTO lstInvoicesToPrint (Invoice_ID) VALUES (77)"));
  const InvoiceRunCount count = GenerateWithJobInvoices(business(), DateRange::Of({2026, 11, 2}));
  EXPECT_EQ(count.invoicesMade, 2);
  EXPECT_EQ(count.totalAmount, Money::FromWhole(110));
  EXPECT_EQ(JobStates(), "JD 1,J 2,JC 3,J -");
  EXPECT_EQ(Rows(Sql("SELECT Invoice_ID FROM lstInvoicesToPrint")), "1,2,3");
  EXPECT_EQ(Rows(Sql("SELECT Client_ID, Total_Amount, Total_GST, From_Date, To_Date, "
                     "Generation_Date, Statement_Type, Invoice_Description FROM Invoices "
                     "WHERE Invoice_ID > {} ORDER BY Invoice_ID",
                     before.invoiceId)),
            "1 110 10 2026-11-02 2026-11-02 2026-11-02 With Job TAX INVOICE FOR 02-NOV-2026,"
            "2 - - 2026-11-02 2026-11-02 2026-11-02 With Job TAX INVOICE FOR 02-NOV-2026");
  EXPECT_EQ(Run(Sql("SELECT Made_Out_To FROM Invoices WHERE Invoice_ID = 2"))
                .Field(u"Made_Out_To")
                .ToText(),
            "Abbott\n18 High St\nKEW 3101\n");
  EXPECT_EQ(GenerateWithJobInvoices(business(), DateRange::Of({2026, 11, 2})).invoicesMade, 0);
  EXPECT_EQ(Count("lstInvoicesToPrint"), 3);
}

TEST_F(InvoiceRunTest, TheRunIsAskedForFirst) {
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect(
        "This will automatically create invoice records for clients who are billed monthly.\n"
        "This also attaches jobs done within the date specified to the invoice.\n\nContinue?",
        answer);
    EXPECT_EQ(ConfirmMonthlyRun(outside.prompter), answer == Answer::Yes);
  }
}

TEST_F(InvoiceRunTest, WhatFailsWithOneClientLeavesTheOthersTheirInvoices) {
  const qint64 last = AddClient("Zoe", "Active", "Monthly", 4);
  AddJob(3, "JD", QDate(2026, 10, 1));
  AddJob(3, "JD", QDate(2026, 10, 2));
  AddJob(last, "JD", QDate(2026, 10, 3));
  ExpectRefused("UPDATE Diary SET Invoice_ID");
  Execute(
      "CREATE TEMP TRIGGER stop BEFORE UPDATE ON Diary WHEN NEW.Diary_ID = 2 "
      "BEGIN SELECT RAISE(ABORT, 'not this one'); END");
  const InvoiceRunCount count = GenerateMonthlyInvoices(business(), kOctober);
  EXPECT_EQ(count.failed, 1);
  EXPECT_EQ(count.invoicesMade, 1);
  const QStringList reports = outside.errors.TakeReports();
  ASSERT_EQ(reports.size(), 1);
  EXPECT_TRUE(
      reports.front().startsWith(u"frmInvoicesList|cmdGenerateInvoiceAutomatically_Click|Error: "));
  EXPECT_EQ(Rows(Sql("SELECT Client_ID FROM Invoices")), "4");
  EXPECT_EQ(JobStates().left(9), "JD -,JD -") << "nothing of the failed client is left half done";
  EXPECT_EQ(outside.busy.depth, 0);
  Execute("DROP TRIGGER stop");
  EXPECT_EQ(GenerateMonthlyInvoices(business(), kOctober).invoicesMade, 1);
}

}  // namespace
}  // namespace quillary::billing
