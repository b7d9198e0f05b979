#include "data/store/ProvenCopy.h"

#include "base/OwnFiles.h"
#include "data/store/Connection.h"
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

StorageFailure CopyFailure(const QString& path, const QString& why) {
  return StorageFailure(StorageFault::InputOutput,
                        QStringLiteral("No backup could be made at %1: %2").arg(path, why));
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

qint64 CountRows(sqlite3* database, const QString& table) {
  QString quoted = table;
  quoted.replace(u'"', QStringLiteral("\"\""));
  Statement count(database, "SELECT COUNT(*) FROM \"" + quoted.toStdString() + "\"");
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
void Prove(sqlite3* source, sqlite3* copy, const QString& path) {
  // The quick check would pass an index that no longer tells what its table holds, and with it a
  // backup that no restoration takes.
  Statement check(copy, "PRAGMA integrity_check(1)");
  if (!check.Step() || check.Column(0, jet::ColumnType::Text).ToText() != u"ok")
    throw CopyFailure(path, QStringLiteral("its pages did not come out whole"));
  const QStringList tables = TablesOf(source);
  if (TablesOf(copy) != tables)
    throw CopyFailure(path, QStringLiteral("it has other tables than the business"));
  for (const QString& table : tables)
    if (CountRows(copy, table) != CountRows(source, table))
      throw CopyFailure(path, QStringLiteral("rows of %1 are missing in it").arg(table));
}

}  // namespace

void CopyProven(Connection& source, const QString& path, const CopyProgress& progress) {
  FileInTheMaking made(path, FileInTheMaking::Place::Replacing);
  {
    MakeOwnFile(made.Path());
    const Database copy = OpenNew(made.Path());
    CopyPages(source.Handle(), copy.get(), path, progress);
    // The source keeps a log beside it; a backup is one single file.
    Statement(copy.get(), "PRAGMA journal_mode = DELETE").Step();
    Prove(source.Handle(), copy.get(), path);
  }
  made.TakeItsPlace();
}

}  // namespace quillary
