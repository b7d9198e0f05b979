#pragma once

#include "clients/GeneralNotes.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QCheckBox;
class QComboBox;
class QPlainTextEdit;
class QPushButton;

namespace quillary::clients {

/// The text that goes on every invoice, statement and reminder, shown as it will be printed.
class frmGeneralNotes : public Dialog {
  Q_OBJECT

 public:
  frmGeneralNotes(Business& business, const ScreenTools& tools);

 private:
  void MakeControls();
  void LayOut();
  void Load();
  void Save();
  NotesLook Look() const;
  void ShowLook();

  Business& business_;
  QPlainTextEdit* txtNotes;
  QComboBox* cmbFont;
  QComboBox* cmbFontSize;
  QCheckBox* chkBold;
  QCheckBox* chkItalic;
  QComboBox* cmbColour;
  QPushButton* cmdClearText;
  QPushButton* cmdCancel;
  QPushButton* cmdOK;
};

}  // namespace quillary::clients
