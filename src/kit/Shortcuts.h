#pragma once

#include <QKeySequence>
#include <QString>

#include <functional>
#include <vector>

class QAbstractButton;
class QWidget;

namespace quillary {

/// A key and what it does, as the sheet of shortcuts lists it.
struct ShortcutLine {
  QString keys;  // as the desktop writes them, such as "Ctrl+N"
  QString what;
};

/// The keys press the button for as long as the focus is on the screen; the button's tip tells so.
void AddShortcut(QWidget* screen, const QKeySequence& keys, QAbstractButton* button);
/// The keys run what the words tell, for as long as the focus is on the screen.
void AddShortcut(QWidget* screen, const QKeySequence& keys, const QString& what,
                 const std::function<void()>& run);

/// What the keys of the screen do: those it was given, and those of its buttons with their
/// mnemonics. What stands in a window below it has keys of its own and is left out, as are the
/// places of `apart`.
std::vector<ShortcutLine> ShortcutsOf(const QWidget* screen, const QWidget* apart = nullptr);

/// What keys do in every list, date field and dialog.
const std::vector<ShortcutLine>& ShortcutsEverywhere();

}  // namespace quillary
