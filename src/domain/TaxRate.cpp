#include "domain/TaxRate.h"

namespace quillary {
namespace {

/// As many as a single-precision number is sure of.
constexpr int kDigits = 6;

double ByItsDigits(double number) {
  return QString::number(number, 'g', kDigits).toDouble();
}

}  // namespace

TaxRate::TaxRate(const Value& fraction)
    : fraction_(fraction.IsNumeric() ? ByItsDigits(fraction.ToDouble()) : 0) {}

TaxRate TaxRate::Of(const Business& business) {
  return TaxRate(static_cast<double>(business.values.gstPercentage));
}

TaxRate TaxRate::StoredIn(Business& business) {
  return TaxRate(business.FirstField(Sql("SELECT GST_Percentage FROM infOptions; ")));
}

Money TaxRate::CalculateGSTComponent(const Value& amount) const {
  const double price = amount.IsNumeric() ? amount.ToDouble() : 0;
  return Money::FromDouble(RoundHalfEven(price * (fraction_ / (1 + fraction_)), 2));
}

qint64 TaxRate::WholePercent() const {
  constexpr qint64 kUnitsOfOnePercent = Money::kUnitsPerOne / 100;
  const Money rate = Money::FromDouble(fraction_);
  const qint64 half = rate < Money() ? -kUnitsOfOnePercent / 2 : kUnitsOfOnePercent / 2;
  return (rate.Units() + half) / kUnitsOfOnePercent;
}

Sql TaxRate::InsideByWholePercent(const char* column) const {
  const qint64 percent = WholePercent();
  return Sql("(({}/{}) * {})", Sql(column), 100 + percent, percent);
}

Sql TaxRate::Inside(const char* column) const {
  return Sql("{} * ({} / (1 + {}))", Sql(column), fraction_, fraction_);
}

}  // namespace quillary
