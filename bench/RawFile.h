#pragma once

// A business file in the hands of plain SQLite: what a loop written by hand would do.

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace quillary::bench {

inline QString FreshCopy(const QTemporaryDir& folder, const QString& original) {
  const QString copy = folder.filePath(QStringLiteral("COPY.MDB"));
  QFile::remove(copy);
  QFile::copy(original, copy);
  return copy;
}

inline void Check(int code, int expected = SQLITE_OK) {
  if (code == expected) return;
  std::fprintf(stderr, "SQLite: %s\n", sqlite3_errstr(code));
  std::exit(1);
}

struct CloseHandle {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
struct Finalise {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
struct FreeValue {
  void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;
using Prepared = std::unique_ptr<sqlite3_stmt, Finalise>;
using Row = std::vector<std::unique_ptr<sqlite3_value, FreeValue>>;

/// With the settings that the program itself gives its file.
inline Handle OpenRaw(const QString& path) {
  sqlite3* database = nullptr;
  Check(sqlite3_open_v2(path.toUtf8().constData(), &database,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr));
  Check(sqlite3_exec(database,
                     "PRAGMA locking_mode = EXCLUSIVE; PRAGMA temp_store = MEMORY;"
                     "PRAGMA cache_size = -16000; PRAGMA journal_mode = WAL;"
                     "PRAGMA synchronous = FULL",
                     nullptr, nullptr, nullptr));
  return Handle(database);
}

inline Prepared Prepare(sqlite3* database, const char* text) {
  sqlite3_stmt* statement = nullptr;
  Check(sqlite3_prepare_v2(database, text, -1, &statement, nullptr));
  return Prepared(statement);
}

inline std::vector<Row> ReadRows(const QString& path, const char* select) {
  const Handle database = OpenRaw(path);
  const Prepared statement = Prepare(database.get(), select);
  std::vector<Row> rows;
  while (sqlite3_step(statement.get()) == SQLITE_ROW) {
    Row row;
    for (int column = 0; column < sqlite3_column_count(statement.get()); ++column)
      row.emplace_back(sqlite3_value_dup(sqlite3_column_value(statement.get(), column)));
    rows.push_back(std::move(row));
  }
  return rows;
}

inline void Execute(sqlite3_stmt* statement, const Row& row) {
  for (size_t column = 0; column < row.size(); ++column)
    sqlite3_bind_value(statement, static_cast<int>(column) + 1, row[column].get());
  Check(sqlite3_step(statement), SQLITE_DONE);
  sqlite3_reset(statement);
}

}  // namespace quillary::bench
