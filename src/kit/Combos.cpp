#include "kit/Combos.h"

#include "kit/ComboSearch.h"

namespace quillary {

bool SelectComboItem(QComboBox* combo, const QVariant& value) {
  if (auto* search = qobject_cast<ComboSearch*>(combo))
    search->SelectComboItem(value);
  else
    combo->setCurrentIndex(value.isNull() ? -1 : combo->findData(value));
  // An editable list keeps its last words when the index it leaves was none already.
  if (combo->currentIndex() < 0 && combo->isEditable()) combo->clearEditText();
  return combo->currentIndex() >= 0;
}

std::optional<qint64> ComboKey(const QComboBox* combo) {
  const QVariant data = combo->currentIndex() < 0 ? QVariant() : combo->currentData();
  if (data.isNull()) return std::nullopt;
  return data.toLongLong();
}

void EmptyCombo(QComboBox* combo) {
  const QSignalBlocker quiet(combo);
  combo->clear();
}

void FillComboWithWords(QComboBox* combo, const QStringList& words) {
  EmptyCombo(combo);
  for (const QString& word : words) combo->addItem(word, combo->count());
  SelectComboItem(combo, {});
}

}  // namespace quillary
