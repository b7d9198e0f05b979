#include "accounts/LedgerAccounts.h"

#include <algorithm>

namespace quillary::accounts {
namespace {

bool IsNumberTaken(Business& business, LedgerAccountType type, std::optional<Id<Account>> except,
                   const QString& number) {
  return std::ranges::any_of(ListLedgerAccounts(business, type), [&](const LedgerAccount& account) {
    return account.account != except &&
           account.number.trimmed().compare(number, Qt::CaseInsensitive) == 0;
  });
}

std::optional<Refusal> CheckAccount(Business& business, LedgerAccountType type,
                                    std::optional<Id<Account>> account,
                                    const LedgerAccountForm& form) {
  const QString word = WordOf(type);
  if (form.name.trimmed().isEmpty()) {
    return Refusal{QStringLiteral("Please enter the name of the %1 Account.").arg(word),
                   QStringLiteral("name")};
  }
  const QString number = form.number.trimmed();
  if (!number.isEmpty() && IsNumberTaken(business, type, account, number)) {
    return Refusal{QStringLiteral("GL Account number already exists, please enter new value."),
                   QStringLiteral("number")};
  }
  return std::nullopt;
}

}  // namespace

QString WordOf(LedgerAccountType type) {
  return type == LedgerAccountType::Revenue ? QStringLiteral("Revenue") : QStringLiteral("Expense");
}

std::vector<LedgerAccount> ListLedgerAccounts(Business& business, LedgerAccountType type) {
  std::vector<LedgerAccount> accounts;
  for (const Record row :
       business.RunSQL(Sql("SELECT GL_Account_ID, GL_Account_Name, GL_Account_Number, "
                           "Budget_Amount FROM General_Ledger_Accounts "
                           "WHERE GL_Account_Type = {} ORDER BY GL_Account_Name;",
                           WordOf(type))))
    accounts.push_back({Id<Account>(row[u"GL_Account_ID"].ToLong()),
                        row[u"GL_Account_Name"].ToText(), row[u"GL_Account_Number"].ToText(),
                        row[u"Budget_Amount"].ToMoney()});
  return accounts;
}

std::optional<Refusal> InsertLedgerAccount(Business& business, LedgerAccountType type,
                                           const LedgerAccountForm& form) {
  if (auto refusal = CheckAccount(business, type, std::nullopt, form)) return refusal;
  business.Write(
      Sql("INSERT INTO General_Ledger_Accounts "
          "(GL_Account_Name, GL_Account_Number, GL_Account_Type) VALUES ({}, {}, {})",
          form.name, form.number, WordOf(type)));
  return std::nullopt;
}

std::optional<Refusal> UpdateLedgerAccount(Business& business, LedgerAccountType type,
                                           std::optional<Id<Account>> account,
                                           const LedgerAccountForm& form) {
  if (auto refusal = CheckAccount(business, type, account, form)) return refusal;
  if (!account) return Refusal{QStringLiteral("Please choose a record to update."), {}};
  business.Write(
      Sql("UPDATE General_Ledger_Accounts SET GL_Account_Name = {}, GL_Account_Number = {} "
          "WHERE GL_Account_ID = {}",
          form.name, form.number, account),
      Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> DeleteLedgerAccount(Business& business, std::optional<Id<Account>> account) {
  if (!account) return Refusal{QStringLiteral("Please choose a record to delete."), {}};
  business.Write(Sql("DELETE FROM General_Ledger_Accounts WHERE GL_Account_ID = {}", account),
                 Rows::Exactly(1));
  return std::nullopt;
}

}  // namespace quillary::accounts
