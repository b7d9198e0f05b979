#pragma once

#include "base/DateTime.h"
#include "base/Id.h"
#include "base/Money.h"

#include <QString>

#include <cmath>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace quillary {

/// One field of a record, or one value on its way into a statement: null, whole number, fraction,
/// currency, yes/no, moment or text. Access through the named readers turns null and foreign types
/// into the caller's default, because records of old files hold nulls where today's never do.
class Value {
 public:
  using Variant = std::variant<std::monostate, qint64, double, Money, bool, DateTime, QString>;

  Value() = default;
  Value(std::nullptr_t) {}  // NOLINT: values are meant to convert
  template <typename T>
  requires std::is_integral_v<T> &&(!std::is_same_v<T, bool>)Value(T number)
      : variant_(static_cast<qint64>(number)) {}  // NOLINT
  template <typename T>
  requires std::is_same_v<T, bool> Value(T yes) : variant_(yes) {}  // NOLINT
  Value(double number) : variant_(number) {}                        // NOLINT
  Value(Money amount) : variant_(amount) {}                         // NOLINT
  Value(QDate date) : variant_(DateTime(date)) {}                   // NOLINT
  Value(const DateTime& moment) : variant_(moment) {}               // NOLINT
  Value(QString text) : variant_(std::move(text)) {}                // NOLINT
  Value(const char* text) : variant_(QString::fromUtf8(text)) {}    // NOLINT
  template <typename T>
  Value(const std::optional<T>& value) {  // NOLINT
    if (value) *this = Value(*value);
  }
  /// A type of a higher floor that says what it is stored as, by a ToValue() of its own.
  template <typename T>
  requires requires(const T& from) {
    { ToValue(from) } -> std::same_as<Value>;
  }
  Value(const T& from) : Value(ToValue(from)) {}  // NOLINT
  template <NumberedRow Row>
  Value(Id<Row> id) : variant_(id.Number()) {}  // NOLINT

  const Variant& variant() const { return variant_; }
  bool IsNull() const { return std::holds_alternative<std::monostate>(variant_); }
  bool IsText() const { return std::holds_alternative<QString>(variant_); }
  bool IsDate() const { return std::holds_alternative<DateTime>(variant_); }
  /// True for whole numbers, fractions, currency and for texts that read as a number.
  bool IsNumeric() const;

  /// Fractions round half to even; yes is 1; a text counts when it reads as a number.
  qint64 ToLong(qint64 ifNone = 0) const;
  double ToDouble(double ifNone = 0) const;
  Money ToMoney(Money ifNone = {}) const;
  /// Nothing for null and for 0: files hold both where a row belongs to none.
  template <NumberedRow Row>
  std::optional<Id<Row>> ToId() const {
    const qint64 number = ToLong();
    if (number == 0) return std::nullopt;
    return Id<Row>(number);
  }
  bool ToBool(bool ifNone = false) const;
  QDate ToDate(QDate ifNone = {}) const;
  std::optional<DateTime> ToDateTime() const;
  /// The value in plain words: currency and fractions as plain digits, dates in ISO form, yes/no as
  /// "True" and "False", null as "".
  QString ToText(const QString& ifNull = {}) const;

  bool operator==(const Value& other) const { return variant_ == other.variant_; }

 private:
  Variant variant_;
};

/// `ifNull` when the value is null, otherwise the value.
inline Value IfNull(const Value& value, const Value& ifNull) {
  return value.IsNull() ? ifNull : value;
}
/// `value` when it is numeric, otherwise `ifNot`.
inline Value IfNotNumeric(const Value& value, const Value& ifNot) {
  return value.IsNumeric() ? value : ifNot;
}

}  // namespace quillary
