#include "shell/Hands.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

namespace quillary::shell {

void Hands::Click(QWidget* control) {
  ClickAt(control, control->rect().center());
}

void Hands::ClickAt(QWidget* control, const QPoint& place) {
  const QPointF at(place);
  const QPointF global = control->mapToGlobal(at);
  QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
  QApplication::sendEvent(control, &press);
  QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton,
                      Qt::NoModifier);
  QApplication::sendEvent(control, &release);
  Settle();
}

void Hands::Press(QWidget* control, int key) {
  QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
  QApplication::sendEvent(control, &press);
  QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
  QApplication::sendEvent(control, &release);
  Settle();
}

void Hands::Settle() {
  for (int round = 0; round < 3; ++round) {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
  }
}

}  // namespace quillary::shell
