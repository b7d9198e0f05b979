#pragma once

#include "data/Business.h"
#include "data/settings/LocalSettings.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "maintenance/screens/FolderField.h"

class QCheckBox;
class QPushButton;

namespace quillary::maintenance {

/// Which backups are taken as the program ends. Each choice is stored at once.
class frmAutomaticBackupSystem : public Dialog {
  Q_OBJECT

 public:
  frmAutomaticBackupSystem(Business& business, LocalSettings& settings);

 private:
  QCheckBox* Tick(const char* name, const QString& words, const char* key, bool on);
  void TakeFolder(const QString& folder);
  void Store(const char* key, const QString& value);

  Business& business_;
  LocalSettings& settings_;
  FolderField* fldFolder;
  QPushButton* cmdClose;
};

}  // namespace quillary::maintenance
