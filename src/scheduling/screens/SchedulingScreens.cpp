#include "scheduling/screens/SchedulingScreens.h"

#include "base/ports/requests/Screens.h"
#include "scheduling/screens/frmDiary.h"

namespace quillary {

void RegisterSchedulingScreens(Business& business, const ScreenTools& tools) {
  tools.navigator.Register<OpenDiary>([&business, tools](const OpenDiary&) {
    if (Screen* open = tools.host.BringToFront(QStringLiteral("frmDiary"))) {
      open->Reload();
      return;
    }
    auto* diary = new frmDiary(business, tools);
    tools.host.ShowScreen(diary);
    diary->ShowYourself();
  });
}

}  // namespace quillary
