#pragma once

#include <QDate>
#include <QString>
#include <QTime>

#include <optional>

namespace quillary {

/// A moment on the wall clock of the business. It has no time zone: a job at nine is at nine.
struct DateTime {
  QDate date;
  QTime time = QTime(0, 0);

  DateTime() = default;
  DateTime(QDate day) : date(day) {}  // NOLINT: a day is the moment at which it begins
  DateTime(QDate day, QTime clock) : date(day), time(clock) {}

  bool IsValid() const { return date.isValid() && time.isValid(); }
  bool operator==(const DateTime& other) const { return date == other.date && time == other.time; }
  bool operator!=(const DateTime& other) const { return !(*this == other); }
  bool operator<(const DateTime& other) const {
    return date != other.date ? date < other.date : time < other.time;
  }
  bool operator<=(const DateTime& other) const { return !(other < *this); }
  bool operator>(const DateTime& other) const { return other < *this; }
  bool operator>=(const DateTime& other) const { return !(*this < other); }
};

/// "2026-11-02 00:00:00": how a moment is stored, sorted and printed for other programs.
QString ToIsoText(const DateTime& moment);
/// Reads "yyyy-MM-dd HH:mm:ss", the time being optional. Nothing for a date that does not exist.
std::optional<DateTime> FromIsoText(QStringView text);
/// Which figure of "2/11/2026" is the month.
enum class DateOrder { DayFirst, MonthFirst };

/// Reads a date as an owner types it: "2/11/2026" in that order, "2-11-26", "2 Nov 2026",
/// "Nov 2, 2026", "2026-11-02"; with no year, that of `today`. Nothing when it is no date.
std::optional<QDate> ParseDate(QStringView text, QDate today, DateOrder order);
/// In the order of the country of the business.
std::optional<QDate> ParseTypedDate(QStringView text, QDate today);

/// "2 Nov 2026", as dates show in lists.
QString ToShortDateText(QDate date);

}  // namespace quillary
