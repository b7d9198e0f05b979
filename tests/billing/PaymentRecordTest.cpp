#include "billing/PaymentsTest.h"
#include "billing/payments/PaymentRecord.h"

namespace quillary::billing {
namespace {

TEST_F(PaymentsTest, EveryFieldSurvivesSaveAndLoad) {
  PaymentForm form = Form(1, Money::FromUnits(1'234'500), "CHEQUE");
  form.gst = Money::FromUnits(70'000);  // typed over
  form.paymentDate = Day("2026-09-30");
  form.chequeNumber = "000'17";
  form.bank = "O'Bank";
  form.bankBranch = "Kew";
  form.bankAccountName = "Smith & Co";
  form.description = "For \"both\" lawns";
  ASSERT_FALSE(SavePaymentDetails(business(), form));
  const auto loaded = LoadPayment(business(), *form.paymentId);
  ASSERT_TRUE(loaded);
  EXPECT_EQ(loaded->gst, form.gst) << "a typed tax is stored as typed";
  EXPECT_EQ(loaded->paymentDate, form.paymentDate);
  EXPECT_EQ(
      loaded->chequeNumber + loaded->bank + loaded->bankBranch + loaded->bankAccountName +
          loaded->description,
      form.chequeNumber + form.bank + form.bankBranch + form.bankAccountName + form.description);
  EXPECT_EQ(LoadPayment(business(), 99_payment), std::nullopt);

  form.taxExempt = true;
  form.gst = TaxWithin(business(), form.amount, true);
  form.bank.clear();
  ASSERT_FALSE(SavePaymentDetails(business(), form));
  EXPECT_EQ(Rows(Sql("SELECT Tax_Exempt, GST_Included, Bank FROM Payments")), "True 0 -");

  Run(Sql("UPDATE Payments SET Payment_Method = NULL"));
  EXPECT_EQ(LoadPayment(business(), *form.paymentId)->paymentMethod, "CASH");
  Run(Sql("UPDATE Payments SET Payment_Method = 'barter'"));
  EXPECT_EQ(LoadPayment(business(), *form.paymentId)->paymentMethod, "BARTER");
}

TEST_F(PaymentsTest, APaymentThatIsNotCompleteIsNotSaved) {
  struct Case {
    const char* fault;
    std::optional<Id<Client>> clientId;
    int amount;
    const char* method;
    const char* message;
    const char* field;
  };
  const Case cases[] = {
      {"nobody's", std::nullopt, 10, "Cash", "Please select a client.", "client"},
      {"the client comes first", std::nullopt, 0, "", "Please select a client.", "client"},
      {"nothing received", 1_client, 0, "Cash", "Please enter the payment amount.", "amount"},
      {"paid out", 1_client, -5, "EFT", "Please enter the payment amount.", "amount"},
      {"the amount comes before the method", 1_client, 0, "", "Please enter the payment amount.",
       "amount"},
      {"an adjustment in other letters", 1_client, -5, "Adjustment",
       "Please enter the payment amount.", "amount"},
      {"no adjustment but like one", 1_client, 0, "Adjustment 2",
       "Please enter the payment amount.", "amount"},
      {"no method", 1_client, 10, "", "Please select the payment method.", "paymentMethod"},
  };
  for (const Case& c : cases) {
    PaymentForm form = Form(1, Whole(c.amount), c.method);
    form.clientId = c.clientId;
    const auto refusal = SavePaymentDetails(business(), form);
    ASSERT_TRUE(refusal) << c.fault;
    EXPECT_EQ(refusal->message, c.message) << c.fault;
    EXPECT_EQ(refusal->field, c.field) << c.fault;
    EXPECT_TRUE(form.IsNew()) << c.fault;
  }
  EXPECT_EQ(Count("Payments"), 0);
  for (const char* method : {"ADJUSTMENT", "CREDIT V"})
    for (const int amount : {0, -50, 50}) Store(Form(1, Whole(amount), method));
  EXPECT_EQ(Rows(Sql("SELECT SUM(Amount), SUM(GST_Included), COUNT(*) FROM Payments")), "0 0 6");
  EXPECT_EQ(Rows(Sql("SELECT MIN(GST_Included) FROM Payments")), "-4.55");
}

TEST_F(PaymentsTest, TaxFollowsAmountRateAndExemption) {
  struct Case {
    float rate;
    double amount;
    bool exempt;
    double tax;
  };
  const Case cases[] = {{0.1F, 110, false, 10},       {0.1F, 1, false, 0.09},
                        {0.125F, 112.5, false, 12.5}, {0.1F, -110, false, -10},
                        {0.1F, 110, true, 0},         {0, 110, false, 0},
                        {0.1F, 0, false, 0}};
  for (const Case& c : cases) {
    business().values.gstPercentage = c.rate;
    EXPECT_EQ(TaxWithin(business(), Money::FromDouble(c.amount), c.exempt),
              Money::FromDouble(c.tax))
        << c.amount << " at " << c.rate;
  }
}

TEST_F(PaymentsTest, ANewPaymentIsThePayersInItsHabits) {
  const PaymentForm first = NewPayment(business(), 2_client, Whole(110));
  EXPECT_EQ(first.clientId, 1_client) << "money for a site is the payer's";
  EXPECT_EQ(first.gst, Whole(10));
  EXPECT_EQ(first.paymentMethod, "CASH");
  EXPECT_EQ(first.paymentDate, business().Today());

  PaymentForm cheque = Form(1, Whole(20), "CHEQUE");
  cheque.paymentDate = Day("2026-08-01");
  cheque.bank = "Westbank";
  cheque.bankBranch = "Kew";
  cheque.bankAccountName = "A Smith";
  cheque.chequeNumber = "17";
  Store(cheque);
  PaymentForm older = Form(1, Whole(20), "EFT");
  older.paymentDate = Day("2026-07-01");
  Store(older);
  Store(Form(1, Money(), "ADJUSTMENT"));  // the newest, but of nothing
  const PaymentHabits habits = HabitsOf(business(), 1_client);
  EXPECT_EQ(habits, (PaymentHabits{"CHEQUE", "Westbank", "Kew", "A Smith"}));
  EXPECT_EQ(HabitsOf(business(), 3_client), PaymentHabits{});
  EXPECT_EQ(NewPayment(business(), 2_client, {}).bankBranch, "Kew");
  EXPECT_EQ(NewPayment(business(), 2_client, {}).chequeNumber, "")
      << "every cheque has its own number";

  Run(Sql("UPDATE Clients SET Status = 'Deleted' WHERE Client_ID = 1"));
  EXPECT_EQ(NewPayment(business(), 2_client, {}).clientId, std::nullopt);
}

TEST_F(PaymentsTest, FormerClientsCanStillPay) {
  const std::pair<const char*, bool> cases[] = {
      {"Billing address", true}, {"Active", true},      {"Bad debtor", true},  {"Cancelled", true},
      {"Transferred", true},     {"Quote only", false}, {"Do not call", false}};
  for (const auto& [status, listed] : cases) {
    Run(Sql("UPDATE Clients SET Status = {} WHERE Client_ID = 1", status));
    EXPECT_EQ(ListPayerChoices(business()).size(), listed ? 2U : 1U) << status;
  }
  EXPECT_EQ(ListedPaymentMethod(business(), " cash"), "Cash") << "as the list spells it";
  EXPECT_EQ(ListedPaymentMethod(business(), "barter"), "");
}

TEST_F(PaymentsTest, APaymentForAJobTakesItBackToDone) {
  const Id<Entry> job = AddPricedJob(2, "JI", Whole(55));
  const Id<Entry> other = AddPricedJob(2, "JI", Whole(44));
  Run(Sql("UPDATE Diary SET Invoice_ID = Diary_ID + 6"));
  for (const int invoice : {7, 8, 9})
    Run(Sql("INSERT INTO Invoices (Invoice_ID, IsPaid) VALUES ({}, 0)", invoice));
  PaymentForm form = NewPayment(business(), 2_client, Whole(55), job);
  form.markInvoicesAsPaid = true;
  const Id<Payment> payment = Store(form);
  EXPECT_EQ(Link(job), QStringLiteral("JD %1").arg(payment.Number()));
  EXPECT_EQ(Link(other), "JI -");
  EXPECT_EQ(Rows(Sql("SELECT Invoice_ID FROM Invoices WHERE IsPaid = True")),
            QString::number(job.Number() + 6));
  EXPECT_EQ(Balance(1), Whole(-44)) << "jobs of the site, payments of the payer";
}

TEST_F(PaymentsTest, BalanceAndLedgerFollowASave) {
  const Id<Payment> payment = Store(1, Whole(30));
  Run(Sql("INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES ({}, 5)", payment));
  Run(Sql("INSERT INTO General_Ledger_Entries (Payment_ID, GL_Amount) VALUES (99, 5)"));
  EXPECT_EQ(Balance(1), Whole(30));
  PaymentForm form = *LoadPayment(business(), payment);
  form.clientId = 3_client;
  form.description = "Deposit";
  form.paymentDate = Day("2026-10-05");
  Store(form);
  EXPECT_EQ(Balance(1), Money()) << "money moved to another client is no longer this one's";
  EXPECT_EQ(Balance(3), Whole(30));
  EXPECT_EQ(Rows(Sql("SELECT GL_Entry_Description, Entry_Date FROM General_Ledger_Entries")),
            "Deposit 2026-10-05,- -");
}

}  // namespace
}  // namespace quillary::billing
