#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::clients {

/// Lets the navigator open the screens of the clients.
void RegisterClientScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::clients
