#pragma once

#include "base/Money.h"
#include "data/Business.h"

#include <array>
#include <vector>

/// How old what clients owe is. No payment says which job it is for, so the oldest jobs count as
/// paid first, and what is owed is the price of the newest ones.
namespace quillary::balances {

/// By the days since the job was done.
enum class DebtAge { To30, To60, To90, Over90 };
inline constexpr std::array kDebtAges = {DebtAge::To30, DebtAge::To60, DebtAge::To90,
                                         DebtAge::Over90};

using AgedMoney = std::array<Money, kDebtAges.size()>;

struct AgedDebt {
  Id<Client> payer;
  AgedMoney parts;  // add up to what the payer owes, above 0

  Money Of(DebtAge age) const { return parts[static_cast<size_t>(age)]; }
};

/// All debtors as ListDebtors() gives them, in no order. What no job of the last 90 days explains
/// is over 90 days old.
std::vector<AgedDebt> AgeDebts(Business& business);

}  // namespace quillary::balances
