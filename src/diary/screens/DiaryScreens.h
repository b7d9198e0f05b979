#pragma once

#include "kit/Screen.h"

namespace quillary {

class Business;

/// Lets the navigator open the screens of the diary.
void RegisterDiaryScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary
