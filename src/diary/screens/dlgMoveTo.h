#pragma once

#include "diary/MarkedEntries.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QPushButton;
class QRadioButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::diary {

/// Moves entries of the diary to another day: the marked ones or, when the day falls through, all
/// of today that are not done. Shows the next days with what lies on them already.
class dlgMoveTo : public Dialog {
  Q_OBJECT

 public:
  dlgMoveTo(Business& business, const ScreenTools& tools, const Entries& marked,
            const Entries& shown);

  /// Without anything the user was told why, and there is nothing to open. What is marked has to be
  /// movable itself: Enter must not move a whole day in its place.
  bool HasSomethingToMove() const { return !marked_.empty(); }

 private:
  void MakeControls();
  void LayOut();
  void LoadDays();
  void Move();

  Business& business_;
  Entries marked_;
  Entries undone_;
  std::vector<DayLoad> days_;
  QRadioButton* optMarked;
  QRadioButton* optUndone;
  Grid* grdDays;
  QPushButton* cmdCancel;
  QPushButton* cmdMove;
};

}  // namespace quillary::diary
