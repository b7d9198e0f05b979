#pragma once

#include <QDate>

namespace quillary {

/// The days from one to another, both of them included.
struct DateRange {
  QDate from;
  QDate to;

  static DateRange Of(QDate day) { return {day, day}; }
  static DateRange MonthOf(QDate day) {
    const QDate first(day.year(), day.month(), 1);
    return {first, first.addMonths(1).addDays(-1)};
  }

  /// Both days exist, and it ends no earlier than it begins.
  bool IsValid() const { return from.isValid() && to.isValid() && from <= to; }
  bool IsOneDay() const { return from == to; }
  bool Contains(QDate day) const { return from <= day && day <= to; }

  bool operator==(const DateRange&) const = default;
};

}  // namespace quillary
