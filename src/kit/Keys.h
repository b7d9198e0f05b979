#pragma once

#include <QObject>
#include <QString>

class QLineEdit;

namespace quillary {

enum class KeyMode { Digits = 0, DigitsAndSlash = 1, Number = 2, DigitsOnly = 3 };

/// The key if it may go into a field of that mode, else 0. Control keys (codes 1 to 30) pass in
/// every mode, except Enter (13), which never reaches a field. `Number` also takes one "." and one
/// "-", given the text that stands there already.
int FilterKey(int keyCode, const QString& currentText, KeyMode mode);

/// Holds the typing in a field against FilterKey.
class KeyFilter : public QObject {
  Q_OBJECT

 public:
  KeyFilter(QLineEdit* field, KeyMode mode);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* field_;
  KeyMode mode_;
};

/// Selects all text whenever the field is entered, by Tab or by a click, so that typing replaces
/// it. Of an editable combo pass its line edit.
void SelectAllText(QLineEdit* field);

}  // namespace quillary
