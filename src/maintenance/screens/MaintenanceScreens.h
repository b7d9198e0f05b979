#pragma once

#include "data/settings/LocalSettings.h"
#include "kit/Screen.h"

namespace quillary {
class Business;
}

namespace quillary::maintenance {

/// Lets the navigator open the screens of backups. `archive` is the folder that they lie in.
void RegisterMaintenanceScreens(Business& business, LocalSettings& settings,
                                const ScreenTools& tools, const QString& archive);

}  // namespace quillary::maintenance
