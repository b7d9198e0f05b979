#pragma once

#include "data/Business.h"

namespace quillary {

/// The rate of the tax that every price contains, as a fraction: 0.1 is ten percent. It is read by
/// its digits: single-precision numbers carry noise behind them, which turned ties of whole pence
/// into a penny too much.
class TaxRate {
 public:
  /// What is not numeric is a rate of 0.
  explicit TaxRate(const Value& fraction);
  /// The rate that the business works with.
  static TaxRate Of(const Business& business);
  /// The rate as infOptions holds it; 0 without a row. Throws NoRecordset when that cannot be read.
  static TaxRate StoredIn(Business& business);

  double Fraction() const { return fraction_; }

  /// The tax inside a tax-inclusive amount: amount × (rate / (1 + rate)), two decimals, half to
  /// even. An amount that is not numeric counts as 0.
  Money CalculateGSTComponent(const Value& amount) const;

  /// The rate in whole percent, by which the lines of an entry are recalculated. It is cut to two
  /// decimals first, so 12.5 percent counts as 13: a half goes up here, unlike everywhere else.
  qint64 WholePercent() const;
  /// The tax inside a column by WholePercent(), for a statement; not rounded.
  Sql InsideByWholePercent(const char* column) const;

  /// The tax inside a column for the repair of all records, for a statement; not rounded.
  Sql Inside(const char* column) const;

 private:
  double fraction_;
};

}  // namespace quillary
