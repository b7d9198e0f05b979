#include "data/access/FileInTheMaking.h"

#include "data/store/FileReplacement.h"
#include "data/store/StorageFailure.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>

#include <cstring>

namespace quillary {
namespace {

StorageFailure Exists(const QString& target) {
  return StorageFailure(StorageFault::CannotOpen,
                        QStringLiteral("%1 exists already and is not overwritten").arg(target));
}

}  // namespace

FileInTheMaking::FileInTheMaking(const QString& target, Place place)
    : target_(place == Place::OfTheOld ? QFileInfo(target).canonicalFilePath() : target),
      place_(place),
      path_(QStringLiteral("%1.%2.tmp")
                .arg(target_)
                .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'))) {
  if (place == Place::OfTheOld) return;
  const QFileInfo info(target);
  if (info.exists()) throw Exists(target);
  if (!QFileInfo(info.absolutePath()).isDir()) {
    throw StorageFailure(StorageFault::CannotOpen,
                         QStringLiteral("%1 cannot be made: there is no folder %2")
                             .arg(target, info.absolutePath()));
  }
}

FileInTheMaking::~FileInTheMaking() {
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) {
    QFile::remove(path_ + QLatin1String(suffix));
  }
}

void FileInTheMaking::TakeItsPlace() {
  if (place_ == Place::OfTheOld) return TakeThePlaceOf(target_, path_);
  const QByteArray from = QFile::encodeName(path_);
  const QByteArray to = QFile::encodeName(target_);
  if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) != 0) {
    const int error = errno;
    if (error == EEXIST) throw Exists(target_);
    // Not every file system can refuse by itself; QFile looks before it renames.
    if (!QFile::rename(path_, target_)) {
      throw StorageFailure(StorageFault::CannotOpen,
                           QStringLiteral("%1 cannot be made: %2")
                               .arg(target_, QString::fromLocal8Bit(std::strerror(error))));
    }
  }
  SyncFolderOf(target_);
}

}  // namespace quillary
