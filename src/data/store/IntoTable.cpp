#include "data/store/IntoTable.h"

#include "data/jet/Declarations.h"
#include "data/store/OtherFile.h"
#include "data/store/Statement.h"

namespace quillary {
namespace {

std::string QuotedName(QString name) {
  name.replace(u'"', QStringLiteral("\"\""));
  return (u'"' + name + u'"').toStdString();
}

std::string CreateStatement(const jet::IntoTarget& target) {
  std::string statement = "CREATE TABLE " + QuotedName(target.table) + " (";
  for (size_t index = 0; index < target.columns.size(); ++index) {
    const jet::Column& column = target.columns[index];
    if (index > 0) statement += ", ";
    statement += QuotedName(column.name) + " " + jet::DeclarationOf(column).toStdString();
  }
  return statement + ")";
}

std::string InsertStatement(const jet::IntoTarget& target) {
  std::string places;
  for (size_t index = 0; index < target.columns.size(); ++index) {
    places += index == 0 ? "?" : ", ?";
  }
  return "INSERT INTO " + QuotedName(target.table) + " VALUES (" + places + ")";
}

}  // namespace

void MakeTable(sqlite3* database, const jet::IntoTarget& target, const Recordset& rows) {
  Execute(database, CreateStatement(target).c_str());
  Statement insert(database, InsertStatement(target));
  for (const Record row : rows) {
    for (size_t column = 0; column < row.Size(); ++column) {
      insert.Bind(static_cast<int>(column) + 1, row[column]);
    }
    insert.Step();
    insert.Reset();
  }
}

void MakeTableInFile(const jet::IntoTarget& target, const Recordset& rows) {
  const OtherFile other(*target.file);
  Execute(other.Handle(), "BEGIN IMMEDIATE");
  MakeTable(other.Handle(), target, rows);
  Execute(other.Handle(), "COMMIT");
}

}  // namespace quillary
