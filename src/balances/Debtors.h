#pragma once

#include "base/Money.h"
#include "data/Business.h"

#include <QString>

#include <vector>

/// The lists of those who owe and those who have paid too much, as the balances stand in the file.
/// The screen recomputes all balances before it opens.
namespace quillary::balances {

struct DebtorRow {
  qint64 clientId = 0;
  QString displayName;
  QString status;
  QString phone1;
  Money amountOwing;  // the balance negated, so a creditor's is negative
  QString statementType;
};

/// Active takes in active clients, billing addresses and bad debtors.
enum class DebtorFilter { All, Active };

/// Bill-to parties with a negative balance, by display name.
std::vector<DebtorRow> ListDebtors(Business& business, DebtorFilter filter);
/// Bill-to parties with a positive balance, by display name.
std::vector<DebtorRow> ListCreditors(Business& business, DebtorFilter filter);

}  // namespace quillary::balances
