#include "documents/billing/PrintedInvoices.h"
#include "support/BusinessTest.h"
#include "today/FridayRun.h"

#include <set>

namespace quillary::today {
namespace {

/// Remembers what was mailed, as an outbox does.
class RecordedMail : public OutgoingMail {
 public:
  int InDoubt() override { return 0; }
  std::vector<Id<Invoice>> NotMailed(const std::vector<Id<Invoice>>& invoices) override {
    std::vector<Id<Invoice>> left;
    for (const Id<Invoice> invoice : invoices)
      if (!mailed.contains(invoice)) left.push_back(invoice);
    return left;
  }
  std::set<Id<Invoice>> mailed;
};

/// A week of two clients billed with each job, one with an address, and one billed by the month; on
/// Monday 2 November 2026.
class FridayRunTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    for (const auto& [name, type, address] :
         {std::tuple("Able", "With Job", "able@example.org"), std::tuple("Brown", "With Job", ""),
          std::tuple("Cole", "Monthly", "")})
      Build().Add<Client>({{"Display_Name", name},
                           {"Status", "Active"},
                           {"Is_Billed_To", true},
                           {"Email", address},
                           {"Statement_Type", type}});
    Run(Sql("UPDATE Clients SET Billing_Client_ID = Client_ID"));
    for (int client = 1; client <= 3; ++client)
      for (int before = 0; before < 9; before += 2)
        Build().Add<Entry>({{"Client_ID", client},
                            {"Schedule_Date", business().Today().addDays(-before)},
                            {"Status", before == 2   ? "JD"
                                       : before == 8 ? "JC"
                                                     : "J"},
                            {"Total_Price", 50}});
    Run(Sql("INSERT INTO Payments (Payment_Date, Amount, Payment_Method) VALUES ({}, 20, 'CASH')",
            business().Today()));
  }
  FridayRun Now() { return LoadFridayRun(business(), LoadAttention(business(), {}), &mail); }
  /// The i-th step, as its button does it.
  void Step(int step) {
    switch (step) {
      case 0:
        outside.prompter.Expect("Mark 9 open jobs of 27 Oct 2026 to 2 Nov 2026", Answer::Yes);
        EXPECT_TRUE(MarkWeekDone(business(), outside.prompter));
        break;
      case 1:
        outside.prompter.Expect("Make an invoice for each of 8 jobs that are done, $400.00",
                                Answer::Yes);
        EXPECT_TRUE(InvoiceWeek(business(), outside.prompter));
        break;
      case 2:
        documents::NotePrinted(business(), Now().toPrint);
        break;
      case 3:
        for (const Id<Invoice> invoice : Now().toMail) mail.mailed.insert(invoice);
        break;
      default:
        Run(Sql("INSERT INTO Bankings (Total_Banked) VALUES (20)"));
        Run(Sql("UPDATE Payments SET Banking_ID = 1"));
    }
  }
  /// What the step leaves to be done.
  size_t Left(int step) {
    const FridayRun run = Now();
    const size_t left[] = {static_cast<size_t>(run.week.open),
                           static_cast<size_t>(run.waiting.jobs), run.toPrint.size(),
                           run.toMail.size(), static_cast<size_t>(run.ToBank())};
    return left[step];
  }
  RecordedMail mail;
};

TEST_F(FridayRunTest, CanBeLeftAfterAnyStepAndDoesNothingTwice) {
  for (int step = 0; step < 5; ++step) {
    SCOPED_TRACE(step);
    Step(step);
    EXPECT_EQ(Left(step), 0U);
    // Another day, another start: everything is read from the file again.
    business().CloseConnection();
    outside.clock.now.date = outside.clock.now.date.addDays(step == 2 ? 1 : 0);
    for (int before = 0; before <= step; ++before) EXPECT_EQ(Left(before), 0U) << before;
    EXPECT_FALSE(MarkWeekDone(business(), outside.prompter)) << "and asks nothing";
    EXPECT_FALSE(step > 0 && InvoiceWeek(business(), outside.prompter));
    EXPECT_EQ(Count("Invoices"), step == 0 ? 0 : 8);
  }
  EXPECT_EQ(mail.mailed.size(), 4U) << "those of the client with an address";
  EXPECT_EQ(Run(Sql("SELECT COUNT(*) AS N FROM (SELECT DISTINCT Invoice_ID FROM Diary "
                    "WHERE Invoice_ID IS NOT NULL) AS Billed"))
                .Field(size_t{0})
                .ToLong(),
            8)
      << "each invoice bills a job of its own";
}

TEST_F(FridayRunTest, ADeclinedStepChangesNothing) {
  outside.prompter.Expect("open jobs", Answer::No);
  EXPECT_FALSE(MarkWeekDone(business(), outside.prompter));
  outside.prompter.Expect("Make an invoice for each of 2 jobs", Answer::No);
  EXPECT_FALSE(InvoiceWeek(business(), outside.prompter));
  EXPECT_EQ(Count("Invoices"), 0);
  EXPECT_EQ(Now().week.open, 9);
}

TEST_F(FridayRunTest, InvoicesBillWhatIsDoneAndNothingElse) {
  outside.prompter.Expect("Make an invoice", Answer::Yes);
  ASSERT_TRUE(InvoiceWeek(business(), outside.prompter));
  EXPECT_EQ(Count("Invoices"), 2) << "not the open ones of the week, nor the one of the month";
  Run(Sql("UPDATE Diary SET Status = 'JD', Schedule_Date = {} WHERE Diary_ID = 1",
          business().Today().addDays(-400)));
  EXPECT_EQ(Now().waiting.days.from, business().Today().addDays(-400))
      << "what was left behind is not forgotten";
  outside.prompter.Expect("Make an invoice for each of 1 job that is done", Answer::Yes);
  EXPECT_TRUE(InvoiceWeek(business(), outside.prompter));
  EXPECT_EQ(Count("Invoices"), 3);
}

TEST_F(FridayRunTest, DocumentsAreThoseOfTheWeekThatNobodyHasMade) {
  Step(0);
  Step(1);
  const std::vector<Id<Invoice>> all = Now().toPrint;
  ASSERT_EQ(all.size(), 8U);
  documents::NotePrinted(business(), {all[0], all[3]});
  documents::NotePrinted(business(), {all[3]});
  EXPECT_EQ(Count("Printed_Invoices"), 2) << "once each, however often it is printed";
  EXPECT_EQ(Now().toPrint.size(), 6U);
  outside.clock.now.date = outside.clock.now.date.addDays(7);
  EXPECT_EQ(Now().toPrint.size(), 0U) << "the week is over";
}

TEST_F(FridayRunTest, WithoutMailNothingWaitsToBeSent) {
  Step(0);
  Step(1);
  Step(2);
  const FridayRun run = LoadFridayRun(business(), LoadAttention(business(), {}), nullptr);
  EXPECT_TRUE(run.toMail.empty());
  EXPECT_EQ(run.onPaper, 4);
}

}  // namespace
}  // namespace quillary::today
