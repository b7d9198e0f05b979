#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The chart of accounts. There are two kinds of account and no double entry: an amount counts as
/// what its account is.
namespace quillary::accounts {

enum class LedgerAccountType { Revenue, Expense };
/// "Revenue" or "Expense", as stored and as the messages say it.
QString WordOf(LedgerAccountType type);

struct LedgerAccount {
  Id<Account> account;
  QString name;
  QString number;
  Money budgetAmount;  // a year's
};
std::vector<LedgerAccount> ListLedgerAccounts(Business& business,
                                              LedgerAccountType type);  // by name

struct LedgerAccountForm {
  QString name;
  QString number;  // may be blank
};

/// Each refuses a blank name, and a number that another account of the same type has; blanks
/// around a number do not count.
std::optional<Refusal> InsertLedgerAccount(Business& business, LedgerAccountType type,
                                           const LedgerAccountForm& form);
/// Refuses also when no record is chosen.
std::optional<Refusal> UpdateLedgerAccount(Business& business, LedgerAccountType type,
                                           std::optional<Id<Account>> account,
                                           const LedgerAccountForm& form);
/// Whether the account is in use or not: what points to it is reported without an account from
/// then on.
std::optional<Refusal> DeleteLedgerAccount(Business& business, std::optional<Id<Account>> account);

}  // namespace quillary::accounts
