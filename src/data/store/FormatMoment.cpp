#include "data/jet/Translator.h"
#include "data/store/Format.h"

#include <QLocale>

#include <algorithm>
#include <array>

namespace quillary {
namespace {

QString Padded(int number, qsizetype width) {
  return QString::number(number).rightJustified(width, u'0');
}

/// Parts of a moment by a letter of the pattern and how often it stands there.
class MomentWriter {
 public:
  MomentWriter(const DateTime& moment, QStringView pattern, const Weeks& weeks)
      : moment_(moment), pattern_(pattern), weeks_(weeks) {
    for (const char16_t* half : {u"AM/PM", u"A/P", u"AMPM"}) {
      twelveHours_ = twelveHours_ || pattern.contains(QStringView(half), Qt::CaseInsensitive);
    }
  }

  QString Written() {
    while (!pattern_.isEmpty()) {
      if (TakeVerbatim(pattern_, written_) || TakeHalfOfDay()) continue;
      const QChar letter = pattern_.front().toLower();
      qsizetype count = 1;
      while (count < pattern_.size() && pattern_[count].toLower() == letter) ++count;
      WritePart(letter.unicode(), count);
    }
    return written_;
  }

 private:
  bool TakeHalfOfDay() {
    const bool morning = moment_.time.hour() < 12;
    for (const char16_t* half : {u"AM/PM", u"A/P"}) {
      const QStringView asked(half);
      if (!pattern_.startsWith(asked, Qt::CaseInsensitive)) continue;
      // In the case in which it is asked for.
      const qsizetype middle = asked.indexOf(u'/');
      written_ += morning ? pattern_.left(middle) : pattern_.mid(middle + 1, middle);
      pattern_ = pattern_.mid(asked.size());
      return true;
    }
    if (!pattern_.startsWith(QStringView(u"AMPM"), Qt::CaseInsensitive)) return false;
    written_ += morning ? u"AM" : u"PM";
    pattern_ = pattern_.mid(4);
    return true;
  }

  void WritePart(char16_t letter, qsizetype count) {
    const qsizetype most = MostOf(letter);
    if (most == 0 || (letter == u't' && count < most)) {
      written_ += pattern_.front();
      pattern_ = pattern_.mid(1);
      return;
    }
    count = std::min(count, most);
    // Minutes share their letter with months and follow hours.
    const bool minutes = letter == u'm' && count <= 2 && afterHours_;
    written_ += Part(minutes ? u'n' : letter, count);
    afterHours_ = letter == u'h';
    pattern_ = pattern_.mid(count);
  }

  static qsizetype MostOf(char16_t letter) {
    switch (letter) {
      case u'd':
        return 6;
      case u't':
        return 5;
      case u'm':
      case u'y':
        return 4;
      case u'w':
      case u'h':
      case u'n':
      case u's':
        return 2;
      case u'q':
      case u'c':
        return 1;
      default:
        return 0;
    }
  }

  QString Part(char16_t letter, qsizetype count) const {
    const int hour = moment_.time.hour();
    switch (letter) {
      case u'd':
        return DayPart(count);
      case u'm':
        return count <= 2 ? Padded(moment_.date.month(), count)
                          : Named(count == 3 ? "MMM" : "MMMM");
      case u'y':
        return count == 1   ? QString::number(moment_.date.dayOfYear())
               : count == 2 ? Padded(moment_.date.year() % 100, 2)
                            : Padded(moment_.date.year(), 4);
      case u'q':
        return QString::number((moment_.date.month() + 2) / 3);
      case u'w':
        return QString::number(count == 1 ? weeks_.DayOfWeek(moment_.date)
                                          : weeks_.WeekOfYear(moment_.date));
      case u'h':
        return Padded(twelveHours_ ? (hour + 11) % 12 + 1 : hour, count);
      case u'n':
        return Padded(moment_.time.minute(), count);
      case u's':
        return Padded(moment_.time.second(), count);
      case u't':
        return Timed();
      default:
        return jet::Convert(moment_, jet::ColumnType::Text)->ToText();
    }
  }

  QString DayPart(qsizetype count) const {
    constexpr std::array kForms{"", "", "", "ddd", "dddd", "d/MM/yyyy", "dddd, d MMMM yyyy"};
    if (count <= 2) return Padded(moment_.date.day(), count);
    return Named(kForms[static_cast<size_t>(count)]);
  }

  QString Named(const char* form) const {
    return QLocale(QLocale::English).toString(moment_.date, QString::fromLatin1(form));
  }
  QString Timed() const {
    return QLocale(QLocale::English).toString(moment_.time, QStringLiteral("h:mm:ss AP"));
  }

  const DateTime moment_;
  QStringView pattern_;
  const Weeks& weeks_;
  bool twelveHours_ = false;
  bool afterHours_ = false;
  QString written_;
};

}  // namespace

QString FormatMoment(const DateTime& moment, QStringView pattern, const Weeks& weeks) {
  return MomentWriter(moment, pattern, weeks).Written();
}

}  // namespace quillary
