#include "data/Numbers.h"

namespace quillary {

Money CalculateGSTComponent(const Value& amount, const Value& rate) {
  const double price = amount.IsNumeric() ? amount.ToDouble() : 0;
  const double fraction = rate.IsNumeric() ? rate.ToDouble() : 0;
  return Money::FromDouble(RoundHalfEven(price * (fraction / (1 + fraction)), 2));
}

}  // namespace quillary
