#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Grid.h"
#include "kit/Screen.h"
#include "maintenance/backups/Backups.h"

class QPushButton;

namespace quillary::maintenance {

/// Puts a backup in the place of the business. The process ends after it, so that no screen keeps
/// rows of the old file.
class frmRestoreBackup : public Dialog {
  Q_OBJECT

 public:
  frmRestoreBackup(Business& business, const ScreenTools& tools, const QString& archive);

 private:
  void LayOut();
  void LoadBackups();
  void RestorePicked();
  void SearchOtherFile();
  void Restore(const QString& backup);

  Business& business_;
  QString archive_;
  std::vector<BackupFacts> backups_;
  Grid* lstBackups;
  QPushButton* cmdCancel;
  QPushButton* cmdSearchOtherFile;
  QPushButton* cmdRestoreClient;
  QPushButton* cmdRestore;
};

}  // namespace quillary::maintenance
