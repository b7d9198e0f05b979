#include "balances/BalanceRules.h"

namespace quillary::balances {

BalanceKind BalanceKindOf(Id<Client> client, Id<Client> payer, const StoredClientStatus& status) {
  if (payer != client) return BalanceKind::BilledToAnother;
  return status.Is(ClientStatus::BillingAddress) ? BalanceKind::BillingAddress
                                                 : BalanceKind::PaysForItself;
}

Money RoundedBalance(Money paid, Money jobs) {
  return paid.Rounded(2) - jobs.Rounded(2);
}

}  // namespace quillary::balances
