#include "data/store/SchemaCatalogue.h"

#include "data/jet/Declarations.h"
#include "data/store/Statement.h"

#include <algorithm>

namespace quillary {
namespace {

using jet::ColumnType;

QString TextAt(const Statement& statement, int column) {
  return statement.Column(column, ColumnType::Text).ToText();
}

std::string Quoted(const QString& name) {
  QString doubled = name;
  doubled.replace(u'"', QStringLiteral("\"\""));
  return (u'"' + doubled + u'"').toStdString();
}

std::vector<jet::Column> ReadColumns(sqlite3* database, const QString& table) {
  Statement info(database, "PRAGMA table_info(" + Quoted(table) + ")");
  std::vector<jet::Column> columns;
  while (info.Step()) {
    constexpr int kName = 1;
    constexpr int kType = 2;
    constexpr int kPrimaryKey = 5;
    const QString declared = TextAt(info, kType);
    jet::Column column{TextAt(info, kName), jet::TypeOfDeclaration(declared),
                       jet::WidthOfDeclaration(declared)};
    const bool isKey = info.Column(kPrimaryKey, ColumnType::Long).ToLong() > 0;
    if (isKey && column.type == ColumnType::Long) column.type = ColumnType::Counter;
    columns.push_back(std::move(column));
  }
  return columns;
}

std::vector<QString> ReadIndexColumns(sqlite3* database, const QString& index) {
  Statement info(database, "PRAGMA index_info(" + Quoted(index) + ")");
  std::vector<QString> columns;
  while (info.Step()) columns.push_back(TextAt(info, 2));
  return columns;
}

bool Same(QStringView one, QStringView other) {
  return one.compare(other, Qt::CaseInsensitive) == 0;
}

}  // namespace

void SchemaCatalogue::Load(sqlite3* database) {
  tables_.clear();
  indexes_.clear();
  Statement master(database,
                   "SELECT type, name, tbl_name, sql FROM sqlite_master WHERE name NOT LIKE "
                   "'sqlite\\_%' ESCAPE '\\' AND type IN ('table', 'index')");
  while (master.Step()) {
    const QString name = TextAt(master, 1);
    if (TextAt(master, 0) == u"table") {
      tables_[name.toLower()] = {name, ReadColumns(database, name)};
    } else {
      indexes_.push_back(
          {name, TextAt(master, 2), TextAt(master, 3), ReadIndexColumns(database, name)});
    }
  }
}

const jet::Table* SchemaCatalogue::FindTable(QStringView name) const {
  const auto at = tables_.find(name.toString().toLower());
  return at == tables_.end() ? nullptr : &at->second;
}

std::vector<QString> SchemaCatalogue::IndexesUsing(QStringView table, QStringView column) const {
  std::vector<QString> names;
  for (const Index& index : indexes_) {
    if (!Same(index.table, table)) continue;
    for (const QString& indexed : index.columns) {
      if (Same(indexed, column)) {
        names.push_back(index.name);
        break;
      }
    }
  }
  return names;
}

std::vector<QString> SchemaCatalogue::IndexStatements(QStringView table) const {
  std::vector<QString> statements;
  for (const Index& index : indexes_) {
    if (Same(index.table, table)) statements.push_back(index.statement);
  }
  return statements;
}

bool SchemaCatalogue::HasIndex(QStringView name) const {
  return std::any_of(indexes_.begin(), indexes_.end(),
                     [&](const Index& index) { return Same(index.name, name); });
}

}  // namespace quillary
