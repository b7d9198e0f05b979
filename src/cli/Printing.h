#pragma once

#include "base/Value.h"
#include "cli/Command.h"
#include "data/store/Recordset.h"

#include <QStringList>
#include <QTextStream>

#include <vector>

/// How results look: aligned for people, JSON for programs.
namespace quillary::cli {

/// Rows under named columns, in the order in which they were added.
class ResultTable {
 public:
  explicit ResultTable(QStringList columns) : columns_(std::move(columns)) {}
  static ResultTable FromRecordset(const Recordset& recordset);

  void AddRow(std::vector<Value> cells) { rows_.push_back(std::move(cells)); }

  /// A line of names, then a line a row; columns of numbers stand to the right.
  void PrintAligned(QTextStream& out) const;
  /// An array with an object for each row, its keys in column order, every row on a line.
  void PrintJson(QTextStream& out) const;

 private:
  bool IsNumeric(size_t column) const;

  QStringList columns_;
  std::vector<std::vector<Value>> rows_;
};

/// The table in the form that was asked for.
void PrintTable(const Call& call, const ResultTable& table);
/// A day as a cell, empty when it is none: a date for programs, in ISO form for people.
Value DayCell(const Call& call, QDate day);

/// Currency and numbers as numbers, yes/no as true and false, a moment as "YYYY-MM-DD HH:MM:SS".
QString ToJson(const Value& value);

}  // namespace quillary::cli
