#pragma once

#include "data/Business.h"
#include "kit/Screen.h"

namespace quillary::link {

/// Lets the navigator open the screens of the link to head office. `programFolder` holds qy.ini and
/// the archive.
void RegisterLinkScreens(Business& business, const ScreenTools& tools,
                         const QString& programFolder);

}  // namespace quillary::link
