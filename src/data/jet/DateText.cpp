#include "data/jet/DateText.h"

#include <QString>

#include <array>

namespace quillary::jet {
namespace {

/// Walks over digits and signs; every reader says whether it found what it looked for.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : at_(text.data()), end_(text.data() + text.size()) {}

  void SkipBlanks() {
    while (at_ < end_ && *at_ == ' ') ++at_;
  }
  bool AtEnd() const { return at_ == end_; }
  bool Take(char sign) {
    if (at_ == end_ || *at_ != sign) return false;
    ++at_;
    return true;
  }
  std::optional<int> TakeNumber() {
    int number = 0;
    int digits = 0;
    for (; at_ < end_ && *at_ >= '0' && *at_ <= '9' && digits < 5; ++at_, ++digits) {
      number = number * 10 + (*at_ - '0');
    }
    if (digits == 0) return std::nullopt;
    return number;
  }
  /// 'A' for AM, 'P' for PM, or nothing.
  char TakeHalfOfDay() {
    if (end_ - at_ < 2 || (at_[1] | 0x20) != 'm') return 0;
    const char half = static_cast<char>(at_[0] & ~0x20);
    if (half != 'A' && half != 'P') return 0;
    at_ += 2;
    return half;
  }

 private:
  const char* at_;
  const char* end_;
};

std::optional<QTime> TakeTime(Cursor& cursor, int hour) {
  std::array<int, 2> parts{0, 0};
  bool isTime = false;
  for (int& part : parts) {
    if (!cursor.Take(':')) break;
    const auto number = cursor.TakeNumber();
    if (!number) return std::nullopt;
    part = *number;
    isTime = true;
  }
  cursor.SkipBlanks();
  if (const char half = cursor.TakeHalfOfDay()) {
    if (hour < 1 || hour > 12) return std::nullopt;
    hour = hour % 12 + (half == 'P' ? 12 : 0);
    isTime = true;
  }
  const QTime time(hour, parts[0], parts[1]);
  if (!isTime || !time.isValid()) return std::nullopt;
  return time;
}

QDate OrderedDate(int first, int second, int third, bool dayFirst) {
  if (first >= 100) return QDate(first, second, third);
  if (third < 100) third += third < 30 ? 2000 : 1900;
  return dayFirst ? QDate(third, second, first) : QDate(third, first, second);
}

std::optional<DateTime> Read(std::string_view text, bool dayFirst) {
  Cursor cursor(text);
  cursor.SkipBlanks();
  const auto first = cursor.TakeNumber();
  if (!first) return std::nullopt;
  DateTime moment(QDate(1899, 12, 30));
  const char sign = cursor.Take('/') ? '/' : cursor.Take('-') ? '-' : 0;
  std::optional<int> hour = first;
  if (sign != 0) {
    const auto second = cursor.TakeNumber();
    if (!second || !cursor.Take(sign)) return std::nullopt;
    const auto third = cursor.TakeNumber();
    if (!third) return std::nullopt;
    moment.date = OrderedDate(*first, *second, *third, dayFirst);
    cursor.Take('T');
    cursor.SkipBlanks();
    hour = cursor.AtEnd() ? std::optional<int>() : cursor.TakeNumber();
    if (!hour && !cursor.AtEnd()) return std::nullopt;
  }
  if (hour) {
    const auto time = TakeTime(cursor, *hour);
    if (!time) return std::nullopt;
    moment.time = *time;
  }
  cursor.SkipBlanks();
  // Stored dates have four digits for the year, so that they sort as texts.
  if (moment.date.year() > 9999) return std::nullopt;
  if (!cursor.AtEnd() || !moment.IsValid()) return std::nullopt;
  return moment;
}

}  // namespace

std::optional<DateTime> ReadDateLiteral(std::string_view text) {
  return Read(text, false);
}

std::optional<DateTime> ReadDateText(QStringView text) {
  const QByteArray bytes = text.trimmed().toLatin1();
  const bool onlyNumber =
      bytes.indexOf('/') < 0 && bytes.indexOf('-') < 0 && bytes.indexOf(':') < 0;
  if (!onlyNumber) {
    const auto moment = Read({bytes.data(), static_cast<size_t>(bytes.size())}, true);
    if (moment) return moment;
  }
  bool isNumber = false;
  static_cast<void>(text.toDouble(&isNumber));
  if (isNumber) return std::nullopt;
  // A text without a year means none here: what is stored must not hang on the day it is typed.
  const QDate thisYear(2000, 1, 1);
  const QDate otherYear(2001, 1, 1);
  const auto date = ParseTypedDate(text, thisYear);
  if (!date || date != ParseTypedDate(text, otherYear)) return std::nullopt;
  return DateTime(*date);
}

}  // namespace quillary::jet
