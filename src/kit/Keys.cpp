#include "kit/Keys.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

namespace quillary {

namespace {

class SelectOnEntry : public QObject {
 public:
  explicit SelectOnEntry(QLineEdit* field) : QObject(field), field_(field) {
    field->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    // After the click that gave the focus has placed its cursor.
    if (event->type() == QEvent::FocusIn) QTimer::singleShot(0, field_, &QLineEdit::selectAll);
    return false;
  }

 private:
  QLineEdit* field_;
};

}  // namespace

int FilterKey(int keyCode, const QString& currentText, KeyMode mode) {
  if (keyCode == 13) return 0;
  if (keyCode >= 1 && keyCode <= 30) return keyCode;
  if (keyCode >= '0' && keyCode <= '9') return keyCode;
  if (mode == KeyMode::DigitsAndSlash && keyCode == '/') return keyCode;
  const bool once = keyCode == '.' || keyCode == '-';
  if (mode == KeyMode::Number && once && !currentText.contains(QChar(keyCode))) return keyCode;
  return 0;
}

KeyFilter::KeyFilter(QLineEdit* field, KeyMode mode) : QObject(field), field_(field), mode_(mode) {
  field->installEventFilter(this);
  // An editable list has the focus itself and hands its keys on past every filter of its line.
  if (auto* combo = qobject_cast<QComboBox*>(field->parentWidget()))
    combo->installEventFilter(this);
}

bool KeyFilter::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto* key = static_cast<QKeyEvent*>(event);
  const QString typed = key->text();
  if (typed.isEmpty() || !typed.at(0).isPrint()) return false;
  if (key->modifiers() & Qt::ControlModifier) return false;
  // What is selected goes as the key comes.
  QString kept = field_->text();
  if (field_->hasSelectedText()) kept.remove(field_->selectionStart(), field_->selectionLength());
  return FilterKey(typed.at(0).unicode(), kept, mode_) == 0;
}

void SelectAllText(QLineEdit* field) {
  new SelectOnEntry(field);
}

}  // namespace quillary
