#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Setup.h"
#include "kit/Grid.h"
#include "shell/shots/Shots.h"

#include <QTabWidget>

/// The pictures of settings, backups and the first day.
namespace quillary::shell {

void Shots::SetupDialogs() {
  MainMenuMDI* window = program_.MainMenu();
  window->Tools().navigator.Open(OpenEmployees{});
  window->findChild<Grid*>(QStringLiteral("lstEmployees"))->SelectFirst();
  Save(window, QStringLiteral("frmEmployees"));
  CloseScreen();
  SaveDialog([&] { window->Tools().navigator.Open(OpenPersonalInformation{}); });
  SaveDialog([&] { window->Tools().navigator.Open(OpenMiscellaneousSettings{}); });
}

}  // namespace quillary::shell
