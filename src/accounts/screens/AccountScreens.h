#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::accounts {

/// Lets the navigator open the screens of the ledger and its lists.
void RegisterAccountScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::accounts
