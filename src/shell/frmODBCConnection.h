#pragma once

#include "base/ports/Outside.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>

namespace quillary::shell {

/// Defines a further database connection, for a separate database of another division.
class frmODBCConnection : public QDialog {
  Q_OBJECT

 public:
  frmODBCConnection(const Outside& outside, const QString& programFolder,
                    QWidget* parent = nullptr);

 private:
  void cmdSelect_Click();
  void cmdCreate_Click();

  Outside outside_;
  QComboBox* cboDSN;
  QLineEdit* txtFile;
  QPushButton* cmdSelect;
  QPushButton* cmdCreate;
  QPushButton* cmdCancel;
};

}  // namespace quillary::shell
