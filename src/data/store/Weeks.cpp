#include "data/store/Weeks.h"

#include "data/store/SqlArguments.h"

#include <algorithm>

namespace quillary {

Weeks::Weeks(qint64 firstDay, qint64 firstWeek)
    : firstDay_(static_cast<int>(std::max(firstDay, qint64{1}))),
      firstWeek_(static_cast<First>(std::max(firstWeek, qint64{1}))) {
  if (firstDay < 0 || firstDay > 7) throw WrongArgument("there is no such day of the week");
  if (firstWeek < 0 || firstWeek > 3) throw WrongArgument("there is no such first week of a year");
}

qint64 Weeks::NumberOf(QDate date) const {
  // Day 0 of the Julian count is a Monday.
  return (date.toJulianDay() + 9 - firstDay_) / 7;
}

int Weeks::DayOfWeek(QDate date) const {
  return static_cast<int>((date.toJulianDay() + 9 - firstDay_) % 7) + 1;
}

qint64 Weeks::FirstOf(int year) const {
  const QDate january(year, 1, 1);
  const int day = DayOfWeek(january);
  const bool counts = firstWeek_ == First::WithFirstOfJanuary ||
                      (firstWeek_ == First::WithFourDays ? day <= 4 : day == 1);
  return NumberOf(january) + (counts ? 0 : 1);
}

int Weeks::WeekOfYear(QDate date) const {
  const qint64 number = NumberOf(date);
  qint64 first = FirstOf(date.year());
  if (firstWeek_ != First::WithFirstOfJanuary) {
    if (number < first) first = FirstOf(date.year() - 1);
    if (number >= FirstOf(date.year() + 1)) first = FirstOf(date.year() + 1);
  }
  return static_cast<int>(number - first) + 1;
}

}  // namespace quillary
