#include "domain/Periods.h"

#include <QLocale>

#include <algorithm>

namespace quillary {
namespace {

constexpr int kMonthsOfYear = 12;
constexpr int kMonthsOfQuarter = 3;
constexpr int kUsualStart = 7;

DateRange MonthsFrom(QDate first, int months) {
  return {first, first.addMonths(months).addDays(-1)};
}

QDate FirstOfQuarter(QDate day) {
  return {day.year(), (day.month() - 1) / kMonthsOfQuarter * kMonthsOfQuarter + 1, 1};
}

QDate FirstOfFinancialYear(QDate day, QDate starting) {
  const int month = starting.isValid() ? starting.month() : kUsualStart;
  const QDate first(day.year(), month, 1);
  return first > day ? first.addYears(-1) : first;
}

bool EndsAMonth(QDate day) {
  return day.day() == day.daysInMonth();
}

}  // namespace

std::vector<NamedPeriod> ProposedPeriods(QDate today, QDate financialYearStarting) {
  const QDate month(today.year(), today.month(), 1);
  const QDate quarter = FirstOfQuarter(today);
  const QDate year(today.year(), 1, 1);
  const QDate financial = FirstOfFinancialYear(today, financialYearStarting);
  return {
      {QStringLiteral("This month"), MonthsFrom(month, 1)},
      {QStringLiteral("Last month"), MonthsFrom(month.addMonths(-1), 1)},
      {QStringLiteral("This quarter"), MonthsFrom(quarter, kMonthsOfQuarter)},
      {QStringLiteral("Last quarter"),
       MonthsFrom(quarter.addMonths(-kMonthsOfQuarter), kMonthsOfQuarter)},
      {QStringLiteral("This year"), MonthsFrom(year, kMonthsOfYear)},
      {QStringLiteral("Last year"), MonthsFrom(year.addYears(-1), kMonthsOfYear)},
      {QStringLiteral("This financial year"), MonthsFrom(financial, kMonthsOfYear)},
      {QStringLiteral("Last financial year"), MonthsFrom(financial.addYears(-1), kMonthsOfYear)},
  };
}

std::vector<NamedPeriod> ProposedPeriods(Business& business) {
  return ProposedPeriods(
      business.Today(),
      business.FirstField(Sql("SELECT Financial_Year_Starting FROM infSystem")).ToDate());
}

std::vector<DateRange> MonthsOf(const DateRange& days) {
  std::vector<DateRange> months;
  for (QDate day = days.from; day <= days.to;) {
    const QDate last = std::min(days.to, DateRange::MonthOf(day).to);
    months.push_back({day, last});
    day = last.addDays(1);
  }
  return months;
}

QString MonthWords(const DateRange& month) {
  return QLocale::c().toString(month.from, QStringLiteral("MMM yyyy"));
}

DateRange YearBefore(const DateRange& days) {
  DateRange before{days.from.addYears(-1), days.to.addYears(-1)};
  if (EndsAMonth(days.to)) before.to = DateRange::MonthOf(before.to).to;
  return before;
}

}  // namespace quillary
