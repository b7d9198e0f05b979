#include "billing/screens/InvoiceMonths.h"

#include "kit/Combos.h"

#include <QComboBox>

namespace quillary::billing {

void FillWithMonths(QComboBox* combo, QDate today) {
  QStringList words;
  for (const diary::MonthChoice& month : diary::ListPickerMonths(today)) words += month.words;
  FillComboWithWords(combo, words);
  combo->setCurrentIndex(static_cast<int>(diary::PickerMonthOf(today, today).value_or(0)));
}

diary::MonthChoice MonthAt(QDate today, int entry) {
  return diary::ListPickerMonths(today).at(static_cast<size_t>(entry));
}

}  // namespace quillary::billing
