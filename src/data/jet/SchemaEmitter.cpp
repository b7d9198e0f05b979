#include "data/jet/SchemaEmitter.h"

#include "data/jet/Declarations.h"
#include "data/jet/Emitter.h"
#include "data/jet/Functions.h"

#include <algorithm>

namespace quillary::jet {
namespace {

bool SameName(const QString& one, const QString& two) {
  return one.compare(two, Qt::CaseInsensitive) == 0;
}

std::string TextOf(const QString& text) {
  QString doubled = text;
  doubled.replace(u'\'', QStringLiteral("''"));
  return "'" + doubled.toStdString() + "'";
}

/// The value of an old column as the new type holds it.
std::string Carried(const Column& from, ColumnType to) {
  const std::string old = Quoted(from.name);
  const Family before = FamilyOf(from.type);
  const Family after = FamilyOf(to);
  const std::string yesAsNumber = before == Family::YesNo ? "-" + old : old;
  if (after == before && after != Family::Number) return old;
  switch (to) {
    case ColumnType::Counter:
    case ColumnType::Long:
      return Called(functions::kWhole, yesAsNumber);
    case ColumnType::Single:
    case ColumnType::Double:
      return Called(functions::kFraction, yesAsNumber);
    case ColumnType::Currency:
      return Called(functions::kMoney, yesAsNumber);
    case ColumnType::Date:
      return Called(functions::kDate, old);
    case ColumnType::YesNo:
      return Called(functions::kYesNo, old);
    case ColumnType::Text:
    case ColumnType::Memo:
      break;
  }
  return before == Family::Date ? Called(functions::kDateText, old)
                                : Called(functions::kText, yesAsNumber);
}

bool HasCounter(const Table& table) {
  return std::any_of(table.columns.begin(), table.columns.end(),
                     [](const Column& column) { return column.type == ColumnType::Counter; });
}

}  // namespace

void Emitter::EmitSchema(const Statement& tree) {
  result_.statements = SchemaEmitter(statement_, catalogue_).Emit(tree);
  result_.changesSchema = true;
  result_.mayBeCached = false;
}

std::vector<std::string> SchemaEmitter::Emit(const Statement& tree) {
  std::visit(
      [&](const auto& change) {
        if constexpr (requires { this->Emit(change); }) Emit(change);
      },
      tree);
  return std::move(texts_);
}

void SchemaEmitter::Fail(const Token& token, const std::string& what) const {
  FailAt(statement_, token, what);
}

const Table& SchemaEmitter::TableNamed(const QString& name, const Token& token) const {
  const Table* table = catalogue_.FindTable(name);
  if (!table) Fail(token, "there is no table " + name.toStdString());
  return *table;
}

const Column& SchemaEmitter::ColumnNamed(const Table& table,
                                         const ColumnDefinition& definition) const {
  const Column* column = table.Find(definition.column.name);
  if (!column) Fail(definition.token, "there is no such column in " + table.name.toStdString());
  return *column;
}

std::string SchemaEmitter::Declared(const ColumnDefinition& definition) {
  const Column& column = definition.column;
  std::string declared = Quoted(column.name) + " " + DeclarationOf(column).toStdString();
  if (column.type == ColumnType::Counter) return declared;
  const bool never = definition.notNull || definition.primaryKey;
  if (never && column.type != ColumnType::YesNo) declared += " NOT NULL";
  return declared;
}

void SchemaEmitter::Emit(const CreateTable& create) {
  if (catalogue_.FindTable(create.name)) {
    Fail(create.token, "there is a table " + create.name.toStdString() + " already");
  }
  std::vector<std::string> columns;
  int counters = 0;
  for (size_t i = 0; i < create.columns.size(); ++i) {
    const ColumnDefinition& definition = create.columns[i];
    for (size_t j = 0; j < i; ++j) {
      if (SameName(create.columns[j].column.name, definition.column.name)) {
        Fail(definition.token, "this column is named twice");
      }
    }
    if (definition.column.type == ColumnType::Counter && ++counters > 1) {
      Fail(definition.token, "a table counts one column only");
    }
    columns.push_back(Declared(definition));
  }
  if (columns.empty()) Fail(create.token, "a table needs a column");
  texts_.push_back("CREATE TABLE " + Quoted(create.name) + " (" + Listed(columns) + ")");
  AddKeys(create);
}

// Keys are indexes with names, so that they outlive a rebuilding of the table.
void SchemaEmitter::AddKeys(const CreateTable& create) {
  const auto add = [&](const QString& name, const std::vector<std::string>& columns) {
    texts_.push_back("CREATE UNIQUE INDEX " + Quoted(create.name + u' ' + name) + " ON " +
                     Quoted(create.name) + " (" + Listed(columns) + ")");
  };
  for (const ColumnDefinition& definition : create.columns) {
    const bool counts = definition.column.type == ColumnType::Counter;
    if (!counts && (definition.unique || definition.primaryKey)) {
      add(definition.column.name, {Quoted(definition.column.name)});
    }
  }
  std::vector<std::string> key;
  for (const QString& name : create.primaryKey) key.push_back(Quoted(name));
  if (!key.empty()) add(QStringLiteral("key"), key);
}

void SchemaEmitter::Emit(const AlterTable& alter) {
  const Table& table = TableNamed(alter.table, alter.token);
  for (size_t i = 0; i < alter.columns.size(); ++i) {
    for (size_t j = 0; j < i; ++j) {
      if (SameName(alter.columns[i].column.name, alter.columns[j].column.name)) {
        Fail(alter.columns[i].token, "this column is named twice");
      }
    }
  }
  switch (alter.kind) {
    case AlterTable::Kind::Add:
      Add(table, alter.columns);
      break;
    case AlterTable::Kind::Alter:
      Alter(table, alter.columns);
      break;
    case AlterTable::Kind::Drop:
      Drop(table, alter.columns);
      break;
  }
}

void SchemaEmitter::Add(const Table& table, const std::vector<ColumnDefinition>& columns) {
  bool counts = HasCounter(table);
  bool rebuild = false;
  std::vector<Successor> successors;
  for (const Column& column : table.columns) successors.push_back({column, &column});
  for (const ColumnDefinition& definition : columns) {
    if (table.Find(definition.column.name)) {
      Fail(definition.token, "there is such a column already");
    }
    if (definition.notNull || definition.unique || definition.primaryKey) {
      Fail(definition.token, "a column is added without constraints");
    }
    if (definition.column.type == ColumnType::Counter) {
      if (std::exchange(counts, true)) Fail(definition.token, "a table counts one column only");
      rebuild = true;
    }
    successors.push_back({definition.column, nullptr});
  }
  if (rebuild) {
    Rebuild(table, successors);
    return;
  }
  for (const ColumnDefinition& definition : columns) {
    texts_.push_back("ALTER TABLE " + Quoted(table.name) + " ADD COLUMN " + Declared(definition));
  }
}

void SchemaEmitter::Alter(const Table& table, const std::vector<ColumnDefinition>& columns) {
  std::vector<Successor> successors;
  for (const Column& column : table.columns) successors.push_back({column, &column});
  for (const ColumnDefinition& definition : columns) {
    const Column& old = ColumnNamed(table, definition);
    for (Successor& successor : successors) {
      if (successor.from != &old) continue;
      successor.column.type = definition.column.type;
      successor.column.width = definition.column.width;
    }
  }
  const auto counters =
      std::count_if(successors.begin(), successors.end(),
                    [](const Successor& each) { return each.column.type == ColumnType::Counter; });
  if (counters > 1) Fail(columns.front().token, "a table counts one column only");
  Rebuild(table, successors);
}

void SchemaEmitter::Drop(const Table& table, const std::vector<ColumnDefinition>& columns) {
  std::vector<const Column*> dropped;
  std::vector<QString> indexes;
  for (const ColumnDefinition& definition : columns) {
    dropped.push_back(&ColumnNamed(table, definition));
    for (const QString& index : catalogue_.IndexesUsing(table.name, dropped.back()->name)) {
      if (std::find(indexes.begin(), indexes.end(), index) == indexes.end()) {
        indexes.push_back(index);
      }
    }
  }
  if (dropped.size() == table.columns.size()) {
    Fail(columns.front().token, "a table needs a column");
  }
  // A key can't be dropped in place: it is made an ordinary column first.
  std::vector<Successor> successors;
  for (const Column& column : table.columns) successors.push_back({column, &column});
  bool dropsKey = false;
  for (Successor& successor : successors) {
    if (successor.column.type != ColumnType::Counter) continue;
    if (std::find(dropped.begin(), dropped.end(), successor.from) == dropped.end()) continue;
    successor.column.type = ColumnType::Long;
    dropsKey = true;
  }
  if (dropsKey) Rebuild(table, successors);
  for (const QString& index : indexes) texts_.push_back("DROP INDEX " + Quoted(index));
  for (const Column* column : dropped) {
    texts_.push_back("ALTER TABLE " + Quoted(table.name) + " DROP COLUMN " + Quoted(column->name));
  }
}

void SchemaEmitter::Rebuild(const Table& table, const std::vector<Successor>& columns) {
  const QString name = table.name + QStringLiteral(" being rebuilt");
  std::vector<std::string> declared;
  std::vector<std::string> names;
  std::vector<std::string> values;
  bool counts = false;
  for (const Successor& successor : columns) {
    ColumnDefinition definition;
    definition.column = successor.column;
    declared.push_back(Declared(definition));
    counts = counts || successor.column.type == ColumnType::Counter;
    if (!successor.from) continue;
    names.push_back(Quoted(successor.column.name));
    values.push_back(successor.from->type == successor.column.type
                         ? Quoted(successor.from->name)
                         : Carried(*successor.from, successor.column.type));
  }
  texts_.push_back("CREATE TABLE " + Quoted(name) + " (" + Listed(declared) + ")");
  texts_.push_back("INSERT INTO " + Quoted(name) + " (" + Listed(names) + ") SELECT " +
                   Listed(values) + " FROM " + Quoted(table.name) + " ORDER BY rowid");
  if (counts && HasCounter(table)) {
    // Numbers of rows that are gone already must not come again.
    texts_.push_back("DELETE FROM sqlite_sequence WHERE name = " + TextOf(name));
    texts_.push_back("INSERT INTO sqlite_sequence (name, seq) SELECT " + TextOf(name) +
                     ", seq FROM sqlite_sequence WHERE name = " + TextOf(table.name));
  }
  texts_.push_back("DROP TABLE " + Quoted(table.name));
  texts_.push_back("ALTER TABLE " + Quoted(name) + " RENAME TO " + Quoted(table.name));
  for (const QString& index : catalogue_.IndexStatements(table.name)) {
    texts_.push_back(index.toStdString());
  }
}

void SchemaEmitter::Emit(const CreateIndex& create) {
  const Table& table = TableNamed(create.table, create.token);
  std::vector<std::string> columns;
  for (const CreateIndex::Part& part : create.columns) {
    const Column* column = table.Find(NameOf(part.token));
    if (!column) Fail(part.token, "there is no such column in " + table.name.toStdString());
    columns.push_back(Quoted(column->name) + (part.descending ? " DESC" : ""));
  }
  texts_.push_back(std::string(create.unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ") +
                   Quoted(create.name) + " ON " + Quoted(table.name) + " (" + Listed(columns) +
                   ")");
}

void SchemaEmitter::Emit(const DropIndex& drop) {
  TableNamed(drop.table, drop.token);
  texts_.push_back("DROP INDEX " + Quoted(drop.name));
}

void SchemaEmitter::Emit(const DropTable& drop) {
  TableNamed(drop.name, drop.token);
  texts_.push_back("DROP TABLE " + Quoted(drop.name));
}

}  // namespace quillary::jet
