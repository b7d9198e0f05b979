#pragma once

#include "base/Money.h"

#include <QString>

#include <vector>

/// Cash, counted by notes and coins.
namespace quillary::accounts {

struct Denomination {
  Money worth;
  bool isCoin;
  QString Words() const { return worth.ToCurrencyText(); }
};
/// The largest first. They serve every country of the list, since a row may stay empty.
const std::vector<Denomination>& Denominations();

/// What so many of each come to; as many numbers as there are denominations.
Money WorthOf(const std::vector<int>& counts);

}  // namespace quillary::accounts
