#include "data/store/FileReplacement.h"

#include "base/OwnFiles.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/StorageFailure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <errno.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstring>

namespace quillary {
namespace {

constexpr const char* kLogs[] = {"-wal", "-journal"};

StorageFailure Failure(const QString& words) {
  return StorageFailure(StorageFault::InputOutput, words);
}

QString Reason(int error) {
  return QString::fromLocal8Bit(std::strerror(error));
}

bool Sync(const QString& path, int flags) {
  const int handle = open(QFile::encodeName(path).constData(), flags | O_RDONLY | O_CLOEXEC);
  if (handle < 0) return false;
  const bool done = fsync(handle) == 0;
  close(handle);
  return done;
}

bool HaveSameBytes(const QString& one, const QString& other) {
  constexpr qint64 kAtOnce = 1 << 20;
  QFile left(one);
  QFile right(other);
  if (!left.open(QIODevice::ReadOnly) || !right.open(QIODevice::ReadOnly)) return false;
  if (left.size() != right.size()) return false;
  while (!left.atEnd()) {
    const QByteArray bytes = left.read(kAtOnce);
    if (bytes.isEmpty() || bytes != right.read(kAtOnce)) return false;
  }
  return true;
}

void CopyWhole(const QString& from, const QString& to) {
  FileInTheMaking copy(to);
  if (!QFile::copy(from, copy.Path()) || !HaveSameBytes(from, copy.Path()))
    throw Failure(QStringLiteral("%1 cannot be copied to %2").arg(from, to));
  copy.TakeItsPlace();
}

void LinkOrCopy(const QString& from, const QString& to) {
  // Another file system, or one that knows no second names: whatever the reason, copying tells.
  if (linkat(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD,
             QFile::encodeName(to).constData(), AT_SYMLINK_FOLLOW) != 0) {
    CopyWhole(from, to);
  }
  KeepToOwner(to);
}

QString FreeName(const QDir& folder, const QString& name) {
  const QFileInfo parts(name);
  QString free = name;
  for (int number = 2; folder.exists(free); ++number) {
    free =
        QStringLiteral("%1 (%2).%3").arg(parts.completeBaseName()).arg(number).arg(parts.suffix());
  }
  return folder.filePath(free);
}

}  // namespace

void SyncFile(const QString& path) {
  if (!Sync(path, 0)) {
    throw Failure(QStringLiteral("%1 cannot be brought to the disk: %2").arg(path, Reason(errno)));
  }
}

void SyncFolderOf(const QString& path) {
  // Some file systems know no such request for folders, and there is nothing else to ask for.
  Sync(QFileInfo(path).absolutePath(), O_DIRECTORY);
}

QString KeepIn(const QString& archive, const QString& file, const QString& name) {
  const QDir folder(archive);
  if (!MakeOwnFolder(archive)) {
    throw Failure(QStringLiteral("The folder %1 cannot be made").arg(archive));
  }
  const QString kept = FreeName(folder, name);
  // The file last: when it is there, all of it is.
  for (const char* log : kLogs) {
    if (QFile::exists(file + QLatin1String(log))) {
      LinkOrCopy(file + QLatin1String(log), kept + QLatin1String(log));
    }
  }
  LinkOrCopy(file, kept);
  SyncFolderOf(kept);
  return kept;
}

}  // namespace quillary
