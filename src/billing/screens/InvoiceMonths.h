#pragma once

#include "diary/JobPicker.h"

class QComboBox;

namespace quillary::billing {

/// The months of three years, with that of `today` picked.
void FillWithMonths(QComboBox* combo, QDate today);
/// The days of an entry of that list.
diary::MonthChoice MonthAt(QDate today, int entry);

}  // namespace quillary::billing
