#include "data/store/RowReplay.h"

#include "data/store/Statement.h"

#include <unordered_map>

namespace quillary {
namespace {

using Kind = RowChange::Kind;
using Why = ReplayConflict::Why;

std::string Quoted(std::string name) {
  for (size_t at = name.find('"'); at != std::string::npos; at = name.find('"', at + 2)) {
    name.insert(at, 1, '"');
  }
  return '"' + name + '"';
}

struct TableColumns {
  std::string name;                  // of the table
  std::vector<std::string> columns;  // as statements name them
  std::set<size_t> spent;
  std::optional<size_t> key;  // the column that is the row's own number
};

TableColumns ColumnsOf(const jet::Catalogue& schema, const std::string& name,
                       const SpentNumbers& spent) {
  TableColumns table{name, {}, {}, {}};
  const jet::Table* known = schema.FindTable(QString::fromStdString(name));
  if (known == nullptr) throw StatementRefused("The table " + name + " is gone");
  for (const jet::Column& column : known->columns) {
    const std::string word = column.name.toStdString();
    if (column.type == jet::ColumnType::Counter) table.key = table.columns.size();
    if (spent.contains({name, word})) table.spent.insert(table.columns.size());
    table.columns.push_back(Quoted(word));
  }
  return table;
}

/// Which rows logs changed, and how.
class ChangedRows {
 public:
  void Add(RowLog& log) {
    log.Visit([&](const RowChange& change) {
      Row& row = rows_[log.Tables()[change.table]][change.row];
      // Seen from its end, a log tells first what became of the row at last.
      if (!row.last) row.last = change.kind;
      row.isWhole = row.isWhole || change.kind != Kind::Update;
      for (const RowChange::Column& column : change.columns) row.columns.insert(column.column);
      return true;
    });
  }

  std::optional<Why> InTheWayOf(const RowChange& change, const TableColumns& table) const {
    const auto rows = rows_.find(table.name);
    if (rows == rows_.end()) return std::nullopt;
    const auto at = rows->second.find(change.row);
    if (at == rows->second.end()) return std::nullopt;
    const Row& row = at->second;
    if (row.last == Kind::Delete) {
      // Who deleted the row then, and who deletes it now, agree.
      return change.kind == Kind::Delete ? std::nullopt : std::optional(Why::Gone);
    }
    if (change.kind == Kind::Delete) return Why::Taken;
    if (change.kind == Kind::Insert || row.isWhole) return Why::Changed;
    const bool overwrites = std::any_of(
        change.columns.begin(), change.columns.end(), [&](const RowChange::Column& column) {
          return row.columns.contains(column.column) && !table.spent.contains(column.column);
        });
    return overwrites ? std::optional(Why::Changed) : std::nullopt;
  }

 private:
  struct Row {
    std::optional<Kind> last;
    bool isWhole = false;  // made or deleted, so that it is another row now
    std::set<size_t> columns;
  };
  std::unordered_map<std::string, std::unordered_map<qint64, Row>> rows_;
};

/// Runs the inverse of each change as a statement of SQLite, compiled once for its shape.
class Inverter {
 public:
  Inverter(Connection& connection, const RowLog& log, const SpentNumbers& spent)
      : connection_(connection), database_(connection.Handle()) {
    for (const std::string& table : log.Tables()) {
      tables_.push_back(ColumnsOf(connection.Schema(), table, spent));
    }
  }

  /// Why it could not be done; nothing when it was.
  std::optional<ReplayConflict> TakeBack(const RowChange& change) {
    const TableColumns& table = tables_[change.table];
    switch (change.kind) {
      case Kind::Insert:
        return Outcome(Delete(table, change), table, change, Why::Gone);
      case Kind::Delete:
        return Outcome(Insert(table, change), table, change, Why::Taken);
      case Kind::Update:
        break;
    }
    return Outcome(Update(table, change), table, change, Why::Gone);
  }

 private:
  static std::optional<ReplayConflict> Outcome(bool done, const TableColumns& table,
                                               const RowChange& change, Why why) {
    if (done) return std::nullopt;
    return ReplayConflict{QString::fromStdString(table.name), change.row, why};
  }

  Statement& Compiled(const std::string& text) {
    const auto at = statements_.find(text);
    if (at != statements_.end()) return at->second;
    return statements_.emplace(text, Statement(database_, text)).first->second;
  }

  bool Done(Statement& statement) {
    const ResetAtEnd reset(statement);
    statement.Step();
    return sqlite3_changes64(database_) == 1;
  }

  bool Delete(const TableColumns& table, const RowChange& change) {
    Statement& statement = Compiled("DELETE FROM " + Quoted(table.name) + " WHERE rowid = ?1");
    statement.Bind(1, change.row);
    return Done(statement);
  }

  bool Insert(const TableColumns& table, const RowChange& change) {
    std::string names = "rowid";
    std::string places = "?";
    for (const RowChange::Column& column : change.columns) {
      if (column.column == table.key) continue;
      names += ", " + table.columns.at(column.column);
      places += ", ?";
    }
    Statement& statement =
        Compiled("INSERT INTO " + Quoted(table.name) + " (" + names + ") VALUES (" + places + ")");
    int place = 0;
    statement.Bind(++place, change.row);
    for (const RowChange::Column& column : change.columns) {
      if (column.column != table.key) statement.BindCell(++place, column.before);
    }
    try {
      return Done(statement);
    } catch (const StatementRefused&) {
      return false;  // another row has the number
    }
  }

  bool Update(const TableColumns& table, const RowChange& change) {
    std::string sets;
    changed_.clear();
    for (const RowChange::Column& column : change.columns) {
      const std::string& name = table.columns.at(column.column);
      const bool spent = table.spent.contains(column.column);
      sets += sets.empty() ? "" : ", ";
      sets += name + (spent ? " = MAX(IFNULL(" + name + ", 0), IFNULL(?, 0))" : " = ?");
      changed_.push_back(column.column);
    }
    Statement& statement =
        Compiled("UPDATE " + Quoted(table.name) + " SET " + sets + " WHERE rowid = ?");
    int place = 0;
    for (const RowChange::Column& column : change.columns) {
      statement.BindCell(++place, column.before);
    }
    statement.Bind(++place, change.row);
    const RowWatch::Expecting only(connection_.Rows(), changed_);
    return Done(statement);
  }

  Connection& connection_;
  sqlite3* database_;
  std::vector<TableColumns> tables_;
  std::vector<size_t> changed_;
  std::unordered_map<std::string, Statement> statements_;
};

}  // namespace

std::optional<ReplayConflict> FindConflict(RowLog& log,
                                           const std::vector<std::shared_ptr<RowLog>>& since,
                                           const jet::Catalogue& schema,
                                           const SpentNumbers& spent) {
  ChangedRows changed;
  for (const auto& other : since) changed.Add(*other);
  std::vector<TableColumns> tables;
  for (const std::string& table : log.Tables()) tables.push_back(ColumnsOf(schema, table, spent));
  std::optional<ReplayConflict> conflict;
  log.Visit([&](const RowChange& change) {
    const TableColumns& table = tables[change.table];
    if (const auto why = changed.InTheWayOf(change, table)) {
      conflict = {QString::fromStdString(table.name), change.row, *why};
    }
    return !conflict;
  });
  return conflict;
}

std::optional<ReplayConflict> TakeBack(Connection& connection, RowLog& log,
                                       const SpentNumbers& spent) {
  Inverter inverter(connection, log, spent);
  std::optional<ReplayConflict> conflict;
  log.Visit([&](const RowChange& change) {
    conflict = inverter.TakeBack(change);
    return !conflict;
  });
  return conflict;
}

}  // namespace quillary
