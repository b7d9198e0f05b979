#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::billing {

/// The notes of earlier invoices, to take one of them again.
class frmInvoiceNotesSelection : public Dialog {
  Q_OBJECT

 public:
  frmInvoiceNotesSelection(Business& business, const ScreenTools& tools);

  /// The note that was selected.
  QString Note() const { return note_; }

 private:
  void Select();

  QStringList notes_;
  QString note_;
  QLineEdit* txtFilter;
  Grid* fgNotes;
  QPushButton* cmdClose;
  QPushButton* cmdSelect;
};

}  // namespace quillary::billing
