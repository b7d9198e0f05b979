#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "setup/settings/PersonalInformation.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary::setup {

/// What heads every document: who the business is, where, and how it is registered.
class frmPersonalInformation : public Dialog {
  Q_OBJECT

 public:
  frmPersonalInformation(Business& business, const ScreenTools& tools,
                         const QString& programFolder);

 private:
  void MakeControls();
  QLayout* Fields();
  void Load();
  void ShowRegistration();
  void ShowLogo();
  PersonalInformation Form() const;
  bool Save();

  Business& business_;
  QString programFolder_;
  QComboBox* cboDivision;
  QComboBox* cboCountry;
  QLabel* lblRegLabel;
  QLabel* imgLogo;
  QPushButton* cmdClose;
  QPushButton* cmdSave;
  QPushButton* cmdCloseAndSave;
};

}  // namespace quillary::setup
