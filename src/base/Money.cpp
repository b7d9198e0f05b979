#include "base/Money.h"

#include "base/CountryHabits.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace quillary {
namespace {

constexpr double kLargest = 9.2e14;  // in whole units; beyond it the units would overflow

qint64 RoundUnits(qint64 units, qint64 step) {
  qint64 quotient = units / step;
  const qint64 rest = std::abs(units % step);
  const bool awayFromZero = rest * 2 > step || (rest * 2 == step && quotient % 2 != 0);
  if (awayFromZero) quotient += units < 0 ? -1 : 1;
  return quotient * step;
}

}  // namespace

Money Money::FromDouble(double amount) {
  if (!(std::fabs(amount) < kLargest)) return Money();
  return Money(static_cast<qint64>(std::llround(RoundHalfEven(amount, 4) * kUnitsPerOne)));
}

std::optional<Money> Money::Parse(QStringView text) {
  text = text.trimmed();
  bool negative = false;
  if (text.startsWith(u'(') && text.endsWith(u')')) {
    negative = true;
    text = text.mid(1, text.size() - 2).trimmed();
  }
  const auto takeSign = [&] {
    if (text.startsWith(u'-') || text.startsWith(u'+')) {
      negative ^= text.front() == u'-';
      text = text.mid(1).trimmed();
    }
  };
  takeSign();
  if (text.startsWith(u'$') || text.startsWith(u'£')) {
    text = text.mid(1).trimmed();
    takeSign();
  }
  if (text.endsWith(u'-')) {
    negative = !negative;
    text.chop(1);
  }
  qint64 whole = 0;
  qint64 fraction = 0;
  int decimals = -1;
  int digits = 0;
  bool sticky = false;  // a non-zero digit after the fifth decimal
  int fifth = 0;
  for (const QChar character : text) {
    if (character == u'.') {
      if (decimals >= 0) return std::nullopt;
      decimals = 0;
    } else if (character == u',') {
      if (decimals >= 0 || digits == 0) return std::nullopt;
    } else if (character >= u'0' && character <= u'9') {
      const int digit = character.unicode() - u'0';
      ++digits;
      if (decimals < 0) {
        whole = whole * 10 + digit;
        if (static_cast<double>(whole) > kLargest) return std::nullopt;
      } else if (decimals < 4) {
        fraction = fraction * 10 + digit;
        ++decimals;
      } else if (decimals++ == 4) {
        fifth = digit;
      } else {
        sticky |= digit != 0;
      }
    } else {
      return std::nullopt;
    }
  }
  if (digits == 0) return std::nullopt;
  for (int place = std::max(decimals, 0); place < 4; ++place) fraction *= 10;
  qint64 units = whole * kUnitsPerOne + fraction;
  if (fifth > 5 || (fifth == 5 && (sticky || units % 2 != 0))) ++units;
  return Money(negative ? -units : units);
}

Money Money::Rounded(int decimals) const {
  qint64 step = 1;
  for (int place = decimals; place < 4; ++place) step *= 10;
  return Money(RoundUnits(units_, step));
}

QString Money::ToText() const {
  const qint64 absolute = std::abs(units_);
  QString text = QString::number(absolute / kUnitsPerOne);
  if (const qint64 rest = absolute % kUnitsPerOne) {
    QString decimals = QString::number(rest).rightJustified(4, u'0');
    while (decimals.endsWith(u'0')) decimals.chop(1);
    text += u'.' + decimals;
  }
  return units_ < 0 ? u'-' + text : text;
}

QString Money::ToCurrencyText() const {
  const qint64 cents = std::abs(Rounded(2).units_) / 100;
  static const QLocale english(QLocale::English, QLocale::Australia);
  const QString text = QChar(CurrentWriting().currencySign) + english.toString(cents / 100) + u'.' +
                       QString::number(cents % 100).rightJustified(2, u'0');
  return units_ < 0 && cents != 0 ? u'-' + text : text;
}

double RoundHalfEven(double number, int decimals) {
  if (!std::isfinite(number)) return number;
  const double scale = std::pow(10.0, decimals);
  const double scaled = number * scale;
  if (!(std::fabs(scaled) < 4e15)) return number;
  const double below = std::floor(scaled);
  const double rest = scaled - below;
  // Halves that the nearest double misses by a few units in its last place are halves all the same.
  const double tolerance = std::fabs(scaled) * 4 * std::numeric_limits<double>::epsilon() + 1e-12;
  double rounded = below;
  if (std::fabs(rest - 0.5) <= tolerance) {
    rounded = std::fmod(below, 2.0) == 0.0 ? below : below + 1;
  } else if (rest > 0.5) {
    rounded = below + 1;
  }
  return rounded / scale;
}

}  // namespace quillary
