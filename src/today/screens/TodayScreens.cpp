#include "today/screens/TodayScreens.h"

#include "base/ports/requests/Screens.h"
#include "today/screens/frmToday.h"

namespace quillary::today {

void RegisterTodayScreens(Business& business, const ScreenTools& tools,
                          const AttentionPlaces& places) {
  tools.navigator.Register<OpenToday>([&business, tools, places](const OpenToday&) {
    ShowTab(tools, "frmToday", [&] { return new frmToday(business, tools, places); });
  });
}

}  // namespace quillary::today
