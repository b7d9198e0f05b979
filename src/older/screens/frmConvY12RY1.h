#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace quillary::older {

/// Chooses a database of the older product and moves it over.
class frmConvY12RY1 : public Dialog {
  Q_OBJECT

 public:
  frmConvY12RY1(Business& business, const ScreenTools& tools, const QString& archive);

 private:
  void MakeControls();
  void LayOut();
  void ShowDrives();
  /// The Access files of the folder.
  void ShowFiles();
  void BrowseFolder();
  void Start();
  void BeginSubProgress(const QString& step, qint64 rows);
  void IncrementSubProgress(qint64 done);

  Business& business_;
  ScreenTools tools_;
  QString archive_;
  QComboBox* Drive;
  QLineEdit* Folder;
  QPushButton* cmdBrowse;
  QComboBox* File;
  QLabel* lblStep;
  QProgressBar* prgProgress;
  QPushButton* cmdCancel;
  QPushButton* cmdStart;
};

/// Registers the screen behind the menu's import from the older product.
void RegisterOlderScreens(Business& business, const ScreenTools& tools, const QString& archive);

}  // namespace quillary::older
