#pragma once

#include "base/DateRange.h"

#include <QString>

#include <vector>

/// The days that reports are asked for.
namespace quillary::reports {

/// Days under the words by which they are offered.
struct NamedPeriod {
  QString words;
  DateRange days;
};
/// This and last month, quarter, calendar year and financial year, which begins in the month in
/// which `financialYearStarting` lies; July where there is none.
std::vector<NamedPeriod> ProposedPeriods(QDate today, QDate financialYearStarting);

/// The calendar months that the days touch, the first and last one cut to the days.
std::vector<DateRange> MonthsOf(const DateRange& days);
/// "Nov 2026".
QString MonthWords(const DateRange& month);

/// The same days a year earlier; a range that ends with a month ends with that month there too.
DateRange YearBefore(const DateRange& days);

}  // namespace quillary::reports
