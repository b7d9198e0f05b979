#include "maintenance/screens/MaintenanceScreens.h"

#include "base/ports/requests/Maintenance.h"
#include "maintenance/screens/frmAutomaticBackupSystem.h"
#include "maintenance/screens/frmCreateCustomBackup.h"
#include "maintenance/screens/frmRestoreBackup.h"
#include "maintenance/screens/frmRestoreClient.h"

namespace quillary::maintenance {

void RegisterMaintenanceScreens(Business& business, LocalSettings& settings,
                                const ScreenTools& tools, const QString& archive) {
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenAutomaticBackups>([&business, &settings](const OpenAutomaticBackups&) {
    frmAutomaticBackupSystem(business, settings).exec();
  });
  navigator.Register<OpenCreateCustomBackup>(
      [&business, tools, archive](const OpenCreateCustomBackup&) {
        OpenFrmCreateCustomBackup(business, tools, archive);
      });
  navigator.Register<OpenRestoreBackup>([&business, tools, archive](const OpenRestoreBackup&) {
    frmRestoreBackup(business, tools, archive).exec();
  });
  navigator.Register<OpenRestoreClient>(
      [&business, tools, archive](const OpenRestoreClient& request) {
        auto* screen = qobject_cast<frmRestoreClient*>(
            tools.host.BringToFront(QStringLiteral("frmRestoreClient")));
        if (!screen) {
          screen = new frmRestoreClient(business, tools, archive);
          tools.host.ShowScreen(screen);
        }
        screen->ShowYourself(request);
      });
  navigator.Register<OpenCreateDBOfTransferred>([&business, &settings, tools,
                                                 archive](const OpenCreateDBOfTransferred&) {
    OpenFrmCreateDBOfTransferred(business, tools, archive, [&settings](const QString& folder) {
      settings.WriteLocalSetting(QStringLiteral("BACKUPS"), QStringLiteral("CUSTOM_PATH"), folder);
    });
  });
}

}  // namespace quillary::maintenance
