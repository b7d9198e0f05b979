#pragma once

#include <QComboBox>

namespace quillary {

/// A list that is picked from by typing the first letters: the first entry that begins with what
/// was typed shows whole, with the rest selected. Without a match the text stays as typed and
/// nothing is picked; nor is it when the text was cut, deleted or pasted over.
class ComboSearch : public QComboBox {
  Q_OBJECT

 public:
  explicit ComboSearch(QWidget* parent = nullptr);

  /// Picks the entry whose data equals the value; none when there is none.
  void SelectComboItem(const QVariant& value);

 signals:
  /// The user picked an entry, or left the field without a match (-1).
  void picked(int index);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  /// Looks for what was typed up to the cursor, with the text behind it.
  void Search(const QString& typed, const QString& tail);
  /// After an edit other than typing: a text that is not the entry's any more picks none.
  void TakeEdited(const QString& text);
  void Settle();

  int settled_ = -1;
  int proposedFrom_ = -1;  // where the proposed rest begins; -1 without one
};

}  // namespace quillary
