#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::mail {

/// Lets the navigator send mails and open their screens.
void RegisterMailScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::mail
