#pragma once

#include "base/DateRange.h"
#include "data/Business.h"

#include <vector>

/// The days that lists and reports are asked for.
namespace quillary {

/// Days under the words by which they are offered.
struct NamedPeriod {
  QString words;
  DateRange days;
};
/// This and last month, quarter, calendar year and financial year, which begins in the month in
/// which `financialYearStarting` lies; July where there is none.
std::vector<NamedPeriod> ProposedPeriods(QDate today, QDate financialYearStarting);
/// Those of the business, from today.
std::vector<NamedPeriod> ProposedPeriods(Business& business);

/// The calendar months that the days touch, the first and last one cut to the days.
std::vector<DateRange> MonthsOf(const DateRange& days);
/// "Nov 2026".
QString MonthWords(const DateRange& month);

/// The same days a year earlier; a range that ends with a month ends with that month there too.
DateRange YearBefore(const DateRange& days);

}  // namespace quillary
