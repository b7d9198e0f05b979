#pragma once

#include <QComboBox>

namespace quillary::clients {

/// A list that proposes its entries while one types but takes other words as well, such as a suburb
/// in which nobody has lived before.
class WordCombo : public QComboBox {
  Q_OBJECT

 public:
  explicit WordCombo(const char* name);

  void ShowWords(const QString& words);

 signals:
  /// The user has picked an entry, or left the field with other words than before.
  void wordsTaken(const QString& words);

 private:
  void Take();

  QString taken_;
};

}  // namespace quillary::clients
