#include "billing/PaymentsTest.h"
#include "billing/payments/PaymentsList.h"
#include "lists/PaymentMethods.h"

namespace quillary::billing {
namespace {

TEST_F(PaymentsTest, TheListSetsPaymentsAgainstTheirJobs) {
  const auto pay = [&](qint64 clientId, double amount, const char* day) {
    PaymentForm form = Form(clientId, Money::FromDouble(amount));
    form.paymentDate = Day(day);
    return Store(form);
  };
  pay(1, 5, "2026-09-30");
  const Id<Payment> exact = pay(1, 42.5, "2026-10-31");
  const Id<Payment> mismatch = pay(1, 30.01, "2026-10-01");
  const Id<Payment> loose = pay(3, 20, "2026-10-05");
  pay(3, 7, "2026-11-01");
  Run(Sql("UPDATE Payments SET Payment_Date = {} WHERE Payment_ID = {}",
          DateTime(Day("2026-10-31"), QTime(17, 30)), exact));
  const Id<Entry> job = AddPricedJob(2, "JD", Whole(30));
  Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price) VALUES ({}, 2, 6.25)", job));
  Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price) VALUES ({}, 1, 6.25)", job));
  Run(Sql("UPDATE Diary SET Payment_ID = {} WHERE Diary_ID = {}", exact, job));
  Run(Sql("UPDATE Diary SET Payment_ID = {} WHERE Diary_ID = {}", mismatch,
          AddPricedJob(1, "JD", Whole(30))));

  const PaymentsList list = LoadPaymentsList(business(), {Day("2026-10-01"), Day("2026-10-31")});
  QStringList rows;
  for (const PaymentRow& row : list.rows)
    rows += QStringLiteral("%1 %2 [%3] %4%5")
                .arg(row.displayName, row.amount.ToText(), row.accounts, row.glAmount.ToText(),
                     row.IsMismatch() ? "!" : "");
  EXPECT_EQ(rows.join('|'), "Brown 20 [] 0!|Smith 42.5 [Lawns] 42.5|Smith 30.01 [Lawns] 30!");
  EXPECT_EQ(list.rows[0].paymentId, loose);
  EXPECT_EQ(list.TotalCount(), 3);
  EXPECT_EQ(list.totalAmount.ToText(), "92.51");
  EXPECT_EQ(list.totalBeingPaidFor.ToText(), "72.5");
  EXPECT_EQ(list.totalWithoutAccount.ToText(), "20");
  Run(Sql("UPDATE Payments SET Amount = 30.0049 WHERE Payment_ID = {}", mismatch));
  EXPECT_FALSE(
      LoadPaymentsList(business(), {Day("2026-10-01"), Day("2026-10-02")}).rows[0].IsMismatch())
      << "parts of a cent are no difference";
}

TEST_F(PaymentsTest, ADeletedPaymentLeavesItsJobsUnpaid) {
  const Id<Entry> job = AddPricedJob(2, "JI", Whole(30));
  const Id<Payment> payment = Store(NewPayment(business(), 1_client, Whole(30)));
  TickJob(business(), payment, job, true);
  Run(Sql("INSERT INTO Bankings (Total_Banked) VALUES (30)"));
  Run(Sql("UPDATE Payments SET Banking_ID = 1"));
  for (const qint64 of : {payment.Number(), payment.Number() + 1})
    Run(Sql("INSERT INTO General_Ledger_Entries (Payment_ID) VALUES ({})", of));
  PaymentsList list = LoadPaymentsByAClient(business(), 1_client);
  ASSERT_EQ(list.TotalCount(), 1);

  EXPECT_EQ(DeletePayment(business(), outside.prompter, nullptr)->message,
            "Please select a payment to delete.");
  outside.prompter.Expect("Are you sure you want to delete this payment made by Smith?",
                          Answer::No);
  EXPECT_FALSE(DeletePayment(business(), outside.prompter, &list.rows[0]));
  EXPECT_EQ(Count("Payments"), 1);
  outside.prompter.Expect("Are you sure you want to delete this payment made by Smith?",
                          Answer::Yes);
  EXPECT_FALSE(DeletePayment(business(), outside.prompter, &list.rows[0]));
  EXPECT_EQ(Count("Payments"), 0);
  EXPECT_EQ(Count("General_Ledger_Entries"), 1) << "the lines of other payments stay";
  EXPECT_EQ(Link(job), "JI -") << "the job keeps its status";
  EXPECT_EQ(Balance(1), Whole(-30));
  EXPECT_EQ(Rows(Sql("SELECT Total_Banked FROM Bankings")), "30") << "a deposit keeps its totals";
}

TEST_F(PaymentsTest, MethodsAreFreeWordsInUpperCase) {
  Run(Sql("DELETE FROM lstPayment_Methods"));
  EXPECT_EQ(lists::InsertPaymentMethod(business(), "  ")->message,
            "Please enter a value for the Payment Method.");
  EXPECT_FALSE(lists::InsertPaymentMethod(business(), "direct debit"));
  EXPECT_FALSE(lists::InsertPaymentMethod(business(), "Cash"));
  EXPECT_EQ(Rows(Sql("SELECT Payment_Method, Sequence FROM lstPayment_Methods")),
            "DIRECT DEBIT 1,CASH 2");
  Store(Form(1, Whole(5), "CASH"));
  const auto cash = lists::ListPaymentMethods(business())[1].id;
  EXPECT_EQ(lists::UpdatePaymentMethod(business(), cash, "")->field, "word");
  EXPECT_EQ(lists::UpdatePaymentMethod(business(), std::nullopt, "x")->message,
            "Please choose a record to update.");
  EXPECT_FALSE(lists::UpdatePaymentMethod(business(), cash, "notes"));
  EXPECT_EQ(lists::ListPaymentMethods(business())[1].word, "NOTES");
  EXPECT_EQ(Rows(Sql("SELECT Payment_Method FROM Payments")), "CASH") << "what was paid stays";
  EXPECT_EQ(lists::DeletePaymentMethod(business(), std::nullopt)->message,
            "Please choose a record to delete.");
  EXPECT_FALSE(lists::DeletePaymentMethod(business(), cash));
  EXPECT_EQ(Count("lstPayment_Methods"), 1);
}

}  // namespace
}  // namespace quillary::billing
