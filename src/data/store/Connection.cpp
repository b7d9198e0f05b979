#include "data/store/Connection.h"

#include "base/OwnFiles.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/IntoTable.h"
#include "data/store/OtherFile.h"
#include "data/store/SqlFunctions.h"

#include <QFile>
#include <QFileInfo>

namespace quillary {
namespace {

// A start, a roll and an hour at the desk use some 200 shapes of statements.
constexpr size_t kCacheLimit = 512;

bool IsAccessFile(const QString& path) {
  QFile file(path);
  constexpr int kMagicStart = 4;
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QByteArray head = file.read(20).mid(kMagicStart);
  return head.startsWith("Standard Jet DB") || head.startsWith("Standard ACE DB");
}

/// The failure in the words of somebody who wants to open a file.
StorageFailure Reworded(const StorageFailure& failure, const QString& file) {
  const auto with = [&](const char* words) {
    return StorageFailure(failure.Fault(), QString::fromUtf8(words).arg(file));
  };
  switch (failure.Fault()) {
    case StorageFault::NotADatabase:
      if (IsAccessFile(file)) {
        return with("%1 is a genuine Access file; it has to be converted into a business first");
      }
      return with(
          "%1 is no business file; it was left as it is. If it was one, its newest backup lies in "
          "the folder Archive");
    case StorageFault::InUse:
      return with("%1 is in use by another program, perhaps a second Quillary");
    case StorageFault::Damaged:
      return with(
          "%1 is damaged; it was left as it is. The program CompactDB saves what can be read of "
          "it, and the newest backup lies in the folder Archive");
    case StorageFault::ReadOnly:
      return with("%1 may only be read, or its folder may not be written to");
    default:
      return StorageFailure(failure.Fault(),
                            QStringLiteral("%1: %2").arg(file, QString::fromUtf8(failure.what())));
  }
}

/// The catalogue of the open file, which also opens the file that a FROM ... IN reads. That file
/// stays open for as long as this lives.
class CatalogueWithOthers : public jet::Catalogue {
 public:
  CatalogueWithOthers(const SchemaCatalogue& own, sqlite3* database, AsciiColumns& asciiColumns)
      : own_(own), database_(database), asciiColumns_(asciiColumns) {}

  const jet::Table* FindTable(QStringView name) const override { return own_.FindTable(name); }
  std::vector<QString> IndexesUsing(QStringView table, QStringView column) const override {
    return own_.IndexesUsing(table, column);
  }
  std::vector<QString> IndexStatements(QStringView table) const override {
    return own_.IndexStatements(table);
  }
  bool IsAsciiOnly(const jet::ColumnName& column) const override {
    return asciiColumns_.Holds(database_, column);
  }
  const jet::Catalogue* Elsewhere(const QString& file) const override {
    other_.emplace(file);
    RegisterSqlFunctions(other_->Handle());
    otherCatalogue_.Load(other_->Handle());
    return &otherCatalogue_;
  }
  sqlite3* OtherHandle() const { return other_->Handle(); }

 private:
  const SchemaCatalogue& own_;
  sqlite3* database_;
  AsciiColumns& asciiColumns_;
  mutable std::optional<OtherFile> other_;
  mutable SchemaCatalogue otherCatalogue_;
};

/// Counts of its memory are asked for by nobody, and cost a lock at each allocation. Only the first
/// use of SQLite in a process may still choose.
void SpareMemoryStatistics() {
  static const int done = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  static_cast<void>(done);
}

std::string SavepointName(int depth) {
  return "\"part" + std::to_string(depth) + "\"";
}

}  // namespace

Connection::~Connection() {
  try {
    Close();
  } catch (const std::exception&) {
    // The log beside the file holds what could not be folded back; the next opening finds it.
  }
}

void Connection::OpenHandle(OpenMode mode) {
  SpareMemoryStatistics();
  const QFileInfo info(file_);
  if (mode == OpenMode::Create && info.exists()) {
    throw StorageFailure(StorageFault::CannotOpen, QStringLiteral("exists already"));
  }
  if (mode == OpenMode::Create && !MakeOwnFile(file_)) {
    throw StorageFailure(StorageFault::CannotOpen, QStringLiteral("cannot be made"));
  }
  if (mode == OpenMode::Existing && !info.isFile()) {
    throw StorageFailure(StorageFault::CannotOpen, QStringLiteral("was not found"));
  }
  if (mode == OpenMode::Existing && info.size() == 0) {
    throw StorageFailure(StorageFault::NotADatabase, QStringLiteral("file is empty"));
  }
  sqlite3* handle = nullptr;
  // One thread has the connection, so the store need not lock itself at each step.
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_EXRESCODE | SQLITE_OPEN_NOMUTEX |
                    (mode == OpenMode::Create ? SQLITE_OPEN_CREATE : 0);
  const int code = sqlite3_open_v2(file_.toUtf8().constData(), &handle, flags, nullptr);
  database_.reset(handle);
  if (code != SQLITE_OK) ThrowFailure(handle, code);
  if (sqlite3_db_readonly(handle, "main") == 1) {
    throw StorageFailure(StorageFault::ReadOnly, QStringLiteral("read-only"));
  }
  KeepToOwner(file_);  // and with it the logs, which SQLite makes alike
}

void Connection::Configure() {
  sqlite3* database = database_.get();
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  Execute(database,
          "PRAGMA locking_mode = EXCLUSIVE; PRAGMA temp_store = MEMORY;"
          "PRAGMA cache_size = -16000");
  RegisterSqlFunctions(database);
  rows_.Attach(database);
}

void Connection::Open(OpenMode mode, const std::function<void(const jet::Catalogue&)>& check) {
  try {
    OpenHandle(mode);
    Configure();
    // The lock comes first and the look at the tables second; only then may the file change.
    Execute(database_.get(), "BEGIN EXCLUSIVE");
    catalogue_.Load(database_.get());
    if (check) check(catalogue_);
    Execute(database_.get(), "COMMIT");
    Execute(database_.get(), "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL");
  } catch (const StorageFailure& failure) {
    database_.reset();
    throw Reworded(failure, file_);
  } catch (const StatementRefused& refused) {
    database_.reset();
    throw StorageFailure(StorageFault::CannotOpen, QString::fromUtf8(refused.what()));
  }
}

void Connection::Close() {
  if (!IsOpen()) return;
  while (depth_ > 0) Rollback();
  ForgetTexts();
  cache_.clear();
  const auto handle = std::move(database_);
  Execute(handle.get(), "PRAGMA journal_mode = DELETE");
}

void Connection::Checkpoint() {
  if (IsOpen() && depth_ == 0) {
    sqlite3_wal_checkpoint_v2(database_.get(), nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr,
                              nullptr);
  }
}

void Connection::CopyTo(const QString& path) {
  FileInTheMaking made(path);
  try {
    MakeOwnFile(made.Path());
    Statement copy(database_.get(), "VACUUM INTO ?1");
    copy.Bind(1, made.Path());
    copy.Step();
    const OtherFile written(made.Path());
    Statement check(written.Handle(), "PRAGMA integrity_check");
    if (!check.Step() || check.Column(0, jet::ColumnType::Text).ToText() != u"ok") {
      throw StorageFailure(StorageFault::Damaged,
                           QStringLiteral("the copy did not come out whole"));
    }
    made.TakeItsPlace();
  } catch (const std::exception& error) {
    throw StorageFailure(
        StorageFault::InputOutput,
        QStringLiteral("No copy could be made at %1: %2").arg(path, QString(error.what())));
  }
}

template <typename Cut>
Recordset Connection::RunWatched(const Cut& cut) {
  const RowWatch::Mark before = rows_.Here();
  Recordset recordset;
  try {
    recordset = RunCut(cut());
  } catch (const jet::StatementError& error) {
    throw StatementRefused(error.what());
  } catch (const jet::ValueError& error) {
    throw StatementRefused(error.what());
  } catch (const std::exception&) {
    rows_.BackTo(before);  // some of its rows may have been written before it failed
    throw;
  }
  if (depth_ == 0) TellCommitted();
  return recordset;
}

Recordset Connection::Run(std::string_view statement) {
  return RunWatched([&] { return jet::CutLiterals(statement); });
}

Recordset Connection::Run(const Sql& statement) {
  return RunWatched([&] { return jet::CutLiterals(statement.Text(), statement.Arguments()); });
}

void Connection::TellCommitted() {
  if (!rows_.HasTables()) return;
  const std::vector<std::string> tables = rows_.TakeTables();
  if (onCommitted_) onCommitted_(tables);
}

Recordset Connection::RunCut(const jet::CutStatement& cut) {
  RequireTransaction();
  rowsWritten_ = 0;
  // Rows that were written past the dialect may hold any text.
  if (sqlite3_total_changes64(database_.get()) != changes_) ForgetTexts();
  const auto cached = cache_.find(cut.shape);
  if (cached != cache_.end()) return RunPrepared(cached->second, cut.literals);
  const CatalogueWithOthers catalogue(catalogue_, database_.get(), asciiColumns_);
  const jet::Translation translation = jet::Translate(cut, catalogue);
  sqlite3* source = translation.sourceFile ? catalogue.OtherHandle() : database_.get();
  return RunTranslation(translation, cut, source);
}

Recordset Connection::RunTranslation(const jet::Translation& translation,
                                     const jet::CutStatement& cut, sqlite3* source) {
  if (translation.into) {
    RunInto(translation, cut, source);
    return {std::make_shared<ResultColumns>(), {}};
  }
  if (translation.changesSchema) {
    RunSchemaChange(translation);
    return {std::make_shared<ResultColumns>(), {}};
  }
  CachedStatement prepared = Prepare(translation, source);
  Recordset recordset = RunPrepared(prepared, cut.literals);
  if (translation.mayBeCached && source == database_.get()) Keep(cut.shape, std::move(prepared));
  return recordset;
}

Connection::CachedStatement Connection::Prepare(const jet::Translation& translation,
                                                sqlite3* source) {
  return {Statement(source, translation.statements.front()), translation.parameters,
          std::make_shared<ResultColumns>(translation.columns), translation.notOnlyAscii,
          translation.assigned};
}

void Connection::Fill(CachedStatement& cached, const std::vector<Value>& literals) const {
  // Read once, so that all of a statement happens at one moment.
  std::optional<DateTime> now;
  int number = 0;
  for (const jet::Parameter& parameter : cached.parameters) {
    ++number;
    if (parameter.reading && clock_ && !now) now = clock_();
    if (!parameter.convertTo && !parameter.reading) {
      cached.statement.Bind(number, literals[static_cast<size_t>(parameter.literal)]);
    } else {
      cached.statement.Bind(number, jet::ValueOf(parameter, literals, now));
    }
  }
}

Recordset Connection::RunPrepared(CachedStatement& cached, const std::vector<Value>& literals) {
  cached.lastUse = ++uses_;
  Fill(cached, literals);
  const ResetAtEnd reset(cached.statement);
  const qint64 writtenBefore = sqlite3_total_changes64(database_.get());
  const RowWatch::Expecting only(rows_, cached.assigned);
  std::vector<Value> cells;
  const ResultColumns& columns = *cached.columns;
  while (cached.statement.Step()) {
    for (size_t column = 0; column < columns.size(); ++column) {
      cells.push_back(cached.statement.Column(static_cast<int>(column), columns[column].type));
    }
  }
  changes_ = sqlite3_total_changes64(database_.get());
  rowsWritten_ = changes_ - writtenBefore;
  for (const jet::ColumnName& column : cached.notOnlyAscii) {
    // As if the row had been written past the dialect: the next statement looks anew.
    if (asciiColumns_.IsKnown(column)) changes_ = -1;
  }
  return {cached.columns, std::move(cells)};
}

void Connection::Keep(const std::string& shape, CachedStatement statement) {
  if (cache_.size() >= kCacheLimit) {
    auto oldest = cache_.begin();
    for (auto at = cache_.begin(); at != cache_.end(); ++at) {
      if (at->second.lastUse < oldest->second.lastUse) oldest = at;
    }
    cache_.erase(oldest);
  }
  cache_.emplace(shape, std::move(statement));
}

void Connection::RunSchemaChange(const jet::Translation& translation) {
  cache_.clear();
  Begin();
  try {
    for (const std::string& statement : translation.statements) {
      Execute(database_.get(), statement.c_str());
    }
    catalogue_.Load(database_.get());
  } catch (const std::exception&) {
    Rollback();
    throw;
  }
  SchemaChanged();
  Commit();
}

void Connection::RunInto(const jet::Translation& translation, const jet::CutStatement& cut,
                         sqlite3* source) {
  CachedStatement select = Prepare(translation, source);
  const Recordset rows = RunPrepared(select, cut.literals);
  if (translation.into->file) {
    MakeTableInFile(*translation.into, rows);
    return;
  }
  cache_.clear();
  Begin();
  try {
    MakeTable(database_.get(), *translation.into, rows);
    catalogue_.Load(database_.get());
  } catch (const std::exception&) {
    Rollback();
    throw;
  }
  SchemaChanged();
  Commit();
}

void Connection::SchemaChanged() {
  schemaChangedInTransaction_ = true;
  ++schemaChanges_;
  rows_.ForgetFacts();
}

void Connection::EnsureIndex(const char* name, const char* table,
                             const std::vector<const char*>& columns) {
  if (catalogue_.HasIndex(QString::fromLatin1(name))) return;
  std::string statement = std::string("CREATE INDEX \"") + name + "\" ON \"" + table + "\" (";
  for (size_t index = 0; index < columns.size(); ++index) {
    statement += std::string(index > 0 ? ", \"" : "\"") + columns[index] + "\"";
  }
  Execute(database_.get(), (statement + ")").c_str());
  cache_.clear();
  catalogue_.Load(database_.get());
}

void Connection::Begin() {
  RequireTransaction();
  const std::string start =
      depth_ == 0 ? std::string("BEGIN IMMEDIATE") : "SAVEPOINT " + SavepointName(depth_);
  Execute(database_.get(), start.c_str());
  ++depth_;
  marks_.push_back(rows_.Here());
}

void Connection::Commit() {
  RequireTransaction();
  const std::string end =
      depth_ == 1 ? std::string("COMMIT") : "RELEASE " + SavepointName(depth_ - 1);
  Execute(database_.get(), end.c_str());
  marks_.pop_back();
  if (--depth_ > 0) return;
  schemaChangedInTransaction_ = false;
  TellCommitted();
}

void Connection::Rollback() noexcept {
  if (depth_ == 0) return;
  --depth_;
  ForgetTexts();
  rows_.BackTo(marks_.back());
  marks_.pop_back();
  sqlite3* database = database_.get();
  if (database == nullptr || sqlite3_get_autocommit(database) != 0) return;
  if (depth_ == 0) {
    sqlite3_exec(database, "ROLLBACK", nullptr, nullptr, nullptr);
  } else {
    const std::string name = SavepointName(depth_);
    sqlite3_exec(database, ("ROLLBACK TO " + name + "; RELEASE " + name).c_str(), nullptr, nullptr,
                 nullptr);
  }
  if (schemaChangedInTransaction_) ForgetSchema();
}

void Connection::ForgetTexts() noexcept {
  if (database_) changes_ = sqlite3_total_changes64(database_.get());
  if (asciiColumns_.Forget()) cache_.clear();
}

void Connection::ForgetSchema() {
  cache_.clear();
  try {
    catalogue_.Load(database_.get());
  } catch (const std::exception&) {
    // The next statement meets the same failure and reports it.
  }
}

void Connection::RequireTransaction() const {
  if (!IsOpen()) {
    throw StorageFailure(StorageFault::CannotOpen, QStringLiteral("%1 is closed").arg(file_));
  }
  // SQLite undoes a whole transaction by itself after some failures. Whatever followed would then
  // be kept piece by piece.
  if (depth_ > 0 && sqlite3_get_autocommit(database_.get()) != 0) {
    throw StorageFailure(StorageFault::InputOutput,
                         QStringLiteral("The work was undone after a failure of the disk"));
  }
}

}  // namespace quillary
