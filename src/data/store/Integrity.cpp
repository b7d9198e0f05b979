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

}  // namespace

QStringList FindDamage(const QString& path) {
  const QFileInfo info(path);
  if (!info.isFile()) {
    throw StorageFailure(StorageFault::CannotOpen, QStringLiteral("%1 was not found").arg(path));
  }
  if (info.size() == 0) return {QStringLiteral("the file is empty")};
  sqlite3* handle = nullptr;
  const int code = sqlite3_open_v2(path.toUtf8().constData(), &handle,
                                   SQLITE_OPEN_READONLY | SQLITE_OPEN_EXRESCODE, nullptr);
  const std::unique_ptr<sqlite3, CloseFile> file(handle);
  if (code != SQLITE_OK) ThrowFailure(handle, code);
  QStringList found;
  try {
    Statement check(handle, "PRAGMA integrity_check(100)");
    while (check.Step()) found += check.Column(0, jet::ColumnType::Text).ToText();
  } catch (const StorageFailure& failure) {
    if (!IsDamage(failure)) {
      throw StorageFailure(failure.Fault(),
                           QStringLiteral("%1: %2").arg(path, QString::fromUtf8(failure.what())));
    }
    found += QString::fromUtf8(failure.what());
  } catch (const StatementRefused& refused) {
    found += QString::fromUtf8(refused.what());
  }
  found.removeAll(QStringLiteral("ok"));
  return found;
}

}  // namespace quillary
