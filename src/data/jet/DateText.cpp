#include "data/jet/DateText.h"

#include <QLocale>
#include <QString>

#include <algorithm>
#include <array>
#include <vector>

namespace quillary::jet {
namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c | 0x20) >= 'a' && (c | 0x20) <= 'z';
}

/// 1 to 12 for "Mar" or "march"; three letters at least.
std::optional<int> MonthOf(std::string_view word) {
  constexpr std::array<std::string_view, 12> kMonths{
      "january", "february", "march",     "april",   "may",      "june",
      "july",    "august",   "september", "october", "november", "december"};
  if (word.size() < 3) return std::nullopt;
  for (size_t month = 0; month < kMonths.size(); ++month) {
    const std::string_view name = kMonths[month];
    if (word.size() > name.size()) continue;
    const bool begins = std::equal(word.begin(), word.end(), name.begin(),
                                   [](char have, char want) { return (have | 0x20) == want; });
    if (begins) return static_cast<int>(month) + 1;
  }
  return std::nullopt;
}

int FullYear(int year) {
  if (year >= 100) return year;
  return year < 30 ? year + 2000 : year + 1900;
}

/// Reads one text from left to right.
class Reader {
 public:
  Reader(std::string_view text, bool dayFirst)
      : at_(text.data()), end_(text.data() + text.size()), dayFirst_(dayFirst) {}

  std::optional<DateTime> Read() {
    if (!TakeParts()) return std::nullopt;
    DateTime moment(DayZero());
    if (!numbers_.empty() || month_) {
      const QDate date = month_ ? NamedDate() : FigureDate();
      // Stored dates have four digits for the year, so that they sort as texts.
      if (!date.isValid() || date.year() > 9999) return std::nullopt;
      moment.date = date;
    } else if (!time_) {
      return std::nullopt;
    }
    if (time_) moment.time = *time_;
    return moment;
  }

 private:
  bool TakeParts() {
    for (SkipBlanks(); at_ < end_; SkipBlanks()) {
      // Nothing but its half of the day follows a time.
      if (time_) return false;
      if (IsDigit(*at_)) {
        const auto number = TakeNumber();
        if (!number || !TakeTimeOrPart(*number)) return false;
      } else if (IsLetter(*at_)) {
        if (!TakeWord()) return false;
      } else if (!TakeSign()) {
        return false;
      }
    }
    return true;
  }

  void SkipBlanks() {
    while (at_ < end_ && *at_ == ' ') ++at_;
  }

  std::optional<int> TakeNumber() {
    int number = 0;
    int digits = 0;
    for (; at_ < end_ && IsDigit(*at_) && digits < 5; ++at_, ++digits) {
      number = number * 10 + (*at_ - '0');
    }
    if (digits == 0) return std::nullopt;
    return number;
  }

  bool TakeTimeOrPart(int number) {
    const char* const after = at_;
    SkipBlanks();
    const bool hasHalf = end_ - at_ >= 2 && IsHalfOfDay();
    at_ = after;
    if (hasHalf || (at_ < end_ && *at_ == ':')) return TakeTime(number);
    numbers_.push_back(number);
    return true;
  }

  bool IsHalfOfDay() const {
    const char half = static_cast<char>(at_[0] | 0x20);
    return (half == 'a' || half == 'p') && (at_[1] | 0x20) == 'm' &&
           (at_ + 2 == end_ || !IsLetter(at_[2]));
  }

  bool TakeTime(int hour) {
    std::array<int, 2> parts{0, 0};
    for (int& part : parts) {
      if (at_ == end_ || *at_ != ':') break;
      ++at_;
      const auto number = TakeNumber();
      if (!number) return false;
      part = *number;
    }
    SkipBlanks();
    if (end_ - at_ >= 2 && IsHalfOfDay()) {
      if (hour < 1 || hour > 12) return false;
      hour = hour % 12 + ((*at_ | 0x20) == 'p' ? 12 : 0);
      at_ += 2;
    }
    const QTime time(hour, parts[0], parts[1]);
    if (!time.isValid()) return false;
    time_ = time;
    return true;
  }

  bool TakeWord() {
    const char* const start = at_;
    while (at_ < end_ && IsLetter(*at_)) ++at_;
    const std::string_view word(start, static_cast<size_t>(at_ - start));
    // Between a date and its time.
    if ((word == "T" || word == "t") && numbers_.size() == 3) return true;
    const auto month = MonthOf(word);
    if (!month || month_) return false;
    month_ = month;
    return true;
  }

  bool TakeSign() {
    const char sign = *at_++;
    if (sign == ',' || sign == '.') return month_.has_value();
    if (sign != '/' && sign != '-') return false;
    if (numbers_.empty() || (!signs_.empty() && signs_.front() != sign)) return false;
    signs_.push_back(sign);
    return true;
  }

  // "5 Mar 2019", "Mar 5, 2019", "2019 Mar 5"; of two small numbers the last is the year.
  QDate NamedDate() const {
    if (numbers_.size() != 2) return {};
    const bool yearFirst = numbers_[0] >= 100;
    const int year = numbers_[yearFirst ? 0 : 1];
    return QDate(FullYear(year), *month_, numbers_[yearFirst ? 1 : 0]);
  }

  QDate FigureDate() const {
    if (numbers_.size() != 3 || signs_.size() != 2) return {};
    const auto [first, second, third] = std::array{numbers_[0], numbers_[1], numbers_[2]};
    if (first >= 100) return QDate(first, second, third);
    const QDate dayFirst(FullYear(third), second, first);
    const QDate monthFirst(FullYear(third), first, second);
    if (dayFirst_) return dayFirst.isValid() ? dayFirst : monthFirst;
    return monthFirst.isValid() ? monthFirst : dayFirst;
  }

  const char* at_;
  const char* end_;
  bool dayFirst_;
  std::vector<int> numbers_;
  std::vector<char> signs_;
  std::optional<int> month_;
  std::optional<QTime> time_;
};

}  // namespace

std::optional<DateTime> ReadDateLiteral(std::string_view text) {
  return Reader(text, false).Read();
}

std::optional<DateTime> ReadDateText(QStringView text) {
  bool isNumber = false;
  static_cast<void>(text.toDouble(&isNumber));
  if (isNumber) return std::nullopt;
  const QByteArray bytes = text.trimmed().toLatin1();
  const auto moment = Reader({bytes.data(), static_cast<size_t>(bytes.size())}, true).Read();
  if (moment) return moment;
  // A text without a year means none here: what is stored must not hang on the day it is typed.
  const QDate thisYear(2000, 1, 1);
  const QDate otherYear(2001, 1, 1);
  const auto date = ParseDate(text, thisYear, DateOrder::DayFirst);
  if (!date || date != ParseDate(text, otherYear, DateOrder::DayFirst)) return std::nullopt;
  return DateTime(*date);
}

QString GeneralDate(const DateTime& moment) {
  const QLocale english(QLocale::English);
  const QString time = english.toString(moment.time, QStringLiteral("h:mm:ss AP"));
  if (moment.date == DayZero()) return time;
  const QString date = english.toString(moment.date, QStringLiteral("d/MM/yyyy"));
  return moment.time == QTime(0, 0) ? date : date + u' ' + time;
}

}  // namespace quillary::jet
