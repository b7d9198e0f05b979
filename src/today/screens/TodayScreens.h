#pragma once

#include "kit/Screen.h"
#include "today/Attention.h"

namespace quillary::today {

/// What opens the screen of today.
void RegisterTodayScreens(Business& business, const ScreenTools& tools,
                          const AttentionPlaces& places);

}  // namespace quillary::today
