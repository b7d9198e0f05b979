#include "data/jet/ScratchFile.h"

#include "data/jet/Declarations.h"
#include "data/jet/Functions.h"

#include <sqlite3.h>

#include <cmath>
#include <sstream>
#include <utility>

namespace quillary::jet {
namespace {

Value ValueOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return Value(static_cast<qint64>(sqlite3_value_int64(value)));
    case SQLITE_FLOAT:
      return Value(sqlite3_value_double(value));
    default:
      break;
  }
  return Value(reinterpret_cast<const char*>(sqlite3_value_text(value)));
}

struct Binder {
  sqlite3_stmt* statement;
  int index;
  int operator()(std::monostate) const { return sqlite3_bind_null(statement, index); }
  int operator()(qint64 number) const { return sqlite3_bind_int64(statement, index, number); }
  int operator()(double number) const { return sqlite3_bind_double(statement, index, number); }
  int operator()(Money amount) const { return (*this)(amount.ToDouble()); }
  int operator()(bool yes) const { return (*this)(qint64{yes}); }
  int operator()(const DateTime& moment) const { return (*this)(ToIsoText(moment)); }
  int operator()(const QString& text) const {
    const QByteArray utf8 = text.toUtf8();
    return sqlite3_bind_text(statement, index, utf8.data(), static_cast<int>(utf8.size()),
                             SQLITE_TRANSIENT);
  }
};

void Return(sqlite3_context* context, const std::optional<Value>& value) {
  if (!value) {
    sqlite3_result_error(context, "this value does not convert", -1);
    return;
  }
  if (value->IsNull()) return sqlite3_result_null(context);
  if (value->IsText() || value->IsDate()) {
    const QByteArray utf8 = value->ToText().toUtf8();
    return sqlite3_result_text(context, utf8.data(), static_cast<int>(utf8.size()),
                               SQLITE_TRANSIENT);
  }
  const auto& variant = value->variant();
  if (std::holds_alternative<double>(variant) || std::holds_alternative<Money>(variant)) {
    return sqlite3_result_double(context, value->ToDouble());
  }
  sqlite3_result_int64(context, value->ToLong());
}

template <ColumnType type>
void ConvertTo(sqlite3_context* context, int, sqlite3_value** arguments) {
  Return(context, Convert(ValueOf(arguments[0]), type));
}

void Round(sqlite3_context* context, int count, sqlite3_value** arguments) {
  const Value number = ValueOf(arguments[0]);
  if (number.IsNull()) return sqlite3_result_null(context);
  const int decimals = count > 1 ? sqlite3_value_int(arguments[1]) : 0;
  sqlite3_result_double(context, RoundHalfEven(number.ToDouble(), decimals));
}

template <bool upper>
void ChangeCase(sqlite3_context* context, int, sqlite3_value** arguments) {
  const Value text = ValueOf(arguments[0]);
  if (text.IsNull()) return sqlite3_result_null(context);
  Return(context, Value(upper ? text.ToText().toUpper() : text.ToText().toLower()));
}

struct Sum {
  qint64 units;
  bool any;
};

void AddMoney(sqlite3_context* context, int, sqlite3_value** arguments) {
  auto* sum = static_cast<Sum*>(sqlite3_aggregate_context(context, sizeof(Sum)));
  if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return;
  sum->units += std::llround(sqlite3_value_double(arguments[0]) * Money::kUnitsPerOne);
  sum->any = true;
}

void FinishMoney(sqlite3_context* context) {
  const auto* sum = static_cast<Sum*>(sqlite3_aggregate_context(context, sizeof(Sum)));
  if (!sum->any) return sqlite3_result_null(context);
  sqlite3_result_double(context, static_cast<double>(sum->units) / Money::kUnitsPerOne);
}

std::string ShownValue(sqlite3_stmt* statement, int index, std::optional<ColumnType> type) {
  if (sqlite3_column_type(statement, index) == SQLITE_NULL) return "NULL";
  if (type == ColumnType::YesNo) return sqlite3_column_int(statement, index) ? "True" : "False";
  if (type == ColumnType::Currency) {
    return Money::FromDouble(sqlite3_column_double(statement, index)).ToText().toStdString();
  }
  if (type == ColumnType::Double || type == ColumnType::Single) {
    return Value(sqlite3_column_double(statement, index)).ToText().toStdString();
  }
  return reinterpret_cast<const char*>(sqlite3_column_text(statement, index));
}

}  // namespace

ScratchFile::ScratchFile() {
  sqlite3_open(":memory:", &connection_);
  sqlite3_db_config(connection_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(connection_, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  RegisterFunctions();
}

ScratchFile::~ScratchFile() {
  sqlite3_close(connection_);
}

void ScratchFile::RegisterFunctions() {
  using Function = void (*)(sqlite3_context*, int, sqlite3_value**);
  const auto add = [&](const char* name, Function function, int count = 1) {
    sqlite3_create_function(connection_, name, count, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr,
                            function, nullptr, nullptr);
  };
  add(functions::kClng, ConvertTo<ColumnType::Long>);
  add(functions::kWhole, ConvertTo<ColumnType::Long>);
  add(functions::kFraction, ConvertTo<ColumnType::Double>);
  add(functions::kMoney, ConvertTo<ColumnType::Currency>);
  add(functions::kDate, ConvertTo<ColumnType::Date>);
  add(functions::kYesNo, ConvertTo<ColumnType::YesNo>);
  add(functions::kText, ConvertTo<ColumnType::Text>);
  add(functions::kRound, Round, 1);
  add(functions::kRound, Round, 2);
  add(functions::kUcase, ChangeCase<true>);
  add(functions::kLcase, ChangeCase<false>);
  sqlite3_create_function(connection_, functions::kMoneySum, 1, SQLITE_UTF8, nullptr, nullptr,
                          AddMoney, FinishMoney);
}

const Table* ScratchFile::FindTable(QStringView name) const {
  const QString key = name.toString().toLower();
  if (const auto known = tables_.find(key); known != tables_.end()) return known->second.get();
  QString quoted = name.toString();
  quoted.replace(u'\'', QStringLiteral("''"));
  const auto found = Raw("SELECT name FROM sqlite_master WHERE type = 'table' AND name = '" +
                         quoted.toStdString() + "' COLLATE NOCASE");
  if (found.empty()) return nullptr;
  auto table = std::make_unique<Table>();
  table->name = QString::fromStdString(found[0][0]);
  for (const TextRow& row :
       Raw("SELECT name, type, pk FROM pragma_table_info('" + quoted.toStdString() + "')")) {
    const QString declared = QString::fromStdString(row[1]);
    Column column;
    column.name = QString::fromStdString(row[0]);
    column.type = row[2] == "1" ? ColumnType::Counter : TypeOfDeclaration(declared);
    column.width = WidthOfDeclaration(declared);
    table->columns.push_back(column);
  }
  return (tables_[key] = std::move(table)).get();
}

std::vector<QString> ScratchFile::IndexesUsing(QStringView table, QStringView column) const {
  std::vector<QString> names;
  for (const TextRow& row :
       Raw("SELECT m.name FROM sqlite_master m, pragma_index_info(m.name) i WHERE m.type = 'index' "
           "AND m.sql IS NOT NULL AND m.tbl_name = '" +
           table.toString().toStdString() + "' AND i.name = '" + column.toString().toStdString() +
           "'")) {
    names.push_back(QString::fromStdString(row[0]));
  }
  return names;
}

std::vector<QString> ScratchFile::IndexStatements(QStringView table) const {
  std::vector<QString> texts;
  for (const TextRow& row : Raw("SELECT sql FROM sqlite_master WHERE type = 'index' AND sql IS NOT "
                                "NULL AND tbl_name = '" +
                                table.toString().toStdString() + "'")) {
    texts.push_back(QString::fromStdString(row[0]));
  }
  return texts;
}

const Catalogue* ScratchFile::Elsewhere(const QString& file) const {
  const auto found = files_.find(file);
  return found == files_.end() ? nullptr : found->second;
}

std::vector<TextRow> ScratchFile::Run(const std::string& text) {
  return Run(CutLiterals(text));
}

std::vector<TextRow> ScratchFile::Run(const CutStatement& cut, const Translation& translation) {
  std::vector<TextRow> rows;
  for (const std::string& sql : translation.statements) {
    rows = Step(sql, translation.changesSchema && !translation.into ? nullptr : &cut, &translation);
  }
  if (translation.changesSchema) ForgetTables();
  return rows;
}

void ScratchFile::RunAll(const std::string& lines) {
  std::istringstream stream(lines);
  std::string statement;
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty() && line[0] != ' ' && !statement.empty()) Run(std::exchange(statement, ""));
    statement += line;
  }
  if (!statement.empty()) Run(statement);
}

std::vector<TextRow> ScratchFile::Raw(const std::string& sql) const {
  return Step(sql, nullptr, nullptr);
}

std::vector<TextRow> ScratchFile::Step(const std::string& sql, const CutStatement* cut,
                                       const Translation* translation) const {
  const auto fail = [&](const std::string& what) { throw std::runtime_error(what + ": " + sql); };
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(connection_, sql.c_str(), -1, &raw, nullptr) != SQLITE_OK) {
    fail(sqlite3_errmsg(connection_));
  }
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(raw, sqlite3_finalize);
  for (size_t i = 0; cut && i < translation->parameters.size(); ++i) {
    const Parameter& parameter = translation->parameters[i];
    std::optional<Value> value = cut->literals.at(static_cast<size_t>(parameter.literal));
    if (parameter.convertTo) value = Convert(*value, *parameter.convertTo);
    if (!value) fail("a literal does not convert");
    if (std::visit(Binder{raw, static_cast<int>(i + 1)}, value->variant()) != SQLITE_OK) {
      fail("a parameter is not used");
    }
  }
  std::vector<TextRow> rows;
  int state = sqlite3_step(raw);
  for (; state == SQLITE_ROW; state = sqlite3_step(raw)) {
    TextRow row;
    for (int i = 0; i < sqlite3_column_count(raw); ++i) {
      std::optional<ColumnType> type;
      if (translation && !translation->columns.empty()) {
        type = translation->columns.at(static_cast<size_t>(i)).type;
      }
      row.push_back(ShownValue(raw, i, type));
    }
    rows.push_back(row);
  }
  if (state != SQLITE_DONE) fail(sqlite3_errmsg(connection_));
  return rows;
}

std::string Shown(const std::vector<TextRow>& rows) {
  std::string all;
  for (const TextRow& row : rows) {
    if (!all.empty()) all += " / ";
    for (size_t i = 0; i < row.size(); ++i) all += (i == 0 ? "" : "|") + row[i];
  }
  return all;
}

}  // namespace quillary::jet
