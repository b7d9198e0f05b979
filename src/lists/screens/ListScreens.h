#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::lists {

/// Lets the navigator open the screens that keep the business's lists.
void RegisterListScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::lists
