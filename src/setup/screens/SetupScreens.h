#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}

namespace quillary::setup {

/// Lets the navigator open the screens of setting up a business. `programFolder` holds Files and
/// Log.txt.
void RegisterSetupScreens(Business& business, const ScreenTools& tools,
                          const QString& programFolder);

}  // namespace quillary::setup
