#include "data/jet/Emitter.h"

#include <algorithm>

namespace quillary::jet {

void Emitter::EmitInsert(const Insert& insert) {
  const Table& table = TableNamed(insert.table, insert.token);
  std::vector<const Column*> columns;
  for (const Token& token : insert.columns) {
    const Column& column = ColumnNamed(table, NameOf(token), token);
    if (std::find(columns.begin(), columns.end(), &column) != columns.end()) {
      Fail(token, "this column is named twice");
    }
    columns.push_back(&column);
  }
  if (columns.empty()) {
    for (const Column& column : table.columns) columns.push_back(&column);
  }
  std::string names;
  for (const Column* column : columns) {
    names += (names.empty() ? "" : ", ") + Quoted(column->name);
  }
  result_.statements.push_back("INSERT INTO " + Quoted(table.name) + " (" + names + ") " +
                               InsertedRows(insert, table, columns));
}

std::string Emitter::InsertedRows(const Insert& insert, const Table& table,
                                  const std::vector<const Column*>& columns) {
  const char* const mismatch = "there are not as many values as columns";
  if (insert.select) {
    SelectText rows = SelectOf(*insert.select, nullptr, Naming::Numbered);
    if (insert.select->into) Fail(insert.select->into->token, "INTO can't stand here");
    if (rows.outputs.size() != columns.size()) Fail(insert.token, mismatch);
    std::vector<ColumnType> types;
    for (size_t i = 0; i < columns.size(); ++i) {
      types.push_back(columns[i]->type);
      NoteWritten(table, *columns[i], rows.outputs[i].fragment);
    }
    return Wrapped(std::move(rows), types, Naming::None).sql;
  }
  if (insert.values.size() != columns.size()) Fail(insert.token, mismatch);
  Scope nothing;
  std::string values;
  for (size_t i = 0; i < columns.size(); ++i) {
    const Fragment value = Expr(*insert.values[i], nothing);
    NoteWritten(table, *columns[i], value);
    values += (i == 0 ? "" : ", ") + Text(As(value, columns[i]->type));
  }
  return "VALUES (" + values + ")";
}

void Emitter::EmitUpdate(const Update& update) {
  Scope scope;
  const std::string from = From(*update.from, scope);
  const VisibleSource target = UpdateTarget(update, scope);
  const bool joined = update.from->kind == Source::Kind::Join;
  std::string changes;
  std::string values;
  for (size_t i = 0; i < update.assignments.size(); ++i) {
    const Update::Assignment& assignment = update.assignments[i];
    const Column& column = ColumnNamed(*target.table, assignment.name, assignment.token);
    if (column.type == ColumnType::Counter) Fail(assignment.token, "a counter can't be changed");
    result_.assigned.push_back(static_cast<size_t>(&column - target.table->columns.data()));
    const Fragment given = Expr(*assignment.value, scope);
    NoteWritten(*target.table, column, given);
    const std::string value = Text(As(given, column.type));
    const std::string numbered = "\"c" + std::to_string(i + 1) + "\"";
    changes += (i == 0 ? "" : ", ") + Quoted(column.name) + " = " +
               (joined ? "\"the changes\"." + numbered : value);
    values += ", " + value + " AS " + numbered;
  }
  const std::string where =
      update.where ? " WHERE " + Condition(Expr(*update.where, scope)) : std::string();
  if (!joined) {
    result_.statements.push_back("UPDATE " + from + " SET " + changes + where);
    return;
  }
  // Rows that the join leaves null have no number and change nothing.
  const std::string table = Quoted(target.table->name);
  result_.statements.push_back("UPDATE " + table + " SET " + changes + " FROM (SELECT " +
                               Quoted(target.alias) + ".rowid AS \"row of target\"" + values +
                               " FROM " + from + where + ") AS \"the changes\" WHERE " + table +
                               ".rowid = \"the changes\".\"row of target\"");
}

const VisibleSource& Emitter::UpdateTarget(const Update& update, const Scope& scope) const {
  const VisibleSource* target = nullptr;
  for (const Update::Assignment& assignment : update.assignments) {
    const Scope::Found found = scope.Find(assignment.qualifier, assignment.name);
    if (found.ambiguous) {
      Fail(assignment.token, "this name could mean columns of several tables");
    }
    if (!found.column) Fail(assignment.token, "there is no such column here");
    if (target && target != found.source) {
      Fail(assignment.token, "one statement changes one table");
    }
    target = found.source;
  }
  if (!reading_->FindTable(target->table->name)) {
    Fail(update.assignments[0].token, "rows of a select can't be changed");
  }
  return *target;
}

void Emitter::EmitDelete(const Delete& statement) {
  Scope scope;
  const std::string from = From(*statement.from, scope);
  const VisibleSource* target =
      statement.target.isEmpty() ? &scope.sources.front() : scope.FindSource(statement.target);
  if (!target) Fail(statement.token, "there is no such table here");
  const bool joined = statement.from->kind == Source::Kind::Join;
  if (joined && statement.target.isEmpty()) {
    Fail(statement.token, "the table that rows are deleted from has to be named");
  }
  const std::string where =
      statement.where ? " WHERE " + Condition(Expr(*statement.where, scope)) : std::string();
  if (!joined) {
    if (statement.from->kind != Source::Kind::Table) {
      Fail(statement.token, "rows of a select can't be deleted");
    }
    result_.statements.push_back("DELETE FROM " + from + where);
    return;
  }
  if (!reading_->FindTable(target->table->name)) {
    Fail(statement.token, "rows of a select can't be deleted");
  }
  result_.statements.push_back("DELETE FROM " + Quoted(target->table->name) +
                               " WHERE rowid IN (SELECT " + Quoted(target->alias) + ".rowid FROM " +
                               from + where + ")");
}

}  // namespace quillary::jet
