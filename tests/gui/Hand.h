#pragma once

#include <QList>
#include <QPoint>
#include <QString>

class QAbstractButton;
class QLineEdit;
class QTabBar;
class QTableView;
class QWidget;

namespace quillary {

/// What a hand at the desk can reach: the window in front, what stands on it, and the keys and
/// clicks that go there. It knows no screen by its name.
class Hand {
 public:
  /// The open list or menu, else the window that holds the others back, else `window`.
  static QWidget* Front(QWidget* window);
  /// What can be clicked on it: shown, enabled, and not covered by the edge of its page.
  static QList<QAbstractButton*> Buttons(const QWidget* front);
  static QList<QLineEdit*> Fields(const QWidget* front);
  static QList<QTableView*> Lists(const QWidget* front);
  static QList<QTabBar*> TabBars(const QWidget* front);

  /// Whether the keys go there, as a window manager would see to.
  static bool IsActive(const QWidget* front);
  /// To the widget that has the focus, or to the window where none has.
  static void Press(QWidget* front, int key, Qt::KeyboardModifiers with = {});
  static void Type(QWidget* front, const QString& words);
  static void RightClick(QTableView* list, const QPoint& at);

  /// Words as one would type them into the field, by what kind of field it is: its `choice`-th.
  static QString Plausible(const QLineEdit& field, unsigned choice);
  /// How the control is named in a list of steps.
  static QString NameOf(const QWidget* control);
};

}  // namespace quillary
