#pragma once

#include "data/store/AsciiColumns.h"
#include "data/store/Recordset.h"
#include "data/store/RowWatch.h"
#include "data/store/SchemaCatalogue.h"
#include "data/store/Sql.h"
#include "data/store/Statement.h"

#include <QString>

#include <sqlite3.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillary {

enum class OpenMode {
  Existing,  // the file must be there
  Create,    // the file must not be there
};

/// The open database file, reached in the Access dialect and in no other way. The file is held
/// against every other program for as long as the connection is open.
class Connection {
 public:
  /// `clock` answers Date(), Time() and Now(); without one, statements that ask are refused.
  explicit Connection(const QString& file, std::function<DateTime()> clock = nullptr)
      : file_(file), clock_(std::move(clock)) {}
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Opens and locks the file. `check` may look at the tables before anything of the file is
  /// changed, and throw to leave it as it was. Throws StorageFailure.
  void Open(OpenMode mode, const std::function<void(const jet::Catalogue&)>& check = nullptr);
  /// Folds the write-ahead log back, so that the business is one single file again.
  void Close();
  bool IsOpen() const { return database_ != nullptr; }

  /// Throws StatementRefused or StorageFailure.
  Recordset Run(std::string_view statement);
  Recordset Run(const Sql& statement);
  /// How many rows the latest statement wrote: matched by its UPDATE or DELETE, or inserted.
  qint64 RowsWritten() const { return rowsWritten_; }
  /// The counter that the latest INSERT was given.
  qint64 LastInsertedKey() const { return sqlite3_last_insert_rowid(database_.get()); }

  /// Starts a transaction, or a part of the one under way.
  void Begin();
  /// Throws StorageFailure when the transaction fell, as it does by itself on a full disk.
  void Commit();
  /// Undoes what was done since the matching Begin().
  void Rollback() noexcept;
  int TransactionDepth() const { return depth_; }

  /// Told after each outermost commit, a statement outside of a transaction being one of its own,
  /// which tables it wrote. Nothing is told of what was undone, nor of changes of the schema.
  void OnCommitted(std::function<void(const std::vector<std::string>&)> listener) {
    onCommitted_ = std::move(listener);
  }
  RowWatch& Rows() { return rows_; }
  /// Grows with each change of the schema.
  quint64 SchemaChanges() const { return schemaChanges_; }

  /// Folds what was committed into the file; for moments when nothing else is to be done.
  void Checkpoint();

  /// Writes a verified copy of what is committed to a new file: first under a temporary name, then,
  /// once it has passed SQLite's check, under its own. Throws StorageFailure and leaves nothing
  /// behind when that fails or the file exists already.
  void CopyTo(const QString& path);

  /// Makes an index of the store's own, unless there is one of that name.
  void EnsureIndex(const char* name, const char* table, const std::vector<const char*>& columns);

  const jet::Catalogue& Schema() const { return catalogue_; }
  /// SQLite's own handle, for benchmarks and file safety only.
  sqlite3* Handle() const { return database_.get(); }

 private:
  struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };
  struct CachedStatement {
    Statement statement;
    std::vector<jet::Parameter> parameters;
    std::shared_ptr<const ResultColumns> columns;
    std::vector<jet::ColumnName> notOnlyAscii;
    std::vector<size_t> assigned;
    quint64 lastUse = 0;
  };

  void OpenHandle(OpenMode mode);
  void Configure();
  template <typename Cut>
  Recordset RunWatched(const Cut& cut);
  Recordset RunCut(const jet::CutStatement& cut);
  Recordset RunTranslation(const jet::Translation& translation, const jet::CutStatement& cut,
                           sqlite3* source);
  Recordset RunPrepared(CachedStatement& cached, const std::vector<Value>& literals);
  /// Nothing is known of the texts any more, and statements that rely on it are dropped.
  void ForgetTexts() noexcept;
  void Fill(CachedStatement& cached, const std::vector<Value>& literals) const;
  void RunSchemaChange(const jet::Translation& translation);
  void RunInto(const jet::Translation& translation, const jet::CutStatement& cut, sqlite3* source);
  static CachedStatement Prepare(const jet::Translation& translation, sqlite3* source);
  void Keep(const std::string& shape, CachedStatement statement);
  void SchemaChanged();
  void ForgetSchema();
  void RequireTransaction() const;
  void TellCommitted();

  QString file_;
  std::function<DateTime()> clock_;
  std::unique_ptr<sqlite3, CloseDatabase> database_;
  SchemaCatalogue catalogue_;
  std::unordered_map<std::string, CachedStatement> cache_;
  RowWatch rows_{catalogue_};
  std::vector<RowWatch::Mark> marks_;  // one for each transaction or part under way
  std::function<void(const std::vector<std::string>&)> onCommitted_;
  quint64 schemaChanges_ = 0;
  quint64 uses_ = 0;
  AsciiColumns asciiColumns_;
  qint64 changes_ = 0;  // of rows, as SQLite counted them when the latest statement ended
  qint64 rowsWritten_ = 0;
  int depth_ = 0;
  bool schemaChangedInTransaction_ = false;
};

}  // namespace quillary
