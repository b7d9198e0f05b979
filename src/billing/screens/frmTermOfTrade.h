#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QPlainTextEdit;
class QPushButton;

namespace quillary::billing {

/// The terms that are printed with what is to be paid.
class frmTermOfTrade : public Dialog {
  Q_OBJECT

 public:
  frmTermOfTrade(Business& business, const ScreenTools& tools);

 private:
  Business& business_;
  QPlainTextEdit* txtTermOfTrade;
  QPushButton* cmdCancel;
  QPushButton* cmdOK;
};

}  // namespace quillary::billing
