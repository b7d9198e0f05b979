#pragma once

#include <QString>

#include <compare>
#include <optional>

namespace quillary {

/// An exact amount of money, kept as a whole number of ten-thousandths of the currency unit.
/// Amounts of the business include tax; a balance is signed like a bank account, so a negative
/// one is a debt of the client.
class Money {
 public:
  static constexpr qint64 kUnitsPerOne = 10000;

  constexpr Money() = default;
  static constexpr Money FromUnits(qint64 tenThousandths) { return Money(tenThousandths); }
  static constexpr Money FromWhole(qint64 whole) { return Money(whole * kUnitsPerOne); }
  /// Rounds half to even at the fourth decimal. NaN and amounts beyond the range become 0.
  static Money FromDouble(double amount);
  /// Reads what a person types: "1234.5", "$1,234.50", "£5", "(5.00)", "-$5", "5-". Nothing
  /// when the text is no amount. Digits beyond the fourth decimal round half to even.
  static std::optional<Money> Parse(QStringView text);

  constexpr qint64 Units() const { return units_; }
  /// The nearest double; one to one with the amount up to 900 thousand million.
  constexpr double ToDouble() const { return static_cast<double>(units_) / kUnitsPerOne; }
  /// Rounded half to even, as the dialect's Round does it.
  Money Rounded(int decimals) const;
  /// Plain digits with as many decimals as the amount needs: "55", "82.5", "-0.0025".
  QString ToText() const;
  /// As screens show it, with the sign of the country: "$1,234.50", a negative amount as "-$5.00";
  /// two decimals, half to even.
  QString ToCurrencyText() const;

  constexpr auto operator<=>(const Money&) const = default;
  constexpr Money operator-() const { return Money(-units_); }
  constexpr Money operator+(Money other) const { return Money(units_ + other.units_); }
  constexpr Money operator-(Money other) const { return Money(units_ - other.units_); }
  constexpr Money operator*(qint64 count) const { return Money(units_ * count); }
  constexpr Money& operator+=(Money other) { return *this = *this + other; }
  constexpr Money& operator-=(Money other) { return *this = *this - other; }

 private:
  constexpr explicit Money(qint64 units) : units_(units) {}
  qint64 units_ = 0;
};

/// Rounds half to even to that many decimals, judging the half on the decimal digits a person
/// sees: 2.675 to two decimals is 2.68, although its nearest double lies below.
double RoundHalfEven(double number, int decimals);

}  // namespace quillary
