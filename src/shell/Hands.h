#pragma once

#include <QPoint>

class QWidget;

namespace quillary::shell {

/// Uses a screen as a user would, by events and by nothing else. For runs without a user.
class Hands {
 public:
  /// A press and a release of the left button, at the control's middle unless told otherwise.
  static void Click(QWidget* control);
  static void ClickAt(QWidget* control, const QPoint& place);
  static void Press(QWidget* control, int key);
  /// Lets everything that waits happen.
  static void Settle();
};

}  // namespace quillary::shell
