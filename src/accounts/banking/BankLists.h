#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The accounts that the business banks to, and the banks whose cheques clients pay with. Either
/// kind can be deleted while it is in use: deposits keep their number, payments the bank's name.
namespace quillary::accounts {

struct ListedBankAccount {
  Id<BankAccount> id;
  QString name;
  QString number;
};
std::vector<ListedBankAccount> ListBankAccounts(Business& business);  // by name

struct BankAccountForm {
  QString name;
  QString number;
};
/// Each refuses a blank name and a blank number.
std::optional<Refusal> InsertBankAccount(Business& business, const BankAccountForm& form);
/// Refuses also when no record is chosen.
std::optional<Refusal> UpdateBankAccount(Business& business, std::optional<Id<BankAccount>> account,
                                         const BankAccountForm& form);
std::optional<Refusal> DeleteBankAccount(Business& business,
                                         std::optional<Id<BankAccount>> account);

struct ListedBank {
  Id<Bank> id;
  QString name;
};
std::vector<ListedBank> ListBanks(Business& business);  // by name

/// Each refuses a blank name.
std::optional<Refusal> InsertBank(Business& business, const QString& name);
/// Refuses also when no record is chosen.
std::optional<Refusal> UpdateBank(Business& business, std::optional<Id<Bank>> bank,
                                  const QString& name);
std::optional<Refusal> DeleteBank(Business& business, std::optional<Id<Bank>> bank);

}  // namespace quillary::accounts
