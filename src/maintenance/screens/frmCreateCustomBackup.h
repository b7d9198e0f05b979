#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "maintenance/backups/TransferredClients.h"
#include "maintenance/screens/FolderField.h"

#include <functional>

class QLineEdit;
class QProgressBar;
class QPushButton;

namespace quillary::maintenance {

/// A file made of the business under a name and in a folder of the user's choice: a backup, or the
/// database of the transferred clients.
class FileOfBusinessDialog : public Dialog {
  Q_OBJECT

 public:
  struct Kind {
    const char* name;
    QString title;
    QString nameLabel;
    QString proposedName;
    QString about;
    QString createCaption;
    std::function<BackupOutcome(const CustomBackup&, const CopyProgress&)> create;
    std::function<void(const QString& folder)> folderChosen = {};
  };
  FileOfBusinessDialog(Business& business, const ScreenTools& tools, const Kind& kind,
                       const QString& folder);

 private:
  void Create(const Kind& kind);

  QLineEdit* txtFilename;
  FolderField* fldFolder;
  QProgressBar* pb;
  QPushButton* cmdClose;
  QPushButton* cmdCreateBackup;
};

/// Shows the screen that makes a backup by hand.
void OpenFrmCreateCustomBackup(Business& business, const ScreenTools& tools,
                               const QString& archive);
/// Shows the screen that makes a database of the transferred clients; the folder is remembered
/// among the local settings.
void OpenFrmCreateDBOfTransferred(Business& business, const ScreenTools& tools,
                                  const QString& archive,
                                  std::function<void(const QString&)> rememberFolder);

}  // namespace quillary::maintenance
