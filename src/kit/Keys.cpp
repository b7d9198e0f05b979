#include "kit/Keys.h"

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
}

bool KeyFilter::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const QString typed = static_cast<QKeyEvent*>(event)->text();
  if (typed.isEmpty() || !typed.at(0).isPrint()) return false;
  return FilterKey(typed.at(0).unicode(), field_->text(), mode_) == 0;
}

void SelectAllText(QLineEdit* field) {
  new SelectOnEntry(field);
}

}  // namespace quillary
