#pragma once

#include "kit/Dialog.h"
#include "kit/Screen.h"

class QPushButton;

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::diary {

/// Builds the whole diary again.
class frmReschedule : public Dialog {
  Q_OBJECT

 public:
  frmReschedule(Business& business, const ScreenTools& tools);

 private:
  void Recreate();

  Business& business_;
  QPushButton* cmdRecreate;
  QPushButton* cmdCancel;
};

}  // namespace quillary::diary
