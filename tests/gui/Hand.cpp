#include "gui/Hand.h"

#include "kit/CurrencyField.h"
#include "kit/DateField.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QTabBar>
#include <QTableView>
#include <QTest>

namespace quillary {

namespace {

bool IsWithinReach(const QWidget* control) {
  return control->isVisible() && control->isEnabled() && !control->visibleRegion().isEmpty();
}

template <typename Control>
QList<Control*> WithinReach(const QWidget* front) {
  QList<Control*> controls = front->findChildren<Control*>();
  controls.removeIf([&](const Control* control) {
    return control->window() != front->window() || !IsWithinReach(control);
  });
  return controls;
}

QWidget* FocusOn(QWidget* front) {
  QWidget* focused = QApplication::focusWidget();
  const bool isThere = focused && focused->window() == front->window();
  if (front->windowType() == Qt::Popup || !isThere) focused = front->focusWidget();
  return focused ? focused : front;
}

}  // namespace

QWidget* Hand::Front(QWidget* window) {
  if (QWidget* popup = QApplication::activePopupWidget()) return popup;
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  return window;
}

QList<QAbstractButton*> Hand::Buttons(const QWidget* front) {
  return WithinReach<QAbstractButton>(front);
}

QList<QLineEdit*> Hand::Fields(const QWidget* front) {
  QList<QLineEdit*> fields = WithinReach<QLineEdit>(front);
  fields.removeIf([](const QLineEdit* field) {
    return field->isReadOnly() || qobject_cast<const QComboBox*>(field->parentWidget());
  });
  return fields;
}

QList<QTableView*> Hand::Lists(const QWidget* front) {
  QList<QTableView*> lists = WithinReach<QTableView>(front);
  lists.removeIf([](const QTableView* list) { return !list->model(); });
  return lists;
}

QList<QTabBar*> Hand::TabBars(const QWidget* front) {
  return WithinReach<QTabBar>(front);
}

bool Hand::IsActive(const QWidget* front) {
  return QApplication::activePopupWidget() || QApplication::activeWindow() == front->window();
}

void Hand::Press(QWidget* front, int key, Qt::KeyboardModifiers with) {
  QTest::keyClick(FocusOn(front), static_cast<Qt::Key>(key), with);
}

void Hand::Type(QWidget* front, const QString& words) {
  for (const QChar letter : words) {
    QWidget* focused = FocusOn(front);
    if (letter.unicode() < 0x80) {
      QTest::keyClicks(focused, letter);
      continue;
    }
    QKeyEvent press(QEvent::KeyPress, 0, {}, letter);
    QApplication::sendEvent(focused, &press);
  }
}

void Hand::RightClick(QTableView* list, const QPoint& at) {
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, list->viewport()->mapToGlobal(at));
  QApplication::sendEvent(list->viewport(), &event);
}

QString Hand::Plausible(const QLineEdit& field, unsigned choice) {
  static const QStringList amounts = {"45",    "62.50", ".5", "0", "$1,234.50", "-20",
                                      "99.99", "abc",   "",   "7", "120",       "3.333"};
  static const QStringList days = {"2/11",     "1/12/2026",  "2 nov 26", "31/2", "15/10/2026",
                                   "8/8/2026", "30/10/2026", "",         "3/11", "29/11/2026"};
  static const QStringList words = {"Lawn",        "O'Brien & Sons", "Zoë",   "14", "7",
                                    "12.5",        "0412 555 667",   "#",     "",   "a*b",
                                    "ann@b.co.nz", "50% off",        "\"q\"", "%1", "12 High St"};
  const QStringList& all = qobject_cast<const CurrencyField*>(&field) ? amounts
                           : qobject_cast<const DateField*>(&field)   ? days
                                                                      : words;
  return all[choice % static_cast<unsigned>(all.size())];
}

QString Hand::NameOf(const QWidget* control) {
  if (!control) return QStringLiteral("nothing");
  if (!control->objectName().isEmpty()) return control->objectName();
  return QString::fromLatin1(control->metaObject()->className());
}

}  // namespace quillary
