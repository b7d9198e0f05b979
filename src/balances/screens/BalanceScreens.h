#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::balances {

/// Lets the navigator open the debtors, and the command that computes all balances anew.
void RegisterBalanceScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::balances
