#include "data/jet/Functions.h"
#include "data/store/SqlArguments.h"
#include "data/store/Weeks.h"

#include <QLocale>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace quillary {
namespace {

namespace names = jet::functions;

constexpr qint64 kSecondsPerDay = 86400;
// Farther apart than any two dates are, in the smallest interval.
constexpr qint64 kLargestStep = 320'000'000'000;

enum class Interval { Year, Quarter, Month, DayOfYear, Day, Weekday, Week, Hour, Minute, Second };

Interval IntervalOf(const QString& letters) {
  struct Named {
    const char16_t* letters;
    Interval interval;
  };
  constexpr std::array<Named, 10> kIntervals{{{u"yyyy", Interval::Year},
                                              {u"q", Interval::Quarter},
                                              {u"m", Interval::Month},
                                              {u"y", Interval::DayOfYear},
                                              {u"d", Interval::Day},
                                              {u"w", Interval::Weekday},
                                              {u"ww", Interval::Week},
                                              {u"h", Interval::Hour},
                                              {u"n", Interval::Minute},
                                              {u"s", Interval::Second}}};
  const auto* found = std::find_if(kIntervals.begin(), kIntervals.end(), [&](const Named& each) {
    return letters.compare(QStringView(each.letters), Qt::CaseInsensitive) == 0;
  });
  if (found == kIntervals.end()) {
    throw WrongArgument("\"" + letters.left(40).toStdString() + "\" is no interval of dates");
  }
  return found->interval;
}

Value Checked(const DateTime& moment) {
  if (!moment.IsValid() || moment.date.year() < 100 || moment.date.year() > 9999) {
    throw WrongArgument("there is no such date");
  }
  return moment;
}

qint64 SecondsOf(const DateTime& moment) {
  return moment.date.toJulianDay() * kSecondsPerDay + QTime(0, 0).secsTo(moment.time);
}

DateTime MomentOf(qint64 seconds) {
  return {QDate::fromJulianDay(seconds / kSecondsPerDay),
          QTime(0, 0).addSecs(static_cast<int>(seconds % kSecondsPerDay))};
}

// The last day of a shorter month stands for those that it lacks.
Value DateAdd(const SqlArguments& arguments) {
  const Interval interval = IntervalOf(arguments.Text(0));
  const qint64 number = arguments.Long(1);
  const DateTime from = arguments.Moment(2);
  if (std::abs(number) > kLargestStep) throw WrongArgument("there is no such date");
  const auto months = [&](qint64 count) {
    constexpr qint64 kMost = 120'000;
    const int within = static_cast<int>(std::clamp(count, -kMost, kMost));
    return Checked({from.date.addMonths(within), from.time});
  };
  const auto seconds = [&](qint64 each) {
    return Checked(MomentOf(SecondsOf(from) + number * each));
  };
  switch (interval) {
    case Interval::Year:
      return months(number * 12);
    case Interval::Quarter:
      return months(number * 3);
    case Interval::Month:
      return months(number);
    case Interval::DayOfYear:
    case Interval::Day:
    case Interval::Weekday:
      return Checked({from.date.addDays(number), from.time});
    case Interval::Week:
      return Checked({from.date.addDays(number * 7), from.time});
    case Interval::Hour:
      return seconds(3600);
    case Interval::Minute:
      return seconds(60);
    case Interval::Second:
      break;
  }
  return seconds(1);
}

// How many borders between intervals lie between the two, but for 'w': how many whole weeks.
Value DateDiff(const SqlArguments& arguments) {
  const Interval interval = IntervalOf(arguments.Text(0));
  const DateTime from = arguments.Moment(1);
  const DateTime to = arguments.Moment(2);
  const Weeks weeks(arguments.Long(3, 0));
  const auto months = [](const DateTime& moment) {
    return qint64{moment.date.year()} * 12 + moment.date.month() - 1;
  };
  const auto steps = [&](qint64 seconds) {
    return SecondsOf(to) / seconds - SecondsOf(from) / seconds;
  };
  switch (interval) {
    case Interval::Year:
      return to.date.year() - from.date.year();
    case Interval::Quarter:
      return months(to) / 3 - months(from) / 3;
    case Interval::Month:
      return months(to) - months(from);
    case Interval::DayOfYear:
    case Interval::Day:
      return from.date.daysTo(to.date);
    case Interval::Weekday:
      return from.date.daysTo(to.date) / 7;
    case Interval::Week:
      return weeks.NumberOf(to.date) - weeks.NumberOf(from.date);
    case Interval::Hour:
      return steps(3600);
    case Interval::Minute:
      return steps(60);
    case Interval::Second:
      break;
  }
  return steps(1);
}

Value DatePart(const SqlArguments& arguments) {
  const Interval interval = IntervalOf(arguments.Text(0));
  const DateTime moment = arguments.Moment(1);
  const Weeks weeks(arguments.Long(2, 0), arguments.Long(3, 0));
  switch (interval) {
    case Interval::Year:
      return moment.date.year();
    case Interval::Quarter:
      return (moment.date.month() + 2) / 3;
    case Interval::Month:
      return moment.date.month();
    case Interval::DayOfYear:
      return moment.date.dayOfYear();
    case Interval::Day:
      return moment.date.day();
    case Interval::Weekday:
      return weeks.DayOfWeek(moment.date);
    case Interval::Week:
      return weeks.WeekOfYear(moment.date);
    case Interval::Hour:
      return moment.time.hour();
    case Interval::Minute:
      return moment.time.minute();
    case Interval::Second:
      break;
  }
  return moment.time.second();
}

Value DateSerial(const SqlArguments& arguments) {
  qint64 year = arguments.Long(0);
  if (year >= 0 && year < 100) year += year < 30 ? 2000 : 1900;
  // Far more than a month or day that is meant, and far less than overflows.
  constexpr qint64 kMost = 10'000'000;
  const qint64 month = std::clamp(arguments.Long(1), -kMost, kMost);
  if (year < 100 || year > 9999) throw WrongArgument("there is no such date");
  const QDate january(static_cast<int>(year), 1, 1);
  return Checked(january.addMonths(static_cast<int>(month - 1)).addDays(arguments.Long(2) - 1));
}

Value TimeSerial(const SqlArguments& arguments) {
  const qint64 seconds = arguments.Long(0) * 3600 + arguments.Long(1) * 60 + arguments.Long(2);
  return Checked(MomentOf(SecondsOf(QDate(1899, 12, 30)) + seconds));
}

QLocale::FormatType FormOf(const SqlArguments& arguments) {
  return arguments.Long(1, 0) != 0 ? QLocale::ShortFormat : QLocale::LongFormat;
}

Value MonthName(const SqlArguments& arguments) {
  const qint64 month = arguments.Long(0);
  if (month < 1 || month > 12) throw WrongArgument("there is no such month");
  return QLocale(QLocale::English).monthName(static_cast<int>(month), FormOf(arguments));
}

Value WeekdayName(const SqlArguments& arguments) {
  const qint64 day = arguments.Long(0);
  const qint64 first = std::max(arguments.Long(2, 1), qint64{1});
  if (day < 1 || day > 7 || first > 7) throw WrongArgument("there is no such day of the week");
  // Qt counts from Monday.
  const int number = static_cast<int>((day + first - 3 + 7) % 7) + 1;
  return QLocale(QLocale::English).dayName(number, FormOf(arguments));
}

}  // namespace

void RegisterDateFunctions(sqlite3* database) {
  RegisterFunction(database, names::kDateAdd, 3, DateAdd);
  RegisterFunction(database, names::kDateDiff, -1, DateDiff);
  RegisterFunction(database, names::kDatePart, -1, DatePart);
  RegisterFunction(database, names::kDateSerial, 3, DateSerial);
  RegisterFunction(database, names::kTimeSerial, 3, TimeSerial);
  RegisterFunction(database, names::kMonthName, -1, MonthName);
  RegisterFunction(database, names::kWeekdayName, -1, WeekdayName);
}

}  // namespace quillary
