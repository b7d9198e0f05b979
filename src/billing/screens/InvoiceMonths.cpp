#include "billing/screens/InvoiceMonths.h"

#include "kit/Combos.h"

#include <QComboBox>

namespace quillary {

void FillWithMonths(QComboBox* combo, QDate today) {
  QStringList words;
  for (const MonthChoice& month : ListPickerMonths(today)) words += month.words;
  FillComboWithWords(combo, words);
  combo->setCurrentIndex(static_cast<int>(PickerMonthOf(today, today).value_or(0)));
}

MonthChoice MonthAt(QDate today, int entry) {
  return ListPickerMonths(today).at(static_cast<size_t>(entry));
}

}  // namespace quillary
