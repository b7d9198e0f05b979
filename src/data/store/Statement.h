#pragma once

#include "base/Value.h"
#include "data/jet/Catalogue.h"
#include "data/store/RowLog.h"
#include "data/store/StorageFailure.h"

#include <QString>

#include <sqlite3.h>

#include <memory>
#include <string>

namespace quillary {

/// A statement that SQLite or the dialect would not do. Nothing was changed by it.
class StatementRefused : public std::runtime_error {
 public:
  explicit StatementRefused(const std::string& reason) : std::runtime_error(reason) {}
};

/// Throws what an SQLite result code means: StatementRefused for what lies in the statement,
/// StorageFailure for what lies below it.
[[noreturn]] void ThrowFailure(sqlite3* database, int code);

/// One prepared SQLite statement.
class Statement {
 public:
  /// Throws StatementRefused or StorageFailure.
  Statement(sqlite3* database, const std::string& text);

  /// Numbered from 1. Currency is bound as its canonical number, a moment as ISO text.
  void Bind(int parameter, const Value& value);
  /// Binds what lay in a row, whose bytes must stay until the statement has run.
  void BindCell(int parameter, const RowCell& cell);
  /// True when there is a row; at the end, and after a failure, the statement is ready again.
  bool Step();
  void Reset() { sqlite3_reset(statement_.get()); }
  /// A field of the current row as a value of that type of the dialect.
  Value Column(int column, jet::ColumnType type) const;
  int ColumnCount() const { return sqlite3_column_count(statement_.get()); }

 private:
  struct Finalise {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  sqlite3* database_;
  std::unique_ptr<sqlite3_stmt, Finalise> statement_;
};

/// Resets the statement when the reading of its rows ends, in whatever way.
class ResetAtEnd {
 public:
  explicit ResetAtEnd(Statement& statement) : statement_(statement) {}
  ~ResetAtEnd() { statement_.Reset(); }
  ResetAtEnd(const ResetAtEnd&) = delete;
  ResetAtEnd& operator=(const ResetAtEnd&) = delete;

 private:
  Statement& statement_;
};

/// Runs SQLite's own texts, without rows. Throws like Statement.
void Execute(sqlite3* database, const char* text);

}  // namespace quillary
