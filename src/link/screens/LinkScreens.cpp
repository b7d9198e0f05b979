#include "link/screens/LinkScreens.h"

#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Setup.h"
#include "link/DatabaseUpload.h"
#include "link/screens/TransferProgress.h"
#include "link/screens/dlgVerifyFSECode.h"
#include "link/screens/frmAcquireServices.h"
#include "link/screens/frmCopyFromOstrel.h"
#include "session/ProgramFolder.h"

#include <QFileDialog>
#include <QFileInfo>

namespace quillary::link {
namespace {

/// The folder of the business first, where there is mostly room; then one of the user's choice.
std::function<std::optional<QString>()> WorkAreas(const Business& business) {
  return [first = true, file = business.DatabaseFile()]() mutable -> std::optional<QString> {
    if (std::exchange(first, false)) return QFileInfo(file).absolutePath();
    const QString chosen = QFileDialog::getExistingDirectory(QApplication::activeWindow(),
                                                             QObject::tr("Folder for the work"),
                                                             QFileInfo(file).absolutePath());
    return chosen.isEmpty() ? std::nullopt : std::optional(chosen);
  };
}

void Upload(Business& business, const ScreenTools& tools, const QString& programFolder) {
  const auto account = ReadHeadOfficeAccount(programFolder, business.World().prompter);
  if (!account) return;
  TransferProgress progress;
  UploadDatabaseFile(
      business, {.logIn =
                     [&] {
                       dlgVerifyFSECode dialog(business, tools, *account);
                       dialog.exec();
                       return dialog.TakeSession();
                     },
                 .archive = session::ArchiveUnder(programFolder),
                 .pickWorkArea = WorkAreas(business),
                 .progress = [&](const HttpLine::Progress& far) { return progress.Show(far); }});
}

}  // namespace

void RegisterLinkScreens(Business& business, const ScreenTools& tools,
                         const QString& programFolder) {
  tools.navigator.Register<UploadDatabase>(
      [&business, tools, programFolder](const UploadDatabase&) {
        Upload(business, tools, programFolder);
      });
  tools.navigator.Register<OpenCopyFromOstrel>(
      [&business, tools, programFolder](const OpenCopyFromOstrel&) {
        const auto account = ReadHeadOfficeAccount(programFolder, business.World().prompter);
        if (account)
          frmCopyFromOstrel(business, tools, *account, session::ArchiveUnder(programFolder)).exec();
      });
  tools.navigator.Register<OpenAcquireServices>(
      [&business, tools, programFolder](const OpenAcquireServices&) {
        const auto account = ReadHeadOfficeAccount(programFolder, business.World().prompter);
        if (!account) return false;
        frmAcquireServices screen(business, tools, session::ArchiveUnder(programFolder));
        return screen.LoadFrom(*account) && screen.exec() == QDialog::Accepted;
      });
}

}  // namespace quillary::link
