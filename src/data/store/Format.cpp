#include "data/store/Format.h"

#include "data/jet/Translator.h"

#include <algorithm>
#include <array>

namespace quillary {
namespace {

enum class PatternKind { Number, Moment, Text };

struct NamedPattern {
  const char16_t* name;
  PatternKind kind;
  const char16_t* pattern;
};

constexpr std::array<NamedPattern, 17> kNamed{{
    {u"General Number", PatternKind::Number, u""},
    {u"Currency", PatternKind::Number, u"$#,##0.00"},
    {u"Fixed", PatternKind::Number, u"0.00"},
    {u"Standard", PatternKind::Number, u"#,##0.00"},
    {u"Percent", PatternKind::Number, u"0.00%"},
    {u"Scientific", PatternKind::Number, u"0.00E+00"},
    {u"Yes/No", PatternKind::Number, u"\"Yes\";\"Yes\";\"No\""},
    {u"True/False", PatternKind::Number, u"\"True\";\"True\";\"False\""},
    {u"On/Off", PatternKind::Number, u"\"On\";\"On\";\"Off\""},
    {u"General Date", PatternKind::Moment, u"c"},
    {u"Long Date", PatternKind::Moment, u"dddddd"},
    {u"Medium Date", PatternKind::Moment, u"dd-mmm-yy"},
    {u"Short Date", PatternKind::Moment, u"ddddd"},
    {u"Long Time", PatternKind::Moment, u"ttttt"},
    {u"Medium Time", PatternKind::Moment, u"hh:nn AM/PM"},
    {u"Short Time", PatternKind::Moment, u"hh:nn"},
    {u"@", PatternKind::Text, u"@"},
}};

/// What a pattern is for, by the signs in it that do not stand for themselves.
PatternKind KindOf(QStringView pattern) {
  bool moment = false;
  bool text = false;
  for (QString verbatim; !pattern.isEmpty();) {
    if (TakeVerbatim(pattern, verbatim)) continue;
    const char16_t sign = pattern.front().toLower().unicode();
    if (sign == u'0' || sign == u'#') return PatternKind::Number;
    moment = moment || QStringView(u"dmyqwhnsct").contains(QChar(sign));
    text = text || QStringView(u"@&<>!").contains(QChar(sign));
    pattern = pattern.mid(1);
  }
  return text ? PatternKind::Text : moment ? PatternKind::Moment : PatternKind::Number;
}

QString AsText(const Value& value) {
  return jet::Convert(value, jet::ColumnType::Text)->ToText();
}

std::optional<double> NumberIn(const Value& value) {
  if (!value.IsDate() && !value.IsNumeric()) return std::nullopt;
  return jet::Convert(value, jet::ColumnType::Double)->ToDouble();
}

// A number is a count of days here, also when it comes as a text.
std::optional<DateTime> MomentIn(const Value& value) {
  const auto moment = jet::Convert(value, jet::ColumnType::Date);
  if (!moment || !moment->IsDate()) return std::nullopt;
  return moment->ToDateTime();
}

QString Formatted(const Value& value, PatternKind kind, const QString& pattern,
                  const Weeks& weeks) {
  if (value.IsNull()) {
    const int place = kind == PatternKind::Number ? 3 : 1;
    const QStringView section =
        kind == PatternKind::Moment ? QStringView() : SectionOf(pattern, place);
    return section.isEmpty() ? QString() : FormatText({}, section);
  }
  if (kind == PatternKind::Number) {
    const auto number = NumberIn(value);
    if (number && pattern.isEmpty()) return AsText(*number);
    if (number) return FormatNumber(*number, pattern);
  } else if (kind == PatternKind::Moment) {
    if (const auto moment = MomentIn(value)) return FormatMoment(*moment, pattern, weeks);
  } else {
    const QString text = AsText(value);
    const QStringView forNothing = SectionOf(pattern, 1);
    return FormatText(text,
                      text.isEmpty() && !forNothing.isEmpty() ? forNothing : SectionOf(pattern, 0));
  }
  return AsText(value);
}

}  // namespace

bool TakeVerbatim(QStringView& pattern, QString& into) {
  if (pattern.front() == u'\\') {
    into += pattern.mid(1, 1);
    pattern = pattern.mid(2);
    return true;
  }
  if (pattern.front() != u'"') return false;
  const qsizetype close = pattern.indexOf(u'"', 1);
  into += pattern.mid(1, close < 0 ? -1 : close - 1);
  pattern = close < 0 ? QStringView() : pattern.mid(close + 1);
  return true;
}

QStringView SectionOf(QStringView pattern, int place) {
  QStringView rest = pattern;
  for (QString verbatim; !rest.isEmpty();) {
    if (TakeVerbatim(rest, verbatim)) continue;
    if (rest.front() == u';') {
      if (place == 0) return pattern.left(pattern.size() - rest.size());
      --place;
      pattern = rest.mid(1);
    }
    rest = rest.mid(1);
  }
  return place == 0 ? pattern : QStringView();
}

QString FormatValue(const Value& value, const QString& pattern, const Weeks& weeks) {
  if (pattern.isEmpty()) return value.IsNull() ? QString() : AsText(value);
  const auto* named = std::find_if(kNamed.begin(), kNamed.end(), [&](const NamedPattern& each) {
    return pattern.compare(QStringView(each.name), Qt::CaseInsensitive) == 0;
  });
  if (named != kNamed.end()) {
    return Formatted(value, named->kind, QString::fromUtf16(named->pattern), weeks);
  }
  return Formatted(value, KindOf(pattern), pattern, weeks);
}

QString FormatText(const QString& text, QStringView pattern) {
  const bool leftFirst = pattern.contains(u'!');
  QString folded = pattern.contains(u'<')   ? text.toLower()
                   : pattern.contains(u'>') ? text.toUpper()
                                            : text;
  const qsizetype places = std::count_if(pattern.begin(), pattern.end(),
                                         [](QChar sign) { return sign == u'@' || sign == u'&'; });
  // What the text has too little stays empty, on the side that is filled last.
  qsizetype missing = std::max(places - folded.size(), qsizetype{0});
  qsizetype place = 0;
  qsizetype at = 0;
  QString shown;
  while (!pattern.isEmpty()) {
    if (TakeVerbatim(pattern, shown)) continue;
    const QChar sign = pattern.front();
    pattern = pattern.mid(1);
    if (sign == u'@' || sign == u'&') {
      const bool empty = leftFirst ? place >= places - missing : place < missing;
      // The first place takes what is too much for all.
      const qsizetype count = place == 0 ? std::max(folded.size() - places, qsizetype{0}) + 1 : 1;
      if (!empty) {
        shown += QStringView(folded).mid(at, count);
        at += count;
      } else if (sign == u'@') {
        shown += u' ';
      }
      ++place;
    } else if (sign != u'<' && sign != u'>' && sign != u'!') {
      shown += sign;
    }
  }
  return places == 0 ? shown + folded : shown;
}

}  // namespace quillary
