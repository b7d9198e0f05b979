#pragma once

#include <QDate>

namespace quillary {

/// How weeks are counted: which day begins one (1 is Sunday, 7 Saturday), and which week is the
/// first of a year.
class Weeks {
 public:
  enum class First { WithFirstOfJanuary = 1, WithFourDays = 2, Whole = 3 };

  /// As the dialect's functions are told it, 0 meaning the usual. Throws WrongArgument for what is
  /// none.
  explicit Weeks(qint64 firstDay = 0, qint64 firstWeek = 0);

  /// 1 on the day that begins a week, to 7.
  int DayOfWeek(QDate date) const;
  /// Counts on from week to week through all years.
  qint64 NumberOf(QDate date) const;
  /// Within its year, from 1.
  int WeekOfYear(QDate date) const;

 private:
  qint64 FirstOf(int year) const;

  int firstDay_;
  First firstWeek_;
};

}  // namespace quillary
