#include "accounts/screens/AccountScreens.h"

namespace quillary {

void RegisterAccountScreens(Business&, const ScreenTools&) {}

}  // namespace quillary
