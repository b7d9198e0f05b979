#include "accounts/banking/CashCount.h"

#include <algorithm>

namespace quillary::accounts {

const std::vector<Denomination>& Denominations() {
  constexpr auto cents = [](qint64 count) {
    return Money::FromUnits(count * (Money::kUnitsPerOne / 100));
  };
  static const std::vector<Denomination> denominations = {
      {cents(10000), false}, {cents(5000), false}, {cents(2000), false}, {cents(1000), false},
      {cents(500), false},   {cents(200), true},   {cents(100), true},   {cents(50), true},
      {cents(25), true},     {cents(20), true},    {cents(10), true},    {cents(5), true},
      {cents(1), true}};
  return denominations;
}

Money WorthOf(const std::vector<int>& counts) {
  Money worth;
  const size_t most = std::min(counts.size(), Denominations().size());
  for (size_t at = 0; at < most; ++at) worth += Denominations()[at].worth * counts[at];
  return worth;
}

}  // namespace quillary::accounts
