#include "data/store/SqlArguments.h"

#include "data/store/Statement.h"

namespace quillary {
namespace {

void ResultText(sqlite3_context* context, const QString& text) {
  const QByteArray utf8 = text.toUtf8();
  sqlite3_result_text(context, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

template <Nulls nulls>
void Call(sqlite3_context* context, int count, sqlite3_value** values) {
  const SqlArguments arguments(count, values);
  if (nulls == Nulls::Pass && arguments.AnyNull()) return sqlite3_result_null(context);
  // SQLite knows no exceptions.
  try {
    const auto function = reinterpret_cast<SqlFunction>(sqlite3_user_data(context));
    ResultValue(context, function(arguments));
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

}  // namespace

bool SqlArguments::AnyNull() const {
  for (int index = 0; index < count_; ++index) {
    if (IsNull(index)) return true;
  }
  return false;
}

Value SqlArguments::At(int index) const {
  switch (sqlite3_value_type(values_[index])) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return static_cast<qint64>(sqlite3_value_int64(values_[index]));
    case SQLITE_FLOAT:
      return sqlite3_value_double(values_[index]);
    default:
      return Text(index);
  }
}

QString SqlArguments::Text(int index) const {
  const char* text = reinterpret_cast<const char*>(sqlite3_value_text(values_[index]));
  return QString::fromUtf8(text, sqlite3_value_bytes(values_[index]));
}

DateTime SqlArguments::Moment(int index) const {
  const QString text = Text(index);
  const auto moment = FromIsoText(text);
  if (!moment) throw WrongArgument("\"" + text.left(40).toStdString() + "\" is no date");
  return *moment;
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

void RegisterFunction(sqlite3* database, const char* name, int arguments, SqlFunction function,
                      Nulls nulls) {
  const int code = sqlite3_create_function_v2(
      database, name, arguments, kPureFunction, reinterpret_cast<void*>(function),
      nulls == Nulls::Pass ? Call<Nulls::Pass> : Call<Nulls::Taken>, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) ThrowFailure(database, code);
}

}  // namespace quillary
