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
  const bool printing = !key->text().isEmpty() && key->text().at(0).isPrint() &&
                        !(key->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
  if (!printing && key->key() != Qt::Key_Backspace) return QComboBox::eventFilter(watched, event);

  const QLineEdit* line = lineEdit();
  const int start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
  if (printing) {
    Search(line->text().left(start) + key->text());
    return true;
  }
  // A backspace takes the last typed letter, not the proposed rest.
  if (start == 0) return false;
  Search(line->text().left(start - 1));
  return true;
}

void ComboSearch::Search(const QString& typed) {
  const int match =
      typed.isEmpty() ? -1 : findText(typed, Qt::MatchStartsWith);  // ignores case by itself
  if (match < 0) {
    setCurrentIndex(-1);
    lineEdit()->setText(typed);
    return;
  }
  setCurrentIndex(match);
  const QString whole = itemText(match);
  lineEdit()->setText(whole);
  lineEdit()->setSelection(static_cast<int>(whole.size()),
                           static_cast<int>(typed.size() - whole.size()));
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
