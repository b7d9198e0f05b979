#include "gui/Hand.h"
#include "monkey/Monkey.h"
#include "shell/MenuTree.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QTabBar>
#include <QTableView>
#include <QTest>

/// What the monkey does in one step.
namespace quillary::monkey {

namespace {

/// What would end the run or its history, leads to another file, fails by design, or deletes by
/// design what other rows point to.
constexpr const char* kLeftAlone[] = {
    "mnuExit",
    "mnuFunctionsRestoreBackup",
    "mnuCreateDBOfAllTransferredClients",
    "mnuFunctionsDebugTest1",
    "mnuSetupTechnicalODBC",
    "mnuUpdateRevenueAccountIntoDefault",
    "mnuDeletePreviousFinancialRecords",
    "mnuSortoutDatabaseRecords",
};

void AddCommands(const std::vector<shell::MenuEntry>& entries, QStringList& names) {
  for (const shell::MenuEntry& entry : entries) {
    const QString name = QString::fromLatin1(entry.name);
    if (entry.action.kind != shell::MenuAction::Kind::Nothing &&
        entry.action.kind != shell::MenuAction::Kind::Separator && entry.entries.empty())
      names += name;
    AddCommands(entry.entries, names);
  }
}

const QStringList& MenuCommands() {
  static const QStringList commands = [] {
    QStringList names;
    AddCommands(shell::MenuTree(), names);
    return names;
  }();
  return commands;
}

struct Stroke {
  int key;
  Qt::KeyboardModifiers with;
};

}  // namespace

void Monkey::LeaveAlone() {
  for (const char* name : kLeftAlone)
    window_.menuBar()->findChild<QAction*>(QLatin1StringView(name))->setEnabled(false);
}

bool Monkey::IsOfTheSystem(const QWidget* front) {
  return qobject_cast<const QFileDialog*>(front) || front->inherits("QAbstractPrintDialog");
}

void Monkey::Move(QWidget* front) {
  if (qobject_cast<QMessageBox*>(front)) return AnswerBox(front);
  if (IsOfTheSystem(front)) {
    steps_.Add(QStringLiteral("Esc out of the system's ") + front->metaObject()->className());
    return Hand::Press(front, Qt::Key_Escape);
  }
  if (qobject_cast<QInputDialog*>(front)) {
    const QString words = OneOf(QStringList{"Swept", "", "12", "O'Brien"});
    const bool isTaken = Random(3) != 0;
    steps_.Add(QStringLiteral("types \"%1\" and %2").arg(words, isTaken ? "Enter" : "Esc"));
    Hand::Type(front, words);
    return Hand::Press(front, isTaken ? Qt::Key_Return : Qt::Key_Escape);
  }
  if (front->windowType() == Qt::Popup) {
    const int key = OneOf(std::array{Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return,
                                     Qt::Key_Return, Qt::Key_Escape, Qt::Key_C, Qt::Key_Space});
    steps_.Add(QStringLiteral("%1 in %2").arg(QKeySequence(key).toString(), Hand::NameOf(front)));
    return Hand::Press(front, key);
  }
  UseWindow(front);
}

void Monkey::AnswerBox(QWidget* box) {
  const QList<QAbstractButton*> buttons = Hand::Buttons(box);
  if (buttons.isEmpty() || Random(4) == 0) {
    const int key = Random(2) == 0 ? Qt::Key_Return : Qt::Key_Escape;
    steps_.Add(QKeySequence(key).toString() + QStringLiteral(" to the box"));
    return Hand::Press(box, key);
  }
  QAbstractButton* button = OneOf(buttons);
  steps_.Add(QStringLiteral("answers ") + button->text());
  QTest::mouseClick(button, Qt::LeftButton);
}

void Monkey::UseWindow(QWidget* front) {
  const unsigned what = Random(100);
  if (what < 5 && front == &window_) return Choose();
  if (what < 35) return ClickButton(front);
  if (what < 55) return UseList(front);
  if (what < 70) return UseField(front);
  if (what < 78) return UseCombo(front);
  if (what < 82) return UseTab(front);
  PressSome(front);
}

void Monkey::Choose() {
  const QString name = OneOf(MenuCommands());
  auto* action = window_.menuBar()->findChild<QAction*>(name);
  if (!action || !action->isEnabled()) return;
  steps_.Add(QStringLiteral("menu ") + name);
  action->trigger();
}

void Monkey::ClickButton(QWidget* front) {
  const QList<QAbstractButton*> buttons = Hand::Buttons(front);
  if (buttons.isEmpty()) return;
  QAbstractButton* button = OneOf(buttons);
  steps_.Add(QStringLiteral("clicks %1 \"%2\" of %3")
                 .arg(Hand::NameOf(button), button->text(), Hand::NameOf(front)));
  QTest::mouseClick(button, Qt::LeftButton);
}

void Monkey::PutRight(QWidget* front) {
  for (QAbstractButton* button : Hand::Buttons(front)) {
    if (button->objectName() != QLatin1StringView("cmdSaveOnly")) continue;
    steps_.Add(QStringLiteral("saves ") + Hand::NameOf(front));
    return QTest::mouseClick(button, Qt::LeftButton);
  }
  if (Random(2) == 0) return UseList(front);
  ClickButton(front);
}

void Monkey::UseField(QWidget* front) {
  const QList<QLineEdit*> fields = Hand::Fields(front);
  if (fields.isEmpty()) return;
  QLineEdit* field = OneOf(fields);
  const QString words = Hand::Plausible(*field, Random(1000));
  const int key = OneOf(std::array{Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return, Qt::Key_End});
  steps_.Add(QStringLiteral("types \"%1\" into %2, %3")
                 .arg(words, Hand::NameOf(field), QKeySequence(key).toString()));
  const QPointer<QWidget> there(front);
  field->setFocus(Qt::TabFocusReason);
  Hand::Type(front, words);
  if (there && Hand::Front(&window_) == front) Hand::Press(front, key);
}

void Monkey::UseCombo(QWidget* front) {
  QList<QComboBox*> combos = front->findChildren<QComboBox*>();
  combos.removeIf([](const QComboBox* combo) {
    return !combo->isVisible() || !combo->isEnabled() || combo->visibleRegion().isEmpty();
  });
  if (combos.isEmpty()) return;
  QComboBox* combo = OneOf(combos);
  const QPointer<QWidget> there(front);
  combo->setFocus(Qt::TabFocusReason);
  if (combo->isEditable()) {
    const QString words =
        combo->count() > 0 && Random(3) != 0
            ? combo->itemText(static_cast<int>(Random(static_cast<unsigned>(combo->count()))))
            : OneOf(QStringList{"lawn", "har", "7", "zz", "a"});
    steps_.Add(QStringLiteral("types \"%1\" into %2").arg(words, Hand::NameOf(combo)));
    Hand::Type(front, words.left(8));
    if (there && Hand::Front(&window_) == front)
      Hand::Press(front, Random(2) == 0 ? Qt::Key_Tab : Qt::Key_Return);
    return;
  }
  const int key = OneOf(std::array{Qt::Key_Down, Qt::Key_Up, Qt::Key_F4, Qt::Key_A});
  steps_.Add(QStringLiteral("%1 in %2").arg(QKeySequence(key).toString(), Hand::NameOf(combo)));
  Hand::Press(front, key);
}

void Monkey::UseList(QWidget* front) {
  const QList<QTableView*> lists = Hand::Lists(front);
  if (lists.isEmpty()) return;
  QTableView* list = OneOf(lists);
  const int rows = list->model()->rowCount();
  const int columns = list->model()->columnCount();
  if (rows == 0 || columns == 0) return;
  const QModelIndex cell =
      list->model()->index(static_cast<int>(Random(static_cast<unsigned>(qMin(rows, 12)))),
                           static_cast<int>(Random(static_cast<unsigned>(columns))));
  const QRect place = list->visualRect(cell).intersected(list->viewport()->rect());
  if (place.isEmpty()) return;
  const unsigned how = Random(10);
  const char* kind = how < 6 ? "clicks" : how < 8 ? "double clicks" : "right clicks";
  steps_.Add(QStringLiteral("%1 %2 row %3, column %4 \"%5\"")
                 .arg(QLatin1StringView(kind), Hand::NameOf(list))
                 .arg(cell.row())
                 .arg(cell.column())
                 .arg(cell.data().toString()));
  if (how >= 8) return Hand::RightClick(list, place.center());
  const Qt::KeyboardModifiers with = OneOf(std::array{
      Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier});
  const QPointer<QTableView> there(list);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, how < 6 ? with : Qt::NoModifier,
                    place.center());
  if (how >= 6 && there && Hand::Front(&window_) == front)
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place.center());
}

void Monkey::UseTab(QWidget* front) {
  const QList<QTabBar*> bars = Hand::TabBars(front);
  if (bars.isEmpty()) return;
  QTabBar* bar = OneOf(bars);
  if (bar->count() == 0) return;
  const int tab = static_cast<int>(Random(static_cast<unsigned>(bar->count())));
  steps_.Add(QStringLiteral("tab ") + bar->tabText(tab));
  QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(tab).center());
}

void Monkey::PressSome(QWidget* front) {
  static const Stroke strokes[] = {
      {Qt::Key_Tab, {}},
      {Qt::Key_Tab, {}},
      {Qt::Key_Backtab, Qt::ShiftModifier},
      {Qt::Key_Return, {}},
      {Qt::Key_Return, {}},
      {Qt::Key_Escape, {}},
      {Qt::Key_Space, {}},
      {Qt::Key_Space, {}},
      {Qt::Key_Down, {}},
      {Qt::Key_Down, {}},
      {Qt::Key_Up, {}},
      {Qt::Key_Right, {}},
      {Qt::Key_PageDown, {}},
      {Qt::Key_Home, {}},
      {Qt::Key_F2, {}},
      {Qt::Key_F5, {}},
      {Qt::Key_Delete, {}},
      {Qt::Key_A, Qt::ControlModifier},
      {Qt::Key_C, Qt::ControlModifier},
      {Qt::Key_N, Qt::ControlModifier},
      {Qt::Key_S, Qt::ControlModifier},
      {Qt::Key_F, Qt::ControlModifier},
      {Qt::Key_K, Qt::ControlModifier},
      {Qt::Key_P, Qt::ControlModifier},
      {Qt::Key_W, Qt::ControlModifier},
      {Qt::Key_Tab, Qt::ControlModifier},
      {Qt::Key_1, Qt::ControlModifier},
      {Qt::Key_Z, Qt::ControlModifier},
      {Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier},
      {Qt::Key_Down, Qt::AltModifier},
      {Qt::Key_Up, Qt::AltModifier},
      {Qt::Key_Down, Qt::ShiftModifier},
  };
  Stroke stroke = OneOf(strokes);
  if (Random(5) == 0)
    stroke = {static_cast<int>(Qt::Key_A) + static_cast<int>(Random(26)), Qt::AltModifier};
  steps_.Add(QStringLiteral("%1 to %2 of %3")
                 .arg(QKeySequence(QKeyCombination(stroke.with, static_cast<Qt::Key>(stroke.key)))
                          .toString(),
                      Hand::NameOf(QApplication::focusWidget()), Hand::NameOf(front)));
  Hand::Press(front, stroke.key, stroke.with);
}

}  // namespace quillary::monkey
