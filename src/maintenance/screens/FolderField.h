#pragma once

#include <QString>
#include <QWidget>

class QLineEdit;
class QPushButton;

namespace quillary::maintenance {

/// A folder, typed or chosen by the platform's own chooser.
class FolderField : public QWidget {
  Q_OBJECT

 public:
  FolderField(const char* name, const QString& label);
  QString Folder() const;
  void SetFolder(const QString& folder);

 signals:
  void folderChosen(const QString& folder);

 private:
  void Choose();

  QLineEdit* box_;
  QPushButton* cmdSearch;
};

}  // namespace quillary::maintenance
