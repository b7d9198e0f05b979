#include "accounts/banking/BankLists.h"

namespace quillary::accounts {
namespace {

std::optional<Refusal> CheckBankAccount(const BankAccountForm& form) {
  if (form.name.trimmed().isEmpty())
    return Refusal{QStringLiteral("Please enter the account name."), QStringLiteral("name")};
  if (form.number.trimmed().isEmpty())
    return Refusal{QStringLiteral("Please enter the account number."), QStringLiteral("number")};
  return std::nullopt;
}

std::optional<Refusal> CheckBank(const QString& name) {
  if (!name.trimmed().isEmpty()) return std::nullopt;
  return Refusal{QStringLiteral("Please enter the name of the bank."), QStringLiteral("name")};
}

Refusal NothingToUpdate() {
  return {QStringLiteral("Please choose a record to update."), {}};
}

Refusal NothingToDelete() {
  return {QStringLiteral("Please choose a record to delete."), {}};
}

}  // namespace

std::vector<ListedBankAccount> ListBankAccounts(Business& business) {
  std::vector<ListedBankAccount> accounts;
  for (const Record row : business.RunSQL(
           Sql("SELECT * FROM Bank_Accounts ORDER BY Bank_Account_Name, Bank_Account_ID;")))
    accounts.push_back({Id<BankAccount>(row[u"Bank_Account_ID"].ToLong()),
                        row[u"Bank_Account_Name"].ToText(), row[u"Bank_Account_Number"].ToText()});
  return accounts;
}

std::optional<Refusal> InsertBankAccount(Business& business, const BankAccountForm& form) {
  if (auto refusal = CheckBankAccount(form)) return refusal;
  business.Write(
      Sql("INSERT INTO Bank_Accounts (Bank_Account_Name, Bank_Account_Number) VALUES ( {}, {})",
          form.name.trimmed(), form.number.trimmed()),
      Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> UpdateBankAccount(Business& business, std::optional<Id<BankAccount>> account,
                                         const BankAccountForm& form) {
  if (auto refusal = CheckBankAccount(form)) return refusal;
  if (!account) return NothingToUpdate();
  business.Write(Sql("UPDATE Bank_Accounts SET Bank_Account_Name = {}, Bank_Account_Number = {} "
                     "WHERE Bank_Account_ID = {}",
                     form.name.trimmed(), form.number.trimmed(), account),
                 Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> DeleteBankAccount(Business& business,
                                         std::optional<Id<BankAccount>> account) {
  if (!account) return NothingToDelete();
  business.Write(Sql("DELETE FROM Bank_Accounts WHERE Bank_Account_ID = {}", account),
                 Rows::Exactly(1));
  return std::nullopt;
}

std::vector<ListedBank> ListBanks(Business& business) {
  std::vector<ListedBank> banks;
  for (const Record row : business.RunSQL(Sql("SELECT * FROM lstBanks ORDER BY Bank, Bank_ID;")))
    banks.push_back({Id<Bank>(row[u"Bank_ID"].ToLong()), row[u"Bank"].ToText()});
  return banks;
}

std::optional<Refusal> InsertBank(Business& business, const QString& name) {
  if (auto refusal = CheckBank(name)) return refusal;
  business.Write(Sql("INSERT INTO lstBanks (Bank) VALUES ( {})", name.trimmed()), Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> UpdateBank(Business& business, std::optional<Id<Bank>> bank,
                                  const QString& name) {
  if (auto refusal = CheckBank(name)) return refusal;
  if (!bank) return NothingToUpdate();
  business.Write(Sql("UPDATE lstBanks SET Bank = {} WHERE Bank_ID = {}", name.trimmed(), bank),
                 Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> DeleteBank(Business& business, std::optional<Id<Bank>> bank) {
  if (!bank) return NothingToDelete();
  business.Write(Sql("DELETE FROM lstBanks WHERE Bank_ID = {}", bank), Rows::Exactly(1));
  return std::nullopt;
}

}  // namespace quillary::accounts
