#include "data/store/SqlFunctions.h"

#include "data/jet/Functions.h"
#include "data/jet/Translator.h"
#include "data/store/SqlArguments.h"
#include "data/store/Statement.h"
#include "data/store/TextOrder.h"

#include <cmath>
#include <limits>
#include <string>

namespace quillary {
namespace {

namespace names = jet::functions;
using jet::ColumnType;

template <ColumnType type>
Value ConvertInto(const SqlArguments& arguments) {
  const Value value = arguments.At(0);
  if (const auto converted = jet::Convert(value, type)) return *converted;
  throw WrongArgument("\"" + value.ToText().left(40).toStdString() +
                      "\" does not convert to the column's type");
}

Value DateText(const SqlArguments& arguments) {
  return *jet::Convert(arguments.Moment(0), ColumnType::Text);
}

Value Round(const SqlArguments& arguments) {
  const Value number = arguments.At(0);
  if (!number.IsNumeric()) throw WrongArgument("Round of what is no number");
  return RoundHalfEven(number.ToDouble(), static_cast<int>(arguments.Long(1, 0)));
}

Value Divisor(const SqlArguments& arguments) {
  const Value number = arguments.At(0);
  if (number.ToDouble() == 0) throw WrongArgument("division by zero");
  return number;
}

template <int least>
Value AtLeast(const SqlArguments& arguments) {
  const qint64 number = arguments.Long(0);
  if (number < least) {
    throw WrongArgument(std::to_string(number) + " is no place or length of a text");
  }
  return number;
}

struct MoneySum {
  qint64 units;
  bool any;
};

void MoneySumStep(sqlite3_context* context, int, sqlite3_value** arguments) {
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return;
  auto* sum = static_cast<MoneySum*>(sqlite3_aggregate_context(context, sizeof(MoneySum)));
  if (sum == nullptr) return sqlite3_result_error_nomem(context);
  sum->units += std::llround(sqlite3_value_double(arguments[0]) * Money::kUnitsPerOne);
  sum->any = true;
}

void MoneySumFinal(sqlite3_context* context) {
  const auto* sum = static_cast<const MoneySum*>(sqlite3_aggregate_context(context, 0));
  if (sum == nullptr || !sum->any) return sqlite3_result_null(context);
  sqlite3_result_double(context, Money::FromUnits(sum->units).ToDouble());
}

/// The value of one row of a group.
struct OneOfGroup {
  sqlite3_value* value;
};

template <bool last>
void OneOfGroupStep(sqlite3_context* context, int, sqlite3_value** arguments) {
  auto* one = static_cast<OneOfGroup*>(sqlite3_aggregate_context(context, sizeof(OneOfGroup)));
  if (one == nullptr) return sqlite3_result_error_nomem(context);
  if (one->value != nullptr && !last) return;
  sqlite3_value_free(one->value);
  one->value = sqlite3_value_dup(arguments[0]);
}

void OneOfGroupFinal(sqlite3_context* context) {
  auto* one = static_cast<OneOfGroup*>(sqlite3_aggregate_context(context, 0));
  if (one == nullptr || one->value == nullptr) return sqlite3_result_null(context);
  sqlite3_result_value(context, one->value);
  sqlite3_value_free(one->value);
}

void RegisterAggregate(sqlite3* database, const char* name,
                       void (*step)(sqlite3_context*, int, sqlite3_value**),
                       void (*final)(sqlite3_context*)) {
  const int code = sqlite3_create_function_v2(database, name, 1, kPureFunction, nullptr, nullptr,
                                              step, final, nullptr);
  if (code != SQLITE_OK) ThrowFailure(database, code);
}

void RegisterTextOrder(sqlite3* database) {
  const int code = sqlite3_create_collation_v2(
      database, names::kTextOrder, SQLITE_UTF8, nullptr,
      [](void*, int leftBytes, const void* left, int rightBytes, const void* right) {
        return CompareTexts({static_cast<const char*>(left), static_cast<size_t>(leftBytes)},
                            {static_cast<const char*>(right), static_cast<size_t>(rightBytes)});
      },
      nullptr);
  if (code != SQLITE_OK) ThrowFailure(database, code);
}

}  // namespace

void RegisterSqlFunctions(sqlite3* database) {
  const auto add = [&](const char* name, int arguments, SqlFunction function) {
    RegisterFunction(database, name, arguments, function);
  };
  add(names::kClng, 1, ConvertInto<ColumnType::Long>);
  add(names::kWhole, 1, ConvertInto<ColumnType::Long>);
  add(names::kFraction, 1, ConvertInto<ColumnType::Double>);
  add(names::kMoney, 1, ConvertInto<ColumnType::Currency>);
  add(names::kDate, 1, ConvertInto<ColumnType::Date>);
  add(names::kText, 1, ConvertInto<ColumnType::Text>);
  add(names::kDateText, 1, DateText);
  RegisterFunction(database, names::kYesNo, 1, ConvertInto<ColumnType::YesNo>, Nulls::Taken);
  add(names::kRound, -1, Round);
  add(names::kDivisor, 1, Divisor);
  add(names::kCount, 1, AtLeast<0>);
  add(names::kPlace, 1, AtLeast<1>);
  RegisterDateFunctions(database);
  RegisterTextFunctions(database);
  RegisterTextOrder(database);
  RegisterAggregate(database, names::kMoneySum, MoneySumStep, MoneySumFinal);
  RegisterAggregate(database, names::kFirst, OneOfGroupStep<false>, OneOfGroupFinal);
  RegisterAggregate(database, names::kLast, OneOfGroupStep<true>, OneOfGroupFinal);
}

}  // namespace quillary
