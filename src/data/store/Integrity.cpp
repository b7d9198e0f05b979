#include "data/store/Integrity.h"

#include "data/store/Statement.h"

#include <QFileInfo>

#include <memory>

namespace quillary {
namespace {

struct CloseFile {
  void operator()(sqlite3* file) const { sqlite3_close_v2(file); }
};

bool IsDamage(const StorageFailure& failure) {
  return failure.Fault() == StorageFault::Damaged || failure.Fault() == StorageFault::NotADatabase;
}

std::unique_ptr<sqlite3, CloseFile> OpenFile(const QString& path, int how) {
  sqlite3* handle = nullptr;
  const int code =
      sqlite3_open_v2(path.toUtf8().constData(), &handle, how | SQLITE_OPEN_EXRESCODE, nullptr);
  std::unique_ptr<sqlite3, CloseFile> file(handle);
  if (code != SQLITE_OK) ThrowFailure(handle, code);
  return file;
}

QStringList RunCheck(const QString& path, int how) {
  const auto file = OpenFile(path, how);
  QStringList found;
  Statement check(file.get(), "PRAGMA integrity_check(100)");
  while (check.Step()) found += check.Column(0, jet::ColumnType::Text).ToText();
  found.removeAll(QStringLiteral("ok"));
  return found;
}

/// A program that died within a write leaves a journal by which the file is made whole again; that
/// cannot be done by one who only reads.
QStringList RunCheckAfterRecovery(const QString& path) {
  try {
    return RunCheck(path, SQLITE_OPEN_READONLY);
  } catch (const StorageFailure& failure) {
    if (failure.Fault() != StorageFault::ReadOnly) throw;
  }
  return RunCheck(path, SQLITE_OPEN_READWRITE);
}

}  // namespace

QStringList FindDamage(const QString& path) {
  const QFileInfo info(path);
  if (!info.isFile()) {
    throw StorageFailure(StorageFault::CannotOpen, QStringLiteral("%1 was not found").arg(path));
  }
  if (info.size() == 0) return {QStringLiteral("the file is empty")};
  try {
    return RunCheckAfterRecovery(path);
  } catch (const StorageFailure& failure) {
    if (!IsDamage(failure)) {
      throw StorageFailure(failure.Fault(),
                           QStringLiteral("%1: %2").arg(path, QString::fromUtf8(failure.what())));
    }
    return {QString::fromUtf8(failure.what())};
  } catch (const StatementRefused& refused) {
    return {QString::fromUtf8(refused.what())};
  }
}

}  // namespace quillary
