#include "base/DateTime.h"

#include "base/CountryHabits.h"

#include <QLocale>
#include <QStringList>

#include <array>

namespace quillary {
namespace {

void PutDigits(QChar* at, int number, int digits) {
  for (int place = digits - 1; place >= 0; --place) {
    at[place] = QChar(u'0' + number % 10);
    number /= 10;
  }
}

std::optional<int> TakeDigits(QStringView text, int from, int digits) {
  int number = 0;
  for (int place = from; place < from + digits; ++place) {
    const char16_t character = text[place].unicode();
    if (character < u'0' || character > u'9') return std::nullopt;
    number = number * 10 + (character - u'0');
  }
  return number;
}

/// "Nov" or longer.
std::optional<int> MonthOfWord(const QString& word) {
  static const QLocale english(QLocale::English);
  for (int month = 1; month <= 12 && word.size() >= 3; ++month)
    if (english.monthName(month).startsWith(word, Qt::CaseInsensitive)) return month;
  return std::nullopt;
}

}  // namespace

QString ToIsoText(const DateTime& moment) {
  int year = 0;
  int month = 0;
  int day = 0;
  moment.date.getDate(&year, &month, &day);
  QString text = QStringLiteral("0000-00-00 00:00:00");
  QChar* at = text.data();
  PutDigits(at, year, 4);
  PutDigits(at + 5, month, 2);
  PutDigits(at + 8, day, 2);
  PutDigits(at + 11, moment.time.hour(), 2);
  PutDigits(at + 14, moment.time.minute(), 2);
  PutDigits(at + 17, moment.time.second(), 2);
  return text;
}

std::optional<DateTime> FromIsoText(QStringView text) {
  if (text.size() != 10 && text.size() != 19) return std::nullopt;
  if (text[4] != u'-' || text[7] != u'-') return std::nullopt;
  const auto year = TakeDigits(text, 0, 4);
  const auto month = TakeDigits(text, 5, 2);
  const auto day = TakeDigits(text, 8, 2);
  if (!year || !month || !day) return std::nullopt;
  DateTime moment{QDate(*year, *month, *day)};
  if (text.size() == 19) {
    if (text[10] != u' ' && text[10] != u'T') return std::nullopt;
    if (text[13] != u':' || text[16] != u':') return std::nullopt;
    const auto hour = TakeDigits(text, 11, 2);
    const auto minute = TakeDigits(text, 14, 2);
    const auto second = TakeDigits(text, 17, 2);
    if (!hour || !minute || !second) return std::nullopt;
    moment.time = QTime(*hour, *minute, *second);
  }
  if (!moment.IsValid()) return std::nullopt;
  return moment;
}

std::optional<QDate> ParseDate(QStringView text, QDate today, DateOrder order) {
  const QString trimmed = text.trimmed().toString();
  if (const auto iso = FromIsoText(trimmed)) return iso->date;
  QString separated = trimmed;
  for (const QChar separator : QStringView(u"/-., ")) separated.replace(separator, u' ');
  QStringList parts = separated.split(u' ', Qt::SkipEmptyParts);
  if (parts.size() != 2 && parts.size() != 3) return std::nullopt;
  const bool hasMonthWord = MonthOfWord(parts[0]) || MonthOfWord(parts[1]);
  if (hasMonthWord ? MonthOfWord(parts[0]).has_value() : order == DateOrder::MonthFirst)
    parts.swapItemsAt(0, 1);
  bool isNumber = false;
  const int day = parts[0].toInt(&isNumber);
  if (!isNumber) return std::nullopt;
  const int month = MonthOfWord(parts[1]).value_or(parts[1].toInt());
  int year = today.year();
  if (parts.size() == 3) {
    year = parts[2].toInt(&isNumber);
    if (!isNumber) return std::nullopt;
    if (year < 100) year += year < 50 ? 2000 : 1900;
  }
  const QDate date(year, month, day);
  if (!date.isValid()) return std::nullopt;
  return date;
}

std::optional<QDate> ParseTypedDate(QStringView text, QDate today) {
  return ParseDate(text, today,
                   CurrentWriting().monthFirst ? DateOrder::MonthFirst : DateOrder::DayFirst);
}

QString ToShortDateText(QDate date) {
  return QLocale(QLocale::English).toString(date, QStringLiteral("d MMM yyyy"));
}

}  // namespace quillary
