#pragma once

#include "base/DateRange.h"
#include "data/Business.h"

/// The words that the headings of several reports share.
namespace quillary::reports {

/// "Quillary System".
QString SystemName();
/// "GST inc.": the tax that an amount contains, in the country's word.
QString TaxHeading(const Business& business);
/// "01-Nov-2026 to 30-Nov-2026".
QString RangeWords(const DateRange& days);
/// "From 01-Nov-2026 to 30-Nov-2026".
QString FromTo(const DateRange& days);

}  // namespace quillary::reports
