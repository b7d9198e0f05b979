#include "data/jet/DateText.h"
#include "data/jet/Translator.h"

#include <cmath>
#include <limits>

namespace quillary::jet {
namespace {

constexpr qint64 kSecondsPerDay = 86400;

std::optional<DateTime> MomentOfNumber(double days) {
  if (!std::isfinite(days) || std::fabs(days) > 3'000'000) return std::nullopt;
  const double whole = std::floor(days);
  const qint64 seconds = std::llround((days - whole) * kSecondsPerDay);
  const QDate date = DayZero().addDays(static_cast<qint64>(whole) + seconds / kSecondsPerDay);
  if (date.year() < 100 || date.year() > 9999) return std::nullopt;
  return DateTime(date, QTime(0, 0).addSecs(static_cast<int>(seconds % kSecondsPerDay)));
}

double NumberOfMoment(const DateTime& moment) {
  return static_cast<double>(DayZero().daysTo(moment.date)) +
         QTime(0, 0).secsTo(moment.time) / static_cast<double>(kSecondsPerDay);
}

// A moment goes into a number as its count of days; all else as it reads.
std::optional<Value> NumberIn(const Value& value) {
  if (const auto* moment = std::get_if<DateTime>(&value.variant())) {
    return NumberOfMoment(*moment);
  }
  if (std::holds_alternative<bool>(value.variant()) || value.IsNumeric()) return value;
  return std::nullopt;
}

std::optional<Value> ToWhole(const Value& value) {
  const auto number = NumberIn(value);
  if (!number) return std::nullopt;
  const double rounded = RoundHalfEven(number->ToDouble(), 0);
  using Limits = std::numeric_limits<qint32>;
  if (!(rounded >= Limits::min() && rounded <= Limits::max())) return std::nullopt;
  return number->ToLong();
}

std::optional<Value> ToFraction(const Value& value) {
  const auto number = NumberIn(value);
  if (!number) return std::nullopt;
  return number->ToDouble();
}

std::optional<Value> ToCurrency(const Value& value) {
  if (value.IsText()) {
    const auto amount = Money::Parse(std::get<QString>(value.variant()));
    if (amount) return *amount;
  }
  const auto number = NumberIn(value);
  // Beyond this an amount would leave the range that ten-thousandths in 64 bits can hold.
  if (!number || std::fabs(number->ToDouble()) > 9.2e14) return std::nullopt;
  return number->ToMoney();
}

std::optional<Value> ToMoment(const Value& value) {
  if (value.IsDate()) return value;
  if (value.IsText()) {
    const auto moment = ReadDateText(std::get<QString>(value.variant()));
    if (moment) return *moment;
  }
  if (!value.IsNumeric()) return std::nullopt;
  const auto moment = MomentOfNumber(value.ToDouble());
  if (!moment) return std::nullopt;
  return *moment;
}

std::optional<Value> ToYesNo(const Value& value) {
  if (value.IsText()) {
    const QString word = std::get<QString>(value.variant()).trimmed().toLower();
    if (word == u"true" || word == u"yes" || word == u"on") return true;
    if (word == u"false" || word == u"no" || word == u"off") return false;
  }
  const auto number = NumberIn(value);
  if (!number) return std::nullopt;
  return number->ToDouble() != 0;
}

QString ToText(const Value& value) {
  if (const auto* yes = std::get_if<bool>(&value.variant())) {
    return *yes ? QStringLiteral("-1") : QStringLiteral("0");
  }
  if (const auto* moment = std::get_if<DateTime>(&value.variant())) return GeneralDate(*moment);
  return value.ToText();
}

Value ReadingOf(Reading reading, const std::optional<DateTime>& now) {
  if (!now) throw ValueError("there is no clock to ask");
  switch (reading) {
    case Reading::Date:
      return now->date;
    case Reading::Time:
      return DateTime(DayZero(), now->time);
    case Reading::Now:
      break;
  }
  return *now;
}

}  // namespace

Value ValueOf(const Parameter& parameter, const std::vector<Value>& literals,
              const std::optional<DateTime>& now) {
  if (parameter.reading) return ReadingOf(*parameter.reading, now);
  const Value& literal = literals.at(static_cast<size_t>(parameter.literal));
  const std::optional<Value> value =
      parameter.convertTo ? Convert(literal, *parameter.convertTo) : std::optional(literal);
  if (!value) {
    throw ValueError("\"" + literal.ToText().left(40).toStdString() +
                     "\" does not go with the type of its column");
  }
  if (parameter.divides && !value->IsNull() && value->ToDouble() == 0) {
    throw ValueError("division by zero");
  }
  return *value;
}

std::optional<Value> Convert(const Value& value, ColumnType type) {
  if (value.IsNull()) {
    if (type == ColumnType::YesNo) return false;
    return value;
  }
  switch (type) {
    case ColumnType::Counter:
    case ColumnType::Long:
      return ToWhole(value);
    case ColumnType::Single:
    case ColumnType::Double:
      return ToFraction(value);
    case ColumnType::Currency:
      return ToCurrency(value);
    case ColumnType::Date:
      return ToMoment(value);
    case ColumnType::YesNo:
      return ToYesNo(value);
    case ColumnType::Text:
    case ColumnType::Memo:
      return ToText(value);
  }
  return std::nullopt;
}

}  // namespace quillary::jet
