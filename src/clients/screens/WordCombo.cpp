#include "clients/screens/WordCombo.h"

#include "kit/Keys.h"

#include <QLineEdit>

namespace quillary::clients {

WordCombo::WordCombo(const char* name) {
  setObjectName(QLatin1StringView(name));
  setEditable(true);
  setInsertPolicy(NoInsert);
  SelectAllText(lineEdit());
  connect(this, &QComboBox::activated, this, &WordCombo::Take);
  connect(lineEdit(), &QLineEdit::editingFinished, this, &WordCombo::Take);
}

void WordCombo::ShowWords(const QString& words) {
  // In whatever letters it is written, an entry is the entry.
  const int at = findText(words, Qt::MatchFixedString);
  setCurrentIndex(at);
  if (at < 0) setEditText(words);
  lineEdit()->setCursorPosition(0);
  taken_ = currentText();
}

void WordCombo::Take() {
  const QString before = taken_;
  ShowWords(currentText());
  if (taken_ != before) emit wordsTaken(taken_);
}

}  // namespace quillary::clients
