#pragma once

#include <QObject>

namespace quillary {

/// What holds for the keys and the wheel on every screen of the program:
/// - the wheel scrolls the page and never changes a value in passing;
/// - a letter with Alt that no control answers to, such as the mnemonic of a disabled one, is not
///   typed into the field that has the focus.
class InputHabits : public QObject {
  Q_OBJECT

 public:
  /// Once for the process.
  static void Install();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;
};

}  // namespace quillary
