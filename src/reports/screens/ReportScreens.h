#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::reports {

/// Lets the navigator open every report, by its dialog where it has one.
void RegisterReportScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::reports
