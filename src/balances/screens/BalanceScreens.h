#pragma once

#include "kit/Screen.h"

namespace quillary {

class Business;

/// Lets the navigator open the debtors, and the command that computes all balances anew.
void RegisterBalanceScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary
