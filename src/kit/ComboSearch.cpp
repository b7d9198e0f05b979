#include "kit/ComboSearch.h"

#include "kit/Keys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace quillary {

ComboSearch::ComboSearch(QWidget* parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  lineEdit()->installEventFilter(this);
  SelectAllText(lineEdit());
  connect(this, &QComboBox::activated, this, [this](int index) {
    settled_ = index;
    emit picked(index);
  });
  connect(lineEdit(), &QLineEdit::textEdited, this, &ComboSearch::TakeEdited);
  connect(lineEdit(), &QLineEdit::editingFinished, this, &ComboSearch::Settle);
}

void ComboSearch::SelectComboItem(const QVariant& value) {
  setCurrentIndex(value.isNull() ? -1 : findData(value));
  settled_ = currentIndex();
}

bool ComboSearch::eventFilter(QObject* watched, QEvent* event) {
  if (watched != lineEdit() || event->type() != QEvent::KeyPress)
    return QComboBox::eventFilter(watched, event);
  const auto* key = static_cast<QKeyEvent*>(event);
  if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
    return QComboBox::eventFilter(watched, event);

  const QLineEdit* line = lineEdit();
  const bool selected = line->hasSelectedText();
  const int start = selected ? line->selectionStart() : line->cursorPosition();
  const QString tail = line->text().mid(selected ? line->selectionEnd() : start);
  if (!key->text().isEmpty() && key->text().at(0).isPrint()) {
    Search(line->text().left(start) + key->text(), tail);
    return true;
  }
  // A backspace takes the last typed letter, not the proposed rest. What the user selected himself
  // it takes as everywhere.
  const bool typed = !selected || (start == proposedFrom_ && tail.isEmpty());
  if (key->key() != Qt::Key_Backspace || start == 0 || !typed)
    return QComboBox::eventFilter(watched, event);
  Search(line->text().left(start - 1), tail);
  return true;
}

void ComboSearch::Search(const QString& typed, const QString& tail) {
  // A rest is proposed only to what ends with the cursor; in the middle it would overwrite letters.
  const QString text = typed + tail;
  const auto how = tail.isEmpty() ? Qt::MatchStartsWith : Qt::MatchFixedString;
  const int match = text.isEmpty() ? -1 : findText(text, how);  // ignores case by itself
  const int cursor = static_cast<int>(typed.size());
  proposedFrom_ = -1;
  setCurrentIndex(match);
  lineEdit()->setText(match < 0 ? text : itemText(match));
  lineEdit()->setCursorPosition(cursor);
  if (match < 0 || !tail.isEmpty()) return;
  const int whole = static_cast<int>(lineEdit()->text().size());
  lineEdit()->setSelection(whole, cursor - whole);
  proposedFrom_ = cursor;
}

void ComboSearch::TakeEdited(const QString& text) {
  if (currentIndex() < 0 || text == itemText(currentIndex())) return;
  const int cursor = lineEdit()->cursorPosition();
  setCurrentIndex(-1);  // empties the line
  lineEdit()->setText(text);
  lineEdit()->setCursorPosition(cursor);
}

void ComboSearch::Settle() {
  // Typed whole, perhaps in other letters, it is the entry as well. What matches none stays typed.
  const int match = currentIndex() < 0 ? findText(lineEdit()->text(), Qt::MatchFixedString) : -1;
  if (match >= 0) setCurrentIndex(match);
  if (currentIndex() == settled_) return;
  settled_ = currentIndex();
  emit picked(settled_);
}

void ComboSearch::focusOutEvent(QFocusEvent* event) {
  QComboBox::focusOutEvent(event);
  Settle();
}

}  // namespace quillary
