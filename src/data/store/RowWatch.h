#pragma once

#include "data/store/RowLog.h"
#include "data/store/SchemaCatalogue.h"

#include <sqlite3.h>

#include <set>
#include <string>
#include <vector>

namespace quillary {

/// Sees every row that a connection writes: keeps which tables were written and, when asked to,
/// what became of each row. It hears of rows before they are kept, so whoever undoes work has to
/// say so.
class RowWatch {
 public:
  explicit RowWatch(const SchemaCatalogue& catalogue) : catalogue_(catalogue) {}
  RowWatch(const RowWatch&) = delete;
  RowWatch& operator=(const RowWatch&) = delete;

  void Attach(sqlite3* database);

  /// From now on rows are written into this log, which must stay; null stops it. Tables of
  /// `leftOut` never are.
  void RecordInto(RowLog* log);
  RowLog* Log() const { return log_; }
  void LeaveOut(std::set<std::string> leftOut) { leftOut_ = std::move(leftOut); }

  /// While it lives, an UPDATE changes no other columns than these; none given are all. Spares a
  /// look at the others.
  class Expecting {
   public:
    Expecting(RowWatch& watch, const std::vector<size_t>& columns) : watch_(watch) {
      watch_.expected_ = columns.empty() ? nullptr : &columns;
    }
    ~Expecting() { watch_.expected_ = nullptr; }
    Expecting(const Expecting&) = delete;
    Expecting& operator=(const Expecting&) = delete;

   private:
    RowWatch& watch_;
  };

  struct Mark {
    size_t tables = 0;
    RowLog* log = nullptr;
    size_t logSize = 0;
  };
  Mark Here() const;
  /// What was heard since the mark was undone.
  void BackTo(const Mark& mark);
  /// The tables written since the last asking.
  std::vector<std::string> TakeTables();
  bool HasTables() const { return !tables_.empty(); }
  /// To be told after a change of the schema, since tables are known by their columns.
  void ForgetFacts() { facts_.clear(); }

 private:
  struct TableFacts {
    std::string name;
    bool leftOut = false;
    size_t index = 0;           // in the log
    std::vector<bool> isYesNo;  // by column
  };
  static void OnRow(void* self, sqlite3* database, int deed, const char* in, const char* table,
                    sqlite3_int64 before, sqlite3_int64 after);
  void NoteTable(const char* table);
  void Record(sqlite3* database, int deed, const char* table, qint64 before, qint64 after);
  RowCell Before(sqlite3* database, const TableFacts& facts, size_t column);
  void RecordUpdate(sqlite3* database, const TableFacts& facts, qint64 row);
  const TableFacts& FactsOf(const char* table);

  const SchemaCatalogue& catalogue_;
  std::set<std::string> leftOut_;
  RowLog* log_ = nullptr;
  std::vector<std::string> tables_;
  size_t latest_ = 0;  // of tables_: the next row is most often of the same table
  std::vector<TableFacts> facts_;
  size_t latestFacts_ = 0;
  const std::vector<size_t>* expected_ = nullptr;
};

}  // namespace quillary
