#include "accounts/banking/Deposits.h"

#include "base/DateTime.h"
#include "base/Text.h"

#include <QHash>
#include <QSet>

namespace quillary::accounts {
namespace {

constexpr char kDifferentFromReceived[] =
    "The cash amount banked is not equal to the total payments received.\n"
    "Please note that all the ticked payment records will be marked as deposited.\n\n"
    "Continue?";

Deposit DepositFrom(const Record& row) {
  return {.banking = Id<Banking>(row[u"Banking_ID"].ToLong()),
          .bankAccount = row[u"Bank_Account_ID"].ToId<BankAccount>(),
          .bankingDate = row[u"Banking_Date"].ToDate(),
          .cashBanked = row[u"Cash_Banked"].ToMoney(),
          .cashUnbanked = row[u"Cash_Unbanked"].ToMoney(),
          .totalBanked = row[u"Total_Banked"].ToMoney()};
}

/// What the file says of the payments that the deposit may hold: those that none holds, and its
/// own.
class Bankables {
 public:
  Bankables(Business& business, std::optional<Id<Banking>> banking) {
    for (const Record row : business.RunSQL(
             Sql("SELECT Payments.Payment_ID, Payments.Amount, Payments.Banking_ID "
                 "FROM Payments LEFT JOIN Bankings ON Payments.Banking_ID = Bankings.Banking_ID "
                 "WHERE Bankings.Banking_ID IS NULL OR Payments.Banking_ID = {};",
                 banking))) {
      const Id<Payment> payment(row[size_t{0}].ToLong());
      amounts_[payment] = row[1].ToMoney();
      if (!row[2].IsNull()) marked_.insert(payment);
    }
  }

  bool Has(Id<Payment> payment) const { return amounts_.contains(payment); }
  /// Whether it carries the number of this deposit, or of one that has gone.
  bool IsMarked(Id<Payment> payment) const { return marked_.contains(payment); }
  Money SumOf(const std::vector<Id<Payment>>& payments) const {
    Money sum;
    for (const Id<Payment> payment : payments) sum += amounts_.value(payment);
    return sum;
  }

 private:
  QHash<Id<Payment>, Money> amounts_;
  QSet<Id<Payment>> marked_;
};

std::optional<Refusal> CheckDeposit(const DepositForm& form) {
  if (form.cashBanked < Money()) {
    return Refusal{QStringLiteral("Please re-enter the amount of cash banked."),
                   QStringLiteral("cashBanked")};
  }
  if (!form.bankAccount) {
    return Refusal{QStringLiteral("Please select which bank account you have banked to."),
                   QStringLiteral("bankAccount")};
  }
  return std::nullopt;
}

std::optional<Refusal> CheckAgainstFile(Business& business, const DepositForm& form,
                                        const Bankables& bankables) {
  if (form.banking && !LoadDeposit(business, *form.banking))
    return Refusal{QStringLiteral("This deposit is no longer there. Nothing was banked."), {}};
  size_t lost = 0;
  for (const BankedPayments* tab : {&form.cash, &form.cheques, &form.others})
    for (const Id<Payment> payment : tab->ticked) lost += bankables.Has(payment) ? 0U : 1U;
  if (lost == 0) return std::nullopt;
  return Refusal{QStringLiteral("%1 of the ticked payments would be banked twice or is no longer "
                                "there. Nothing was banked; please load the current payments.")
                     .arg(lost),
                 {}};
}

Id<Banking> WriteDeposit(Business& business, const DepositForm& form, Money unbanked, Money total) {
  if (!form.banking) {
    return business.InsertReturningKey<Banking>(
        Sql("INSERT INTO Bankings (Bank_Account_ID, Banking_Date, Cash_Banked, Cash_UnBanked, "
            "Total_Banked ) VALUES ({}, {}, {}, {}, {})",
            form.bankAccount, form.bankingDate, form.cashBanked, unbanked, total));
  }
  business.Write(Sql("UPDATE Bankings SET Banking_Date = {}, Cash_Banked = {}, Cash_UnBanked = {}, "
                     "Total_Banked = {} WHERE Banking_ID = {}",
                     form.bankingDate, form.cashBanked, unbanked, total, form.banking),
                 Rows::Exactly(1));
  return *form.banking;
}

void MarkPayments(Business& business, const BankedPayments& payments, Id<Banking> banking,
                  const Bankables& bankables) {
  for (const Id<Payment> payment : payments.ticked)
    business.Write(
        Sql("UPDATE Payments SET Banking_ID = {} WHERE Payment_ID = {}", banking, payment),
        Rows::Exactly(1));
  // One that another deposit has taken meanwhile is that deposit's.
  for (const Id<Payment> payment : payments.unticked) {
    if (!bankables.IsMarked(payment)) continue;
    business.Write(Sql("UPDATE Payments SET Banking_ID = NULL WHERE Payment_ID = {}", payment),
                   Rows::Exactly(1));
  }
}

std::optional<Refusal> CheckChosen(const Deposit* deposit, const char* what) {
  if (deposit) return std::nullopt;
  return Refusal{QStringLiteral("Please select a record to %1.").arg(QLatin1StringView(what)), {}};
}

}  // namespace

std::vector<Deposit> ListDeposits(Business& business) {
  std::vector<Deposit> deposits;
  for (const Record row : business.RunSQL(
           Sql("SELECT Banking_ID, Bank_Account_ID, Banking_Date, Cash_Banked, Total_Banked, "
               "Cash_Unbanked FROM Bankings ORDER BY Banking_Date DESC, Banking_ID DESC; ")))
    deposits.push_back(DepositFrom(row));
  return deposits;
}

std::optional<Deposit> LoadDeposit(Business& business, Id<Banking> banking) {
  const Recordset row =
      business.RunSQL(Sql("SELECT * FROM Bankings WHERE Banking_ID = {}", banking));
  if (row.EndOfFile()) return std::nullopt;
  return DepositFrom(row.Row(0));
}

DepositOutcome SaveDeposit(Business& business, Prompter& prompter, const DepositForm& form) {
  if (auto refusal = CheckDeposit(form)) return {.refusal = std::move(refusal)};
  const Bankables bankables(business, form.banking);
  if (auto refusal = CheckAgainstFile(business, form, bankables))
    return {.refusal = std::move(refusal)};
  const Money received = bankables.SumOf(form.cash.ticked) + bankables.SumOf(form.cash.unticked);
  const bool differs = form.cashBanked.Rounded(2) != received.Rounded(2);
  if (differs && prompter.Ask(QString::fromLatin1(kDifferentFromReceived)) != Answer::Yes)
    return {};
  const Money total =
      form.cashBanked + bankables.SumOf(form.others.ticked) + bankables.SumOf(form.cheques.ticked);
  Transaction save(business);
  const Id<Banking> banking = WriteDeposit(business, form, received - form.cashBanked, total);
  for (const BankedPayments* tab : {&form.cash, &form.cheques, &form.others})
    MarkPayments(business, *tab, banking, bankables);
  save.Commit();
  return {.banking = banking};
}

std::optional<Refusal> DeleteDeposit(Business& business, Prompter& prompter,
                                     const Deposit* deposit) {
  if (auto refusal = CheckChosen(deposit, "delete")) return refusal;
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you sure you want to delete this banking dated %1?")
          .arg(ToShortDateText(deposit->bankingDate)));
  if (answer == Answer::Yes) RemoveDeposit(business, deposit->banking);
  return std::nullopt;
}

void RemoveDeposit(Business& business, Id<Banking> banking) {
  Transaction removal(business);
  business.Write(Sql("UPDATE Payments SET Banking_ID = NULL WHERE Banking_ID = {}", banking));
  business.Write(Sql("DELETE FROM Bankings WHERE Banking_ID = {}", banking), Rows::Exactly(1));
  removal.Commit();
}

std::optional<Refusal> CheckDepositToLoad(const Deposit* deposit) {
  return CheckChosen(deposit, "load");
}

std::optional<Refusal> CheckDepositToPrint(const Deposit* deposit) {
  return CheckChosen(deposit, "print");
}

}  // namespace quillary::accounts
