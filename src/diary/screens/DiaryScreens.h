#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::diary {

/// Lets the navigator open the screens of the diary.
void RegisterDiaryScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::diary
