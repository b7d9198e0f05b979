#pragma once

#include "base/Money.h"
#include "base/Value.h"
#include "domain/ClientStatus.h"

#include <QDate>

/// The parts of the arithmetic that one client and all clients share.
namespace quillary::balances {

enum class BalanceKind { PaysForItself, BillingAddress, BilledToAnother };
BalanceKind BalanceKindOf(Id<Client> client, Id<Client> payer, const StoredClientStatus& status);

/// Payments less jobs, each rounded to cents first, so that equal sums leave nothing over.
Money RoundedBalance(Money paid, Money jobs);

/// What becomes of Clients.Debtor_Since. Only a debt that has a date already asks for the oldest
/// unpaid job, and an answer of null leaves the date as it is.
template <typename OldestUnpaidJob>
Value NextDebtorSince(Money balance, const Value& debtorSince, QDate today,
                      const OldestUnpaidJob& oldestUnpaidJob) {
  if (balance >= Money()) return {};
  const auto since = debtorSince.ToDateTime();
  const DateTime zeroDate(QDate(1899, 12, 30));  // what a date field without a date was stored as
  if (!since || *since <= zeroDate) return today;
  const Value oldest = oldestUnpaidJob();
  return oldest.IsNull() ? debtorSince : oldest;
}

}  // namespace quillary::balances
