#pragma once

#include "base/Value.h"

namespace quillary {

/// The tax inside a tax-inclusive amount: amount × (rate / (1 + rate)), two decimals, half to even.
/// `rate` is a fraction (0.1 for ten percent). What is not numeric counts as 0.
Money CalculateGSTComponent(const Value& amount, const Value& rate);

}  // namespace quillary
