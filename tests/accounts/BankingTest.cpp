#include "accounts/banking/BankLists.h"
#include "accounts/banking/CashCount.h"
#include "accounts/banking/Cheques.h"
#include "accounts/banking/Deposits.h"
#include "support/BusinessTest.h"
#include "support/Contents.h"

#include <numeric>

namespace quillary::accounts {
namespace {

constexpr auto kCash = PaymentGroup::BankedAsCash;
constexpr auto kCheque = PaymentGroup::BankedAsCheque;
constexpr auto kCard = PaymentGroup::BankedAsCard;

/// A business with the bank account 1 and a client 1 Abbott.
class BankingTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    ASSERT_FALSE(InsertBankAccount(business(), {"Business", "063"}));
    Run(Sql("INSERT INTO Clients (Display_Name, Status) VALUES ('Abbott', 'Active')"));
  }

  Id<Payment> Pay(const Value& method, int dollars, const Value& banking = {}) {
    Run(
        Sql("INSERT INTO Payments (Client_ID, Payment_Method, Amount, Payment_Date, Banking_ID) "
            "VALUES (1, {}, {}, #2026/10/30#, {})",
            method, dollars, banking));
    return Id<Payment>(business().FirstField(Sql("SELECT MAX(Payment_ID) FROM Payments")).ToLong());
  }
  static QString Numbers(const std::vector<BankablePayment>& payments) {
    QStringList numbers;
    for (const BankablePayment& payment : payments)
      numbers += QString::number(payment.payment.Number());
    return numbers.join(u' ');
  }
  /// All of a tab ticked, or none.
  BankedPayments All(PaymentGroup kind, bool ticked = true) {
    BankedPayments tab;
    for (const BankablePayment& payment : LoadUndeposited(business(), kind))
      (ticked ? tab.ticked : tab.unticked).push_back(payment.payment);
    return tab;
  }
  DepositForm Everything(int cash) {
    return {.bankAccount = Id<BankAccount>(1),
            .bankingDate = QDate(2026, 11, 2),
            .cashBanked = Money::FromWhole(cash),
            .cash = All(kCash),
            .cheques = All(kCheque),
            .others = All(kCard)};
  }
  /// The payments' deposits in the order of their making: "1 - 1".
  QString Marks() {
    QStringList marks;
    for (const Record row : Run(Sql("SELECT Banking_ID FROM Payments ORDER BY Payment_ID")))
      marks += row[size_t{0}].ToText("-");
    return marks.join(u' ');
  }
  QString DepositRows() {
    QStringList rows;
    for (const Record row :
         Run(Sql("SELECT Bank_Account_ID, Cash_Banked, Cash_Unbanked, Total_Banked "
                 "FROM Bankings ORDER BY Banking_ID"))) {
      QStringList fields;
      for (size_t at = 0; at < row.Size(); ++at) fields += row[at].ToText("-");
      rows += fields.join(u' ');
    }
    return rows.join(u',');
  }
};

TEST_F(BankingTest, EachMethodStandsOnItsTabAndDirectDebitOnNone) {
  struct Case {
    const char* method;
    std::optional<PaymentGroup> tab;
  };
  const Case cases[] = {{"CASH", kCash},      {"Cash", kCash},      {"cheque", kCheque},
                        {"VISA", kCard},      {"Master", kCard},    {"CREDIT", kCard},
                        {"eft", kCard},       {"Bank Card", kCard}, {"Direct debit", {}},
                        {"DIRECT DEBIT", {}}, {"ADJUSTMENT", {}},   {"CREDIT CARD", {}}};
  for (const Case& c : cases) {
    const QString payment = QString::number(Pay(c.method, 10).Number());
    for (const PaymentGroup tab : kBankedKinds)
      EXPECT_EQ(Numbers(LoadUndeposited(business(), tab)) == payment, c.tab == tab) << c.method;
    Run(Sql("DELETE FROM Payments"));
  }
  Pay("Direct debit", 5);
  Pay("DIRECT DEBIT", 6);
  Pay({}, 7);
  Pay("CASH", 100);
  Run(Sql("INSERT INTO Bankings (Banking_Date) VALUES (#2026/10/1#)"));
  Pay("DIRECT DEBIT", 50, 1);
  const PaymentsOnNoTab none = CountPaymentsOnNoTab(business());
  EXPECT_EQ(none.count, 3) << "those in a deposit are banked";
  EXPECT_EQ(none.total, Money::FromWhole(18));
  EXPECT_EQ(none.methods, (QStringList{"", "DIRECT DEBIT"}));
}

TEST_F(BankingTest, WhatIsRefusedBanksNothing) {
  Pay("CASH", 60);
  const Id<Payment> taken = Pay("CHEQUE", 40);
  const Contents before = ContentsOf(business());
  const auto refusal = [&](const auto& change) {
    DepositForm form = Everything(60);
    change(form);
    const DepositOutcome outcome = SaveDeposit(business(), outside.prompter, form);
    EXPECT_FALSE(outcome.banking);
    return outcome.refusal ? outcome.refusal->message : QString();
  };
  EXPECT_EQ(refusal([](DepositForm& f) { f.cashBanked = Money::FromWhole(-1); }),
            "Please re-enter the amount of cash banked.");
  EXPECT_EQ(refusal([](DepositForm& f) { f.bankAccount.reset(); }),
            "Please select which bank account you have banked to.");
  EXPECT_TRUE(refusal([](DepositForm& f) { f.banking = Id<Banking>(7); }).contains("no longer"));
  EXPECT_TRUE(refusal([](DepositForm& f) {
                f.others.ticked.push_back(Id<Payment>(99));
              }).startsWith("1 of the ticked payments would be banked twice"));
  outside.prompter.Expect(
      "The cash amount banked is not equal to the total payments received.\n"
      "Please note that all the ticked payment records will be marked as "
      "deposited.\n\nContinue?",
      Answer::No);
  EXPECT_EQ(refusal([](DepositForm& f) { f.cashBanked = Money::FromWhole(50); }), "");
  EXPECT_EQ(ContentsOf(business()), before);

  ASSERT_TRUE(SaveDeposit(business(), outside.prompter, Everything(60)).banking);
  const Contents banked = ContentsOf(business());
  EXPECT_TRUE(refusal([&](DepositForm& f) {
                f.cashBanked = {};
                f.cheques.ticked = {taken};
              }).contains("banked twice"));
  EXPECT_EQ(ContentsOf(business()), banked);
}

TEST_F(BankingTest, ADepositHoldsWhatIsTickedAndTheCashThatWasTyped) {
  Pay("CASH", 60);
  Pay("Cash", 30);
  Pay("CHEQUE", 40);
  Pay("VISA", 25);
  Pay("CHEQUE", 15, 77);  // of a deposit that has gone
  EXPECT_TRUE(LoadUndeposited(business(), kCheque)[1].lostItsDeposit);
  DepositForm form = Everything(80);
  form.cash = {.ticked = {1_payment}, .unticked = {2_payment}};
  form.cheques = {.ticked = {3_payment}, .unticked = {5_payment}};
  outside.prompter.Expect("The cash amount banked is not equal", Answer::Yes);
  ASSERT_EQ(SaveDeposit(business(), outside.prompter, form).banking, Id<Banking>(1));
  EXPECT_EQ(DepositRows(), "1 80 10 145");
  EXPECT_EQ(Marks(), "1 - 1 1 -");
  EXPECT_EQ(Numbers(LoadUndeposited(business(), kCash)), "2");
  EXPECT_EQ(Numbers(LoadDeposited(business(), kCheque, Id<Banking>(1))), "3");
  EXPECT_FALSE(LoadDeposited(business(), kCheque, Id<Banking>(1))[0].lostItsDeposit);

  // Loaded, unticked and stored again, to an account that is not written.
  DepositForm again{.banking = Id<Banking>(1),
                    .bankAccount = Id<BankAccount>(9),
                    .bankingDate = QDate(2026, 11, 3),
                    .cashBanked = Money::FromWhole(60),
                    .cash = {.ticked = {1_payment}},
                    .cheques = {.unticked = {3_payment}},
                    .others = {.ticked = {4_payment}}};
  EXPECT_EQ(SaveDeposit(business(), outside.prompter, again).banking, Id<Banking>(1));
  EXPECT_EQ(DepositRows(), "1 60 0 85");
  EXPECT_EQ(Marks(), "1 - - 1 -");
  EXPECT_EQ(ListDeposits(business())[0].bankingDate, QDate(2026, 11, 3));

  const Deposit deposit = *LoadDeposit(business(), Id<Banking>(1));
  EXPECT_EQ(DeleteDeposit(business(), outside.prompter, nullptr)->message,
            "Please select a record to delete.");
  outside.prompter.Expect("delete this banking dated 3 Nov 2026?", Answer::Yes);
  EXPECT_FALSE(DeleteDeposit(business(), outside.prompter, &deposit));
  EXPECT_EQ(Marks(), "- - - - -");
  EXPECT_THROW(RemoveDeposit(business(), Id<Banking>(1)), WriteFailed);
}

TEST_F(BankingTest, ADepositOfNothingIsStoredAndAnUntickedPaymentOfAnotherStaysThere) {
  Pay("CASH", 60);
  Pay("CHEQUE", 40);
  DepositForm first = Everything(60);
  first.cheques = {};
  const DepositForm second{.bankAccount = Id<BankAccount>(1),
                           .bankingDate = QDate(2026, 11, 2),
                           .cash = All(kCash, false),
                           .cheques = All(kCheque, false)};
  ASSERT_TRUE(SaveDeposit(business(), outside.prompter, first).banking);
  ASSERT_TRUE(SaveDeposit(business(), outside.prompter, second).banking)
      << "loaded before the first was made";
  EXPECT_EQ(DepositRows(), "1 60 0 60,1 0 0 0");
  EXPECT_EQ(Marks(), "1 -");
}

TEST_F(BankingTest, TheFiguresOfADepositAreThoseOfItsPayments) {
  std::vector<int> amounts(40);
  std::iota(amounts.begin(), amounts.end(), 3);
  int cash = 0;
  int others = 0;
  constexpr const char* kMethods[] = {"CASH", "cheque", "EFT", "DIRECT DEBIT"};
  for (size_t at = 0; at < amounts.size(); ++at) {
    Pay(kMethods[at % 4], amounts[at]);
    if (at % 4 == 0) cash += amounts[at];
    if (at % 4 == 1 || at % 4 == 2) others += amounts[at];
  }
  EXPECT_EQ(SumOf(LoadUndeposited(business(), kCash)), Money::FromWhole(cash));
  ASSERT_TRUE(SaveDeposit(business(), outside.prompter, Everything(cash)).banking);
  EXPECT_EQ(ListDeposits(business())[0].totalBanked, Money::FromWhole(cash + others));
  EXPECT_EQ(
      Run(Sql("SELECT COUNT(*) FROM Payments WHERE Banking_ID = 1")).Field(size_t{0}).ToLong(), 30);
}

TEST_F(BankingTest, ChequesAreClearedAllOrNone) {
  Run(Sql("INSERT INTO Suppliers (Supplier_Name) VALUES ('Pump')"));
  for (const auto& [method, supplier, cleared] :
       {std::tuple("CHEQUE", 1, 0), std::tuple("Cheque", 1, 0), std::tuple("CHEQUE", 9, 0),
        std::tuple("CHEQUE", 1, 1), std::tuple("CASH", 1, 0)})
    Run(
        Sql("INSERT INTO Purchases (Payment_Method, Supplier_ID, Cheque_Reconciled, Amount, "
            "Purchase_Date) VALUES ({}, {}, {}, 10, #2026/10/1#)",
            method, supplier, cleared));
  std::vector<Id<Purchase>> cheques;
  for (const UnpresentedCheque& cheque : ListUnpresentedCheques(business()))
    cheques.push_back(cheque.purchase);
  EXPECT_EQ(cheques, (std::vector{Id<Purchase>(1), Id<Purchase>(2)}));
  EXPECT_THROW(ClearCheques(business(), {cheques[0], Id<Purchase>(50)}), WriteFailed);
  EXPECT_EQ(ListUnpresentedCheques(business()).size(), 2U) << "none was cleared";
  ClearCheques(business(), {cheques[1]});
  EXPECT_EQ(ListUnpresentedCheques(business()).size(), 1U);
  EXPECT_TRUE(MayLeaveTicked(outside.prompter, 0));
  outside.prompter.Expect("You've ticked one or more cheques!", Answer::No);
  EXPECT_FALSE(MayLeaveTicked(outside.prompter, 1));
}

TEST_F(BankingTest, BankListsRefuseBlanksAndMissingChoices) {
  const std::pair<std::optional<Refusal>, const char*> cases[] = {
      {InsertBankAccount(business(), {" ", "1"}), "Please enter the account name."},
      {InsertBankAccount(business(), {"A", ""}), "Please enter the account number."},
      {UpdateBankAccount(business(), {}, {"A", "1"}), "Please choose a record to update."},
      {DeleteBankAccount(business(), {}), "Please choose a record to delete."},
      {InsertBank(business(), " "), "Please enter the name of the bank."},
      {UpdateBank(business(), {}, "A"), "Please choose a record to update."},
      {DeleteBank(business(), {}), "Please choose a record to delete."},
  };
  for (const auto& [refusal, message] : cases) {
    ASSERT_TRUE(refusal) << message;
    EXPECT_EQ(refusal->message, message);
  }
  const size_t banks = ListBanks(business()).size();
  ASSERT_FALSE(InsertBank(business(), " Aardvark Bank "));
  ASSERT_EQ(ListBanks(business()).size(), banks + 1);
  const Id<Bank> bank = ListBanks(business())[0].id;
  ASSERT_FALSE(UpdateBank(business(), bank, "Aardvark"));
  EXPECT_EQ(ListBanks(business())[0].name, "Aardvark");
  ASSERT_FALSE(DeleteBank(business(), bank));
  ASSERT_FALSE(UpdateBankAccount(business(), Id<BankAccount>(1), {"Savings", "9"}));
  EXPECT_EQ(ListBankAccounts(business())[0].number, "9");
  ASSERT_FALSE(DeleteBankAccount(business(), Id<BankAccount>(1)));
}

TEST(CashCountTest, NotesAndCoinsAddUp) {
  std::vector<int> counts(Denominations().size());
  Money byHand;
  for (size_t at = 0; at < counts.size(); ++at) {
    counts[at] = static_cast<int>(at) + 1;
    byHand += Denominations()[at].worth * counts[at];
  }
  EXPECT_EQ(WorthOf(counts), byHand);
  EXPECT_EQ(WorthOf({1, 0, 2}), Money::FromWhole(140));
}

}  // namespace
}  // namespace quillary::accounts
