#include "support/Contents.h"

#include "data/schema/Schema.h"
#include "data/store/Connection.h"

namespace quillary {
namespace {

/// "SELECT 'rowid ' || rowid || ...": one text a row.
std::string RowsStatement(const jet::Table& table) {
  const std::string name = table.name.toStdString();
  std::string statement = "SELECT rowid";
  for (const jet::Column& column : table.columns) {
    if (table.name == u"infSystem" && column.name == u"Invoice_Number") continue;
    const std::string word = column.name.toStdString();
    statement += " || ' " + word + "=' || quote(\"" + word + "\")";
  }
  return statement + " FROM \"" + name + "\"";
}

void AddMissing(const char* sign, const Contents& of, const Contents& in, std::string& lines) {
  for (const auto& [table, rows] : of.rows) {
    const auto at = in.rows.find(table);
    for (const std::string& row : rows) {
      if (at != in.rows.end() && at->second.contains(row)) continue;
      lines += sign + (' ' + table) + ' ' + row + '\n';
    }
  }
}

}  // namespace

void PrintTo(const Contents& contents, std::ostream* stream) {
  for (const auto& [table, rows] : contents.rows) *stream << table << ": " << rows.size() << "; ";
  *stream << "Difference() tells which rows differ";
}

Contents ContentsOf(Business& business) {
  business.ConnectToDatabase();
  Connection& file = business.StoreConnection();
  Statement names(file.Handle(), "SELECT name FROM sqlite_master WHERE type = 'table'");
  Contents contents;
  while (names.Step()) {
    const QString name = names.Column(0, jet::ColumnType::Text).ToText();
    const jet::Table* table = file.Schema().FindTable(name);
    if (table == nullptr || WorkTables().contains(name)) continue;
    Statement select(file.Handle(), RowsStatement(*table));
    std::set<std::string>& rows = contents.rows[name.toStdString()];
    while (select.Step()) {
      rows.insert(select.Column(0, jet::ColumnType::Text).ToText().toStdString());
    }
  }
  return contents;
}

std::string Difference(const Contents& one, const Contents& other) {
  std::string lines;
  AddMissing("-", one, other, lines);
  AddMissing("+", other, one, lines);
  return lines;
}

}  // namespace quillary
