#pragma once

#include "kit/Screen.h"

#include <QDialog>

namespace quillary {

/// A screen that comes in front of a dialog, since a tab behind it could not be reached.
class ScreenDialog : public QDialog {
 public:
  /// Takes the screen over.
  explicit ScreenDialog(Screen* screen);
  void reject() override;

 private:
  Screen* screen_;
};

}  // namespace quillary
