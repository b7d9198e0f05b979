#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QComboBox;
class QLineEdit;
class QListWidget;

namespace quillary::mail {

/// Chooses where the file for merged letters goes, and writes it.
class frmMailMerge : public Dialog {
  Q_OBJECT

 public:
  frmMailMerge(Business& business, const ScreenTools& tools);

 private:
  void LayOut();
  void ShowFolders(const QString& path);
  void Save();

  Business& business_;
  QString path_;  // the folder that is shown
  QComboBox* drive;
  QListWidget* folder;
  QLineEdit* txtFileName;
  QLabel* lblPath;
  QPushButton* cmdOK;
  QPushButton* cmdClose;
};

}  // namespace quillary::mail
