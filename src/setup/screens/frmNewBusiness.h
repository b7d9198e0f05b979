#pragma once

#include "base/ports/Outside.h"
#include "kit/CommandRunner.h"
#include "kit/Dialog.h"
#include "setup/firstday/NewBusiness.h"

class QComboBox;
class QLabel;
class QLineEdit;

namespace quillary::setup {

/// Asks what a new business needs to begin: its name, what it does, its country and where its file
/// is to lie. The folder follows the name until the user chooses one.
class frmNewBusiness : public Dialog {
  Q_OBJECT

 public:
  /// `documents` is where the folder of a business goes unless the user says otherwise.
  frmNewBusiness(const Outside& outside, CommandRunner& runner, const QString& documents);

  /// Shows the dialog; the file of the business that was made, empty when the user gave up.
  QString Make();

 private:
  void MakeControls();
  QLayout* Fields();
  void ProposeFolder();
  void ChooseFolder();
  void ShowTax();
  NewBusinessForm Form() const;
  void Create();

  Outside outside_;
  QString documents_;
  QString made_;
  bool ownFolder_ = false;
  QLineEdit* txtCompany;
  QComboBox* cboDivision;
  QComboBox* cboCountry;
  QLabel* lblTax;
  QLineEdit* txtFolder;
  QPushButton* cmdFolder;
  QPushButton* cmdClose;
  QPushButton* cmdCreate;
};

}  // namespace quillary::setup
