#include "balances/BalanceRules.h"

namespace quillary::balances {

BalanceKind BalanceKindOf(qint64 clientId, qint64 billingClientId, const QString& status) {
  if (billingClientId != clientId) return BalanceKind::BilledToAnother;
  return status.compare(u"BILLING ADDRESS", Qt::CaseInsensitive) == 0 ? BalanceKind::BillingAddress
                                                                      : BalanceKind::PaysForItself;
}

Money RoundedBalance(Money paid, Money jobs) {
  return paid.Rounded(2) - jobs.Rounded(2);
}

}  // namespace quillary::balances
