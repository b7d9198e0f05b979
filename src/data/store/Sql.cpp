#include "data/store/Sql.h"

#include <string_view>

namespace quillary {
namespace {

constexpr std::string_view kPlace = "{}";  // of one value

// Control characters up to this one become blanks, line ends excepted: documents and old files
// stumble over them.
constexpr char16_t kLastBlankedControl = 20;

bool IsBlanked(QChar character) {
  const char16_t code = character.unicode();
  return code <= kLastBlankedControl && code != u'\n' && code != u'\r';
}

QString WithoutControls(QString text) {
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (IsBlanked(text.at(at))) text[at] = u' ';
  }
  return text;
}

QString DateLiteral(const DateTime& moment, bool endOfDay) {
  const QDate date = moment.date;
  const QTime time = endOfDay ? QTime(23, 59) : moment.time;
  const QString day =
      QStringLiteral("#%1/%2/%3 ").arg(date.year()).arg(date.month()).arg(date.day());
  if (endOfDay) return day + QStringLiteral("23:59:00#");
  return day + QStringLiteral("%1:%2:%3#").arg(time.hour()).arg(time.minute()).arg(time.second());
}

}  // namespace

Sql Sql::operator+(const Sql& other) const {
  Sql joined = *this;
  joined.text_ += other.text_;
  joined.arguments_.insert(joined.arguments_.end(), other.arguments_.begin(),
                           other.arguments_.end());
  return joined;
}

void Sql::Put(const Sql& clause, size_t& at) {
  at = text_.find(kPlace, at);
  text_.replace(at, kPlace.size(), clause.text_);
  at += clause.text_.size();
  arguments_.insert(arguments_.end(), clause.arguments_.begin(), clause.arguments_.end());
}

void Sql::Put(const Value& value, size_t& at) {
  at = text_.find(kPlace, at) + kPlace.size();
  arguments_.push_back(AsArgument(value));
}

Value Sql::AsArgument(Value value) {
  if (!value.IsText()) return value;
  const QString text = std::get<QString>(value.variant());
  if (text.isEmpty()) return {};
  return WithoutControls(text);
}

QString SQLValue(const Value& value, bool endOfDay) {
  if (value.IsNull()) return QStringLiteral("NULL");
  if (const auto* moment = std::get_if<DateTime>(&value.variant())) {
    return DateLiteral(*moment, endOfDay);
  }
  if (const auto* yes = std::get_if<bool>(&value.variant())) {
    return *yes ? QStringLiteral("1") : QStringLiteral("0");
  }
  if (!value.IsText()) return value.ToText();
  QString text = WithoutControls(value.ToText());
  if (text.isEmpty()) return QStringLiteral("null");
  text.replace(u'\'', QStringLiteral("''"));
  return u'\'' + text + u'\'';
}

DateTime EndOfDay(QDate date) {
  return {date, QTime(23, 59)};
}

}  // namespace quillary
