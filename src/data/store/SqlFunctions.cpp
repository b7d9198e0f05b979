#include "data/store/SqlFunctions.h"

#include "data/jet/Functions.h"
#include "data/jet/Translator.h"
#include "data/store/Statement.h"
#include "data/store/TextOrder.h"

#include <cmath>
#include <string>

namespace quillary {
namespace {

using jet::ColumnType;

Value ArgumentOf(sqlite3_value* argument) {
  switch (sqlite3_value_type(argument)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return static_cast<qint64>(sqlite3_value_int64(argument));
    case SQLITE_FLOAT:
      return sqlite3_value_double(argument);
    default: {
      const char* text = reinterpret_cast<const char*>(sqlite3_value_text(argument));
      return QString::fromUtf8(text, sqlite3_value_bytes(argument));
    }
  }
}

void ResultText(sqlite3_context* context, const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  sqlite3_result_text(context, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

void ResultValue(sqlite3_context* context, const Value& value) {
  struct Setter {
    sqlite3_context* context;
    void operator()(std::monostate) const { sqlite3_result_null(context); }
    void operator()(qint64 number) const { sqlite3_result_int64(context, number); }
    void operator()(double number) const { sqlite3_result_double(context, number); }
    void operator()(Money amount) const { sqlite3_result_double(context, amount.ToDouble()); }
    void operator()(bool yes) const { sqlite3_result_int(context, yes); }
    void operator()(const DateTime& moment) const { ResultText(context, ToIsoText(moment)); }
    void operator()(const QString& text) const { ResultText(context, text); }
  };
  std::visit(Setter{context}, value.variant());
}

/// One function for every conversion into a column type: the type is the function's user data.
void ConvertInto(sqlite3_context* context, int, sqlite3_value** arguments) {
  const auto type =
      static_cast<ColumnType>(reinterpret_cast<std::intptr_t>(sqlite3_user_data(context)));
  const Value value = ArgumentOf(arguments[0]);
  if (const auto converted = jet::Convert(value, type)) {
    ResultValue(context, *converted);
    return;
  }
  const std::string message =
      "\"" + value.ToText().left(40).toStdString() + "\" does not convert to the column's type";
  sqlite3_result_error(context, message.c_str(), -1);
}

void Round(sqlite3_context* context, int count, sqlite3_value** arguments) {
  const Value number = ArgumentOf(arguments[0]);
  if (number.IsNull()) return sqlite3_result_null(context);
  if (!number.IsNumeric()) return sqlite3_result_error(context, "Round of what is no number", -1);
  const int decimals = count > 1 ? sqlite3_value_int(arguments[1]) : 0;
  sqlite3_result_double(context, RoundHalfEven(number.ToDouble(), decimals));
}

template <QString (QString::*Fold)() const&>
void FoldCase(sqlite3_context* context, int, sqlite3_value** arguments) {
  const Value text = ArgumentOf(arguments[0]);
  if (text.IsNull()) return sqlite3_result_null(context);
  ResultText(context, (text.ToText().*Fold)());
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

constexpr int kPure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

using ScalarFunction = void (*)(sqlite3_context*, int, sqlite3_value**);

void RegisterScalar(sqlite3* database, const char* name, int arguments, ScalarFunction function,
                    void* data = nullptr) {
  const int code = sqlite3_create_function_v2(database, name, arguments, kPure, data, function,
                                              nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) ThrowFailure(database, code);
}

void RegisterConversion(sqlite3* database, const char* name, ColumnType type) {
  RegisterScalar(database, name, 1, ConvertInto,
                 reinterpret_cast<void*>(static_cast<std::intptr_t>(type)));
}

}  // namespace

void RegisterSqlFunctions(sqlite3* database) {
  namespace names = jet::functions;
  RegisterConversion(database, names::kClng, ColumnType::Long);
  RegisterConversion(database, names::kWhole, ColumnType::Long);
  RegisterConversion(database, names::kFraction, ColumnType::Double);
  RegisterConversion(database, names::kMoney, ColumnType::Currency);
  RegisterConversion(database, names::kDate, ColumnType::Date);
  RegisterConversion(database, names::kYesNo, ColumnType::YesNo);
  RegisterConversion(database, names::kText, ColumnType::Text);
  RegisterScalar(database, names::kRound, 1, Round);
  RegisterScalar(database, names::kRound, 2, Round);
  RegisterScalar(database, names::kUcase, 1, FoldCase<&QString::toUpper>);
  RegisterScalar(database, names::kLcase, 1, FoldCase<&QString::toLower>);
  int code = sqlite3_create_collation_v2(
      database, names::kTextOrder, SQLITE_UTF8, nullptr,
      [](void*, int leftBytes, const void* left, int rightBytes, const void* right) {
        return CompareTexts({static_cast<const char*>(left), static_cast<size_t>(leftBytes)},
                            {static_cast<const char*>(right), static_cast<size_t>(rightBytes)});
      },
      nullptr);
  if (code != SQLITE_OK) ThrowFailure(database, code);
  code = sqlite3_create_function_v2(database, names::kMoneySum, 1, kPure, nullptr, nullptr,
                                    MoneySumStep, MoneySumFinal, nullptr);
  if (code != SQLITE_OK) ThrowFailure(database, code);
}

}  // namespace quillary
