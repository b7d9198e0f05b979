#pragma once

#include "diary/Visits.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QPlainTextEdit;
class QPushButton;
class QRadioButton;

namespace quillary {
class ComboSearch;
class DateField;
}  // namespace quillary

namespace quillary::diary {

/// One visit: a new one, or one of the diary.
class frmVisit : public Dialog {
  Q_OBJECT

 public:
  frmVisit(Business& business, const ScreenTools& tools, const Visit& visit);

 private:
  void MakeControls();
  void LayOut();
  void ShowVisit();
  Visit Typed() const;
  bool SaveVisit();
  void Delete();

  Business& business_;
  Visit visit_;
  ComboSearch* cmbClients;
  DateField* txtDate;
  ComboSearch* cmbEmployee;
  QLineEdit* txtPurpose;
  QPlainTextEdit* txtNotes;
  QRadioButton* optNotDone;
  QRadioButton* optDone;
  QRadioButton* optCancelled;
  QPushButton* cmdDelete;
  QPushButton* cmdClose;
  QPushButton* cmdSaveAndClose;
};

}  // namespace quillary::diary
