#pragma once

#include "base/ports/Prompter.h"

#include <QComboBox>
#include <QListWidget>

namespace quillary::shell {

/// Places, folders and files side by side, as the dialogs that look for a file or a folder share
/// them. A folder opens by a double click or by Enter.
class FileChooser : public QObject {
  Q_OBJECT

 public:
  FileChooser(Prompter& prompter, const QStringList& filters);

  QComboBox* Drive;
  QListWidget* Folder;
  QListWidget* File;

  /// Shows that folder, or its nearest parent that exists.
  void ShowFolder(const QString& path);
  const QString& CurrentFolder() const { return folder_; }

 signals:
  void folderChanged(const QString& path);
  void fileClicked(const QString& path);
  void fileOpened(const QString& path);

 private:
  void OpenFolder(QListWidgetItem* item);
  void Drive_Change(int index);
  void FillDrives();

  Prompter& prompter_;
  QStringList filters_;
  QString folder_;
};

}  // namespace quillary::shell
