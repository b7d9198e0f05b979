#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Setup.h"
#include "kit/Grid.h"
#include "maintenance/backups/BackupPlaces.h"
#include "maintenance/backups/Backups.h"
#include "session/ProgramFolder.h"
#include "shell/shots/Shots.h"

#include <QDir>

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
  for (const char* name : {"Data1Mon.mdb", "Data21.mdb"}) {
    Business& business = program_.OpenBusiness();
    const QString archive = session::ArchiveUnder(session::ProgramFolder());
    QDir().mkpath(archive);
    maintenance::BackupDatabaseTo(business, maintenance::DailyDescription(business.Now()),
                                  QDir(archive).filePath(QLatin1StringView(name)));
  }
  SaveRequest(OpenAutomaticBackups{});
  SaveRequest(OpenCreateCustomBackup{});
  SaveRequest(OpenRestoreBackup{});
  SaveRequest(OpenCreateDBOfTransferred{});
}

}  // namespace quillary::shell
