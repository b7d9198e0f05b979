#include "billing/LedgerLines.h"
#include "billing/PaymentsTest.h"

namespace quillary::billing {
namespace {

TEST_F(PaymentsTest, ALineNeedsAnAccountAndAnUpdateALine) {
  PaymentForm payment = Form(1, Whole(50));
  ASSERT_FALSE(SavePaymentDetails(business(), payment));
  const LedgerLineForm line{.glAccountId = 1_account, .amount = Whole(22), .gst = Whole(2)};
  EXPECT_EQ(SaveAccount(business(), *payment.paymentId, {}, SaveLedgerLine::AsNew)->message,
            "Please select a revenue account.");
  EXPECT_EQ(SaveAccount(business(), *payment.paymentId, line, SaveLedgerLine::Picked)->message,
            "Please select a record to update.");
  EXPECT_EQ(Count("General_Ledger_Entries"), 0);
  ASSERT_FALSE(SaveAccount(business(), *payment.paymentId, line, SaveLedgerLine::AsNew));
  EXPECT_EQ(Rows(Sql("SELECT Entry_Date FROM General_Ledger_Entries")), "-")
      << "a line is dated by the next save of its payment";
}

TEST_F(PaymentsTest, LinesNeedNotAddUpToThePayment) {
  PaymentForm payment = Form(1, Whole(50));
  ASSERT_FALSE(SavePaymentDetails(business(), payment));
  for (const int amount : {11, 22})
    ASSERT_FALSE(
        SaveAccount(business(), *payment.paymentId,
                    {.glAccountId = 1_account, .amount = Whole(amount), .gst = Whole(amount / 11)},
                    SaveLedgerLine::AsNew));
  Run(Sql("INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES (99, 5)"));
  LedgerLines lines = LoadAccounts(business(), *payment.paymentId);
  ASSERT_EQ(lines.rows.size(), 2U);
  EXPECT_EQ(lines.totalAmount, Whole(33));
  EXPECT_EQ(lines.totalGST, Whole(3));
  ASSERT_FALSE(SaveAccount(business(), *payment.paymentId,
                           {.glEntryId = lines.rows[1].glEntryId,
                            .glAccountId = 1_account,
                            .amount = Whole(200),
                            .gst = Whole(7)},
                           SaveLedgerLine::Picked));
  EXPECT_EQ(Rows(Sql("SELECT GL_Amount, GST_Included FROM General_Ledger_Entries")),
            "11 1,200 7,5 -");
  EXPECT_EQ(RemoveAccount(business(), std::nullopt)->message,
            "Please select an account to remove.");
  EXPECT_FALSE(RemoveAccount(business(), lines.rows[0].glEntryId));
  Run(Sql("DELETE FROM General_Ledger_Accounts"));
  lines = LoadAccounts(business(), *payment.paymentId);
  ASSERT_EQ(lines.rows.size(), 1U) << "a line outlives its account";
  EXPECT_EQ(lines.rows[0].amount, Whole(200));
}

}  // namespace
}  // namespace quillary::billing
