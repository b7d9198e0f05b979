#include "base/Value.h"

#include <limits>

namespace quillary {
namespace {

template <typename... Cases>
struct Overload : Cases... {
  using Cases::operator()...;
};
template <typename... Cases>
Overload(Cases...) -> Overload<Cases...>;

std::optional<double> NumberOf(const QString& text) {
  bool isNumber = false;
  const double number = text.trimmed().toDouble(&isNumber);
  if (isNumber && std::isfinite(number)) return number;
  if (const auto amount = Money::Parse(text)) return amount->ToDouble();
  return std::nullopt;
}

qint64 ToWhole(double number, qint64 ifNone) {
  const double rounded = RoundHalfEven(number, 0);
  return std::fabs(rounded) < 9.2e18 ? static_cast<qint64>(rounded) : ifNone;
}

}  // namespace

bool Value::IsNumeric() const {
  return std::visit(
      Overload{[](qint64) { return true; }, [](double) { return true; }, [](Money) { return true; },
               [](const QString& text) { return NumberOf(text).has_value(); },
               [](const auto&) { return false; }},
      variant_);
}

qint64 Value::ToLong(qint64 ifNone) const {
  return std::visit(
      Overload{[](qint64 number) { return number; },
               [&](double number) { return ToWhole(number, ifNone); },
               [](Money amount) { return amount.Rounded(0).Units() / Money::kUnitsPerOne; },
               [](bool yes) { return qint64{yes}; },
               [&](const QString& text) {
                 const auto number = NumberOf(text);
                 return number ? ToWhole(*number, ifNone) : ifNone;
               },
               [&](const auto&) { return ifNone; }},
      variant_);
}

double Value::ToDouble(double ifNone) const {
  return std::visit(
      Overload{[](qint64 number) { return static_cast<double>(number); },
               [](double number) { return number; }, [](Money amount) { return amount.ToDouble(); },
               [](bool yes) { return yes ? 1.0 : 0.0; },
               [&](const QString& text) { return NumberOf(text).value_or(ifNone); },
               [&](const auto&) { return ifNone; }},
      variant_);
}

Money Value::ToMoney(Money ifNone) const {
  return std::visit(
      Overload{[](qint64 number) { return Money::FromWhole(number); },
               [](double number) { return Money::FromDouble(number); },
               [](Money amount) { return amount; }, [](bool yes) { return Money::FromWhole(yes); },
               [&](const QString& text) { return Money::Parse(text).value_or(ifNone); },
               [&](const auto&) { return ifNone; }},
      variant_);
}

bool Value::ToBool(bool ifNone) const {
  return std::visit(
      Overload{[](qint64 number) { return number != 0; }, [](double number) { return number != 0; },
               [](Money amount) { return amount != Money(); }, [](bool yes) { return yes; },
               [&](const QString& text) {
                 const auto is = [&](const char16_t* word) {
                   return text.compare(QStringView(word), Qt::CaseInsensitive) == 0;
                 };
                 if (is(u"true") || is(u"yes")) return true;
                 if (is(u"false") || is(u"no")) return false;
                 const auto number = NumberOf(text);
                 return number ? *number != 0 : ifNone;
               },
               [&](const auto&) { return ifNone; }},
      variant_);
}

QDate Value::ToDate(QDate ifNone) const {
  const auto moment = ToDateTime();
  return moment ? moment->date : ifNone;
}

std::optional<DateTime> Value::ToDateTime() const {
  if (const auto* moment = std::get_if<DateTime>(&variant_)) return *moment;
  if (const auto* text = std::get_if<QString>(&variant_)) return FromIsoText(*text);
  return std::nullopt;
}

QString Value::ToText(const QString& ifNull) const {
  return std::visit(
      Overload{[&](std::monostate) { return ifNull; },
               [](qint64 number) { return QString::number(number); },
               [](double number) {
                 return QString::number(number, 'g', std::numeric_limits<double>::digits10);
               },
               [](Money amount) { return amount.ToText(); },
               [](bool yes) { return yes ? QStringLiteral("True") : QStringLiteral("False"); },
               [](const DateTime& moment) { return ToIsoText(moment); },
               [](const QString& text) { return text; }},
      variant_);
}

}  // namespace quillary
