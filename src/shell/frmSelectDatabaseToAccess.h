#pragma once

#include "data/Business.h"
#include "shell/FileChooser.h"
#include "shell/RecentFiles.h"

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

#include <exception>
#include <memory>

namespace quillary::shell {

/// Chooses the database file and opens it. With the "show this window" box cleared it opens the
/// proposed file without waiting for the user, and waits only when that file is gone.
class frmSelectDatabaseToAccess : public QDialog {
  Q_OBJECT

 public:
  frmSelectDatabaseToAccess(const Outside& outside, const QString& programFolder);

  /// Shows the dialog; null when the user left it. Throws what opening the file threw.
  std::unique_ptr<Business> Choose();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void MakeControls();
  void LayOut();
  void Load();
  void FillRecent();
  void Propose(const QString& path);
  void cmdOK_Click();
  void Open(const QString& path);

  Outside outside_;
  QString programFolder_;
  RecentFiles recent_;
  FileChooser chooser_;
  std::unique_ptr<Business> business_;
  std::exception_ptr failure_;

  QMenu* mnFile;
  QLineEdit* txtPath;
  QCheckBox* chkShowThisWindow;
  QPushButton* cmdOK;
  QPushButton* cmdExit;
};

}  // namespace quillary::shell
