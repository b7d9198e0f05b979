#pragma once

#include <QDialog>

class QPushButton;

namespace quillary::shell {

class frmAbout : public QDialog {
  Q_OBJECT

 public:
  explicit frmAbout(QWidget* parent = nullptr);

 private:
  QPushButton* cmdClose;
};

}  // namespace quillary::shell
