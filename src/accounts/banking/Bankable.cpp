#include "accounts/banking/Bankable.h"

namespace quillary::accounts {
namespace {

/// A deposit that has gone holds nothing.
constexpr char kHeldByNoDeposit[] = "Bankings.Banking_ID IS NULL";

std::vector<BankablePayment> LoadPayments(Business& business, PaymentGroup kind, const Sql& which) {
  std::vector<BankablePayment> payments;
  for (const Record row : business.RunSQL(
           Sql("SELECT Payments.Banking_ID, Payments.Payment_ID, Payments.Payment_Date, "
               "Clients.Display_Name, Payments.Amount, Payments.Cheque_Number, Payments.Bank, "
               "Payments.Bank_Branch, Payments.Bank_Account_Name "
               "FROM (Payments LEFT JOIN Clients ON Payments.Client_ID = Clients.Client_ID) "
               "LEFT JOIN Bankings ON Payments.Banking_ID = Bankings.Banking_ID "
               "WHERE UCase(Payments.Payment_Method) IN ") +
           MethodsOf(kind) + Sql(" AND ") + which +
           Sql(" ORDER BY Payment_Date DESC, Clients.Display_Name, Payments.Payment_ID;")))
    payments.push_back({.payment = Id<Payment>(row[1].ToLong()),
                        .paymentDate = row[2].ToDate(),
                        .displayName = row[3].ToText(),
                        .amount = row[4].ToMoney(),
                        .chequeNumber = row[5].ToText(),
                        .bank = row[6].ToText(),
                        .bankBranch = row[7].ToText(),
                        .bankAccountName = row[8].ToText(),
                        .lostItsDeposit = !row[size_t{0}].IsNull()});
  return payments;
}

}  // namespace

std::vector<BankablePayment> LoadUndeposited(Business& business, PaymentGroup kind) {
  return LoadPayments(business, kind, Sql(kHeldByNoDeposit));
}

std::vector<BankablePayment> LoadDeposited(Business& business, PaymentGroup kind,
                                           Id<Banking> banking) {
  auto payments = LoadPayments(business, kind, Sql("Payments.Banking_ID = {}", banking));
  for (BankablePayment& payment : payments) payment.lostItsDeposit = false;
  return payments;
}

Money SumOf(const std::vector<BankablePayment>& payments) {
  Money sum;
  for (const BankablePayment& payment : payments) sum += payment.amount;
  return sum;
}

UndepositedPayments CountUndeposited(Business& business) {
  UndepositedPayments counted;
  for (const Record row : business.RunSQL(
           // The deposits that have gone are found first: there are far fewer of them than
           // payments.
           Sql("SELECT UCase(Payment_Method) AS Method, COUNT(*) AS Payments_Count, "
               "SUM(Amount) AS Total FROM Payments "
               "WHERE Banking_ID IS NULL OR Banking_ID IN (SELECT Held.Banking_ID "
               "FROM (SELECT DISTINCT Banking_ID FROM Payments) AS Held "
               "LEFT JOIN Bankings ON Held.Banking_ID = Bankings.Banking_ID WHERE ") +
           Sql(kHeldByNoDeposit) + Sql(") GROUP BY UCase(Payment_Method)"))) {
    const Stored<PaymentMethod> method(row[size_t{0}].ToText());
    for (size_t kind = 0; kind < kBankedKinds.size(); ++kind) {
      if (!method.IsIn(kBankedKinds[kind])) continue;
      counted[kind].count += static_cast<int>(row[1].ToLong());
      counted[kind].total += row[2].ToMoney();
    }
  }
  return counted;
}

PaymentsOnNoTab CountPaymentsOnNoTab(Business& business) {
  PaymentsOnNoTab none;
  Sql onATab("(");
  for (const PaymentGroup kind : kBankedKinds) {
    if (kind != kBankedKinds.front()) onATab = onATab + Sql(" OR ");
    onATab = onATab + Sql("UCase(Payments.Payment_Method) IN ") + MethodsOf(kind);
  }
  for (const Record row : business.RunSQL(
           Sql("SELECT UCase(Payments.Payment_Method) AS Method, COUNT(*) AS Payments_Count, "
               "SUM(Payments.Amount) AS Total "
               "FROM Payments LEFT JOIN Bankings ON Payments.Banking_ID = Bankings.Banking_ID "
               "WHERE ") +
           Sql(kHeldByNoDeposit) + Sql(" AND (Payments.Payment_Method IS NULL OR NOT ") + onATab +
           Sql(")) GROUP BY UCase(Payments.Payment_Method) "
               "ORDER BY UCase(Payments.Payment_Method);"))) {
    none.count += static_cast<int>(row[1].ToLong());
    none.total += row[2].ToMoney();
    none.methods += row[size_t{0}].ToText();
  }
  return none;
}

}  // namespace quillary::accounts
