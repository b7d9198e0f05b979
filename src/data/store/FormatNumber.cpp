#include "data/store/Format.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace quillary {
namespace {

/// The digits of a number as a person sees them: 0.digits times ten to the power of `point`.
struct Digits {
  explicit Digits(double number) {
    const QByteArray text =
        QByteArray::number(std::fabs(number), 'e', std::numeric_limits<double>::digits10 - 1);
    const qsizetype exponent = text.indexOf('e');
    for (const char c : text.left(exponent)) {
      if (c != '.') digits += c;
    }
    point = text.mid(exponent + 1).toInt() + 1;
    if (number == 0) point = 0;
  }

  /// Rounds halves away from zero.
  void RoundTo(int decimals) {
    const auto kept = static_cast<qsizetype>(point) + decimals;
    if (kept >= digits.size()) return;
    const bool up = kept >= 0 && digits.at(kept) >= '5';
    digits.truncate(std::max(kept, qsizetype{0}));
    if (!up) return;
    qsizetype place = digits.size() - 1;
    for (; place >= 0 && digits.at(place) == '9'; --place) digits[place] = '0';
    if (place >= 0) {
      digits[place] = static_cast<char>(digits.at(place) + 1);
    } else {
      digits.prepend('1');
      ++point;
    }
  }

  bool IsZero() const {
    return std::all_of(digits.begin(), digits.end(), [](char c) { return c == '0'; });
  }
  QByteArray Whole() const {
    if (point <= 0 || IsZero()) return {};
    return digits.left(point).leftJustified(point, '0');
  }
  QByteArray Decimals(int count) const {
    QByteArray decimals = QByteArray(std::max(-point, 0), '0') + digits.mid(std::max(point, 0));
    return decimals.left(count).leftJustified(count, '0');
  }

  QByteArray digits;
  int point = 0;
};

/// One section of a pattern, taken apart.
struct NumberPattern {
  enum class Kind { Digit, Point, Exponent, Verbatim };
  struct Item {
    Kind kind;
    QString text;
  };

  explicit NumberPattern(QStringView section) {
    while (!section.isEmpty()) {
      QString verbatim;
      if (TakeVerbatim(section, verbatim)) {
        items.push_back({Kind::Verbatim, verbatim});
      } else {
        section = section.mid(Take(section));
      }
    }
  }

  std::vector<Item> items;
  int wholes = 0;         // places before the point
  int leastWholes = 0;    // of them filled, if need be with zeros
  int decimals = 0;       // places behind the point
  int leastDecimals = 0;  // of them filled, if need be with zeros
  int shift = 0;          // of the point to the right, by % and trailing commas
  bool pointed = false;
  bool thousands = false;
  bool scientific = false;

 private:
  /// Returns how many signs were taken.
  qsizetype Take(QStringView section) {
    const QChar sign = section.front();
    const QChar next = section.size() > 1 ? section[1] : QChar();
    if (sign == u'0' || sign == u'#') {
      TakeDigit(sign == u'0');
    } else if (sign == u'.' && !pointed) {
      pointed = true;
      items.push_back({Kind::Point, {}});
    } else if (sign == u',' && wholes > 0 && !pointed) {
      // Between digits it parts thousands; behind the last one it divides by a thousand.
      const bool between = next == u'0' || next == u'#';
      thousands = thousands || between;
      shift -= between ? 0 : 3;
    } else if (sign.toUpper() == u'E' && (next == u'+' || next == u'-')) {
      qsizetype end = 2;
      while (end < section.size() && section[end] == u'0') ++end;
      scientific = true;
      items.push_back({Kind::Exponent, section.left(end).toString()});
      return end;
    } else {
      shift += sign == u'%' ? 2 : 0;
      items.push_back({Kind::Verbatim, QString(sign)});
    }
    return 1;
  }

  void TakeDigit(bool zero) {
    items.push_back({Kind::Digit, {}});
    if (pointed) {
      ++decimals;
      if (zero) leastDecimals = decimals;
      return;
    }
    ++wholes;
    if (zero || leastWholes > 0) ++leastWholes;
  }
};

/// Writes digits into the places of a pattern.
class NumberWriter {
 public:
  NumberWriter(const NumberPattern& pattern, Digits digits) : pattern_(pattern) {
    digits.point += pattern.shift;
    const int wholes = std::max(pattern.wholes, 1);
    if (pattern.scientific && !digits.IsZero()) {
      exponent_ = digits.point - wholes;
      digits.point = wholes;
    }
    digits.RoundTo(pattern.decimals);
    if (pattern.scientific && digits.point > wholes) {
      ++exponent_;
      --digits.point;
    }
    isZero_ = digits.IsZero();
    whole_ = digits.Whole().rightJustified(pattern.leastWholes, '0');
    decimals_ = digits.Decimals(pattern.decimals);
    while (decimals_.size() > pattern.leastDecimals && decimals_.endsWith('0')) decimals_.chop(1);
  }

  bool IsZero() const { return isZero_; }

  QString Written() {
    for (const NumberPattern::Item& item : pattern_.items) {
      switch (item.kind) {
        case NumberPattern::Kind::Digit:
          WriteDigit();
          break;
        case NumberPattern::Kind::Point:
          if (pattern_.wholes == 0) written_ += QString::fromLatin1(whole_);
          written_ += u'.';
          pointed_ = true;
          break;
        case NumberPattern::Kind::Exponent:
          WriteExponent(item.text);
          break;
        case NumberPattern::Kind::Verbatim:
          written_ += item.text;
      }
    }
    return written_;
  }

 private:
  void WriteDigit() {
    if (pointed_) {
      if (place_ < decimals_.size()) written_ += QLatin1Char(decimals_.at(place_));
      ++place_;
      return;
    }
    // The first place takes all the digits that there are no places for.
    for (; whole_.size() - wholesWritten_ >= wholesLeft_; ++wholesWritten_) {
      const qsizetype behind = whole_.size() - wholesWritten_ - 1;
      if (behind < 0) break;
      written_ += QLatin1Char(whole_.at(wholesWritten_));
      if (pattern_.thousands && behind > 0 && behind % 3 == 0) written_ += u',';
    }
    --wholesLeft_;
  }

  void WriteExponent(const QString& asked) {
    written_ += asked.front();
    if (exponent_ < 0) {
      written_ += u'-';
    } else if (asked.at(1) == u'+') {
      written_ += u'+';
    }
    written_ += QString::number(std::abs(exponent_)).rightJustified(asked.size() - 2, u'0');
  }

  const NumberPattern& pattern_;
  int exponent_ = 0;
  bool isZero_ = false;
  QByteArray whole_;
  QByteArray decimals_;
  QString written_;
  bool pointed_ = false;
  qsizetype place_ = 0;
  qsizetype wholesWritten_ = 0;
  qsizetype wholesLeft_ = pattern_.wholes;
};

}  // namespace

QString FormatNumber(double number, QStringView pattern) {
  const QStringView forNegative = SectionOf(pattern, 1);
  const QStringView forZero = SectionOf(pattern, 2);
  QStringView section = SectionOf(pattern, 0);
  bool sign = number < 0;
  if (number == 0 && !forZero.isEmpty()) {
    section = forZero;
  } else if (sign && !forNegative.isEmpty()) {
    section = forNegative;
    sign = false;
  }
  const NumberPattern places(section);
  NumberWriter writer(places, Digits(number));
  const bool asZero = writer.IsZero() && places.wholes + places.decimals > 0;
  return (sign && !asZero ? QStringLiteral("-") : QString()) + writer.Written();
}

}  // namespace quillary
