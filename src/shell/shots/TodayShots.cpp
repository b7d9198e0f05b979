#include "base/ports/requests/Screens.h"
#include "shell/Hands.h"
#include "shell/shots/Shots.h"

#include <QDeadlineTimer>

/// The pictures of the screen "Today".
namespace quillary::shell {

void Shots::Today() {
  MainMenuMDI* window = program_.MainMenu();
  if (auto* splash = window->findChild<QWidget*>(QStringLiteral("MainMenuMDI_Splash")))
    splash->close();
  window->Tools().navigator.Open(OpenToday{});
  // The look at the schedule waits for a calm moment.
  for (const QDeadlineTimer calm(1500); !calm.hasExpired();) Hands::Settle();
  Save(window, QStringLiteral("frmToday"));
  window->resize(1024, 768);
  Save(window, QStringLiteral("frmToday-1024x768"));
  window->resize(853, 480);
  Save(window, QStringLiteral("frmToday-at-150-percent"));
  window->resize(853, 1100);
  Save(window, QStringLiteral("frmToday-narrow-whole"));
  window->resize(1280, 720);
}

}  // namespace quillary::shell
