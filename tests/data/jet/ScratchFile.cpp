#include "data/jet/ScratchFile.h"

#include "data/jet/Declarations.h"
#include "data/store/SqlFunctions.h"

#include <sqlite3.h>

#include <sstream>
#include <utility>

namespace quillary::jet {
namespace {

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
  RegisterSqlFunctions(connection_);
}

ScratchFile::~ScratchFile() {
  sqlite3_close(connection_);
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
    const DateTime now(QDate(2026, 11, 2), QTime(14, 7, 9));
    const Value value = ValueOf(parameter, cut->literals, now);
    if (std::visit(Binder{raw, static_cast<int>(i + 1)}, value.variant()) != SQLITE_OK) {
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
