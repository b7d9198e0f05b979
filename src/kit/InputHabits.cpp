#include "kit/InputHabits.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>

namespace quillary {

namespace {

bool HoldsAValue(const QObject* object) {
  return qobject_cast<const QComboBox*>(object) || qobject_cast<const QAbstractSpinBox*>(object) ||
         (qobject_cast<const QAbstractSlider*>(object) && !qobject_cast<const QScrollBar*>(object));
}

bool TakesText(const QObject* object) {
  return qobject_cast<const QLineEdit*>(object) || qobject_cast<const QPlainTextEdit*>(object) ||
         HoldsAValue(object);
}

bool IsLetterWithAlt(const QKeyEvent& key) {
  const auto modifiers = key.modifiers() & ~Qt::KeypadModifier & ~Qt::ShiftModifier;
  return modifiers == Qt::AltModifier && !key.text().isEmpty() && key.text().at(0).isPrint();
}

}  // namespace

void InputHabits::Install() {
  if (qApp->findChild<InputHabits*>(QString(), Qt::FindDirectChildrenOnly)) return;
  qApp->installEventFilter(new InputHabits(qApp));
}

bool InputHabits::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel && HoldsAValue(watched)) {
    event->ignore();  // it goes on to the page
    return true;
  }
  if (event->type() == QEvent::KeyPress && TakesText(watched) &&
      IsLetterWithAlt(*static_cast<QKeyEvent*>(event))) {
    event->ignore();
    return true;
  }
  return false;
}

}  // namespace quillary
