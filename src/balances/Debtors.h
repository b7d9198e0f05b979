#pragma once

#include "balances/DebtAges.h"
#include "base/Money.h"
#include "data/Business.h"
#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"

#include <QString>

#include <vector>

/// The lists of those who owe and those who have paid too much, as the balances stand in the file.
/// The screen recomputes all balances before it opens.
namespace quillary::balances {

struct DebtorRow {
  Id<Client> client;
  QString displayName;
  StoredClientStatus status;
  QString phone1;
  Money amountOwing;  // the balance negated, so a creditor's is negative
  StoredStatementType statementType;
  QDate since = {};  // when the debt began; invalid for a creditor
};

/// Active takes in active clients, billing addresses and bad debtors.
enum class DebtorFilter { All, Active };

/// Bill-to parties with a negative balance, by display name.
std::vector<DebtorRow> ListDebtors(Business& business, DebtorFilter filter);
/// Those of them who owe something of that age, by display name; `amountOwing` is that part.
std::vector<DebtorRow> ListDebtors(Business& business, DebtorFilter filter, DebtAge age);
/// Bill-to parties with a positive balance, by display name.
std::vector<DebtorRow> ListCreditors(Business& business, DebtorFilter filter);

}  // namespace quillary::balances
