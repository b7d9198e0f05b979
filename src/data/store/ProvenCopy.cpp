#include "data/store/ProvenCopy.h"

#include "base/OwnFiles.h"
#include "data/store/Connection.h"
#include "data/store/FileBytes.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/OtherFile.h"
#include "data/store/Statement.h"
#include "data/store/StorageFailure.h"

#include <QFile>
#include <QFileInfo>

namespace quillary {
namespace {

// Enough for a disk to be kept busy, few enough for a sign of life between.
constexpr int kPagesAtOnce = 2048;

struct CloseHandle {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using Database = std::unique_ptr<sqlite3, CloseHandle>;

StorageFailure CopyFailure(const QString& path, const QString& why,
                           StorageFault fault = StorageFault::InputOutput) {
  return StorageFailure(fault, QStringLiteral("No backup could be made at %1: %2").arg(path, why));
}

Database OpenNew(const QString& path) {
  sqlite3* database = nullptr;
  const int code = sqlite3_open_v2(QFile::encodeName(path).constData(), &database,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
  Database opened(database);
  if (code != SQLITE_OK) throw CopyFailure(path, QString::fromUtf8(sqlite3_errstr(code)));
  return opened;
}

void CopyPages(sqlite3* from, sqlite3* to, const QString& path, const CopyProgress& progress) {
  sqlite3_backup* copy = sqlite3_backup_init(to, "main", from, "main");
  if (copy == nullptr) throw CopyFailure(path, QString::fromUtf8(sqlite3_errmsg(to)));
  int code = SQLITE_OK;
  while ((code = sqlite3_backup_step(copy, kPagesAtOnce)) == SQLITE_OK) {
    const int total = sqlite3_backup_pagecount(copy);
    if (progress) progress(total - sqlite3_backup_remaining(copy), total);
  }
  sqlite3_backup_finish(copy);
  if (code != SQLITE_DONE) throw CopyFailure(path, QString::fromUtf8(sqlite3_errstr(code)));
}

/// Walks through all pages of the table itself: an index would tell what it knows of it.
qint64 CountRows(sqlite3* database, const QString& table) {
  QString quoted = table;
  quoted.replace(u'"', QStringLiteral("\"\""));
  Statement count(database, "SELECT COUNT(*) FROM \"" + quoted.toStdString() + "\" NOT INDEXED");
  count.Step();
  return count.Column(0, jet::ColumnType::Long).ToLong();
}

QStringList TablesOf(sqlite3* database) {
  QStringList tables;
  Statement names(database, "SELECT name FROM sqlite_schema WHERE type = 'table'");
  while (names.Step()) tables += names.Column(0, jet::ColumnType::Text).ToText();
  return tables;
}

/// Throws when the copy is not what the source is.
void Prove(sqlite3* source, sqlite3* copy, const QString& path, Proof proof) {
  // Each page is to be looked at as a whole when it is read, and a check reads most of them twice.
  Execute(copy, "PRAGMA cell_size_check = ON; PRAGMA cache_size = -64000");
  const QStringList tables = TablesOf(source);
  if (TablesOf(copy) != tables)
    throw CopyFailure(path, QStringLiteral("it has other tables than the business"));
  for (const QString& table : tables)
    if (CountRows(copy, table) != CountRows(source, table))
      throw CopyFailure(path, QStringLiteral("rows of %1 are missing in it").arg(table));
  if (proof == Proof::Rows) return;
  // The quick check would pass an index that no longer tells what its table holds, and with it a
  // backup that no restoration takes.
  Statement check(copy, "PRAGMA integrity_check(1)");
  if (!check.Step() || check.Column(0, jet::ColumnType::Text).ToText() != u"ok")
    throw CopyFailure(path, QStringLiteral("its pages did not come out whole"),
                      StorageFault::Damaged);
}

/// What SQLite says of the copy is said of the file that it is to become.
void ProveCopy(sqlite3* source, const QString& made, const QString& path, Proof proof) {
  try {
    const Database copy = OpenNew(made);
    Prove(source, copy.get(), path, proof);
  } catch (const StorageFailure& failure) {
    if (failure.Fault() != StorageFault::Damaged && failure.Fault() != StorageFault::NotADatabase)
      throw;
    throw CopyFailure(path, QString::fromUtf8(failure.what()), StorageFault::Damaged);
  }
}

/// Through the pages of the store, for a moment at which the file is not all there is.
void CopyByPages(sqlite3* source, const QString& made, const QString& path,
                 const CopyProgress& progress) {
  const Database copy = OpenNew(made);
  // A copy that fails is thrown away, and taking its place brings it to the disk.
  Execute(copy.get(), "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
  CopyPages(source, copy.get(), path, progress);
  // The source keeps a log beside it; a backup is one single file.
  Statement(copy.get(), "PRAGMA journal_mode = DELETE").Step();
}

}  // namespace

void CopyProven(Connection& source, const QString& path, const CopyProgress& progress,
                Proof proof) {
  FileInTheMaking made(path, FileInTheMaking::Place::Replacing);
  MakeOwnFile(made.Path());
  if (const HeldFile held(source.Handle()); held) {
    NewFileBytes(made.Path()).TakeAll(held.File(), [&](qint64 done, qint64 all) {
      constexpr qint64 kPage = 4096;
      if (progress) progress(static_cast<int>(done / kPage), static_cast<int>(all / kPage));
    });
    // The disk goes on writing while the copy is looked through.
    ProveCopy(source.Handle(), made.Path(), path, proof);
  } else {
    CopyByPages(source.Handle(), made.Path(), path, progress);
    ProveCopy(source.Handle(), made.Path(), path, proof);
  }
  made.TakeItsPlace();
}

}  // namespace quillary
