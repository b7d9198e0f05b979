#include "data/store/FileInTheMaking.h"

#include "base/OwnFiles.h"
#include "data/store/FileReplacement.h"
#include "data/store/StorageFailure.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>

#include <cstring>

namespace quillary {
namespace {

StorageFailure CannotBeMade(const QString& target, const QString& why) {
  return StorageFailure(StorageFault::CannotOpen,
                        QStringLiteral("%1 cannot be made: %2").arg(target, why));
}

StorageFailure Exists(const QString& target) {
  return StorageFailure(StorageFault::CannotOpen,
                        QStringLiteral("%1 exists already and is not overwritten").arg(target));
}

QString Words(int error) {
  return QString::fromLocal8Bit(std::strerror(error));
}

/// The file itself, where the name is that of a link to it.
QString FileBehind(const QString& target) {
  const QString file = QFileInfo(target).canonicalFilePath();
  return file.isEmpty() ? target : file;
}

/// So that the name bears a whole file at every moment: the old one or the new one. The old one's
/// logs go first, since SQLite would replay them into the new one.
void TakeThePlaceOf(const QString& file, const QString& made) {
  SyncFile(made);
  for (const char* suffix : {"-wal", "-journal", "-shm"})
    QFile::remove(file + QLatin1String(suffix));
  if (rename(QFile::encodeName(made).constData(), QFile::encodeName(file).constData()) != 0) {
    throw StorageFailure(
        StorageFault::InputOutput,
        QStringLiteral("%1 cannot take the place of %2: %3").arg(made, file, Words(errno)));
  }
  SyncFolderOf(file);
}

}  // namespace

FileInTheMaking::FileInTheMaking(const QString& target, Place place, Content content)
    : target_(place == Place::Replacing ? FileBehind(target) : target),
      place_(place),
      content_(content),
      path_(QStringLiteral("%1.%2.tmp")
                .arg(target_)
                .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'))) {
  const QFileInfo info(target_);
  if (place == Place::Free && info.exists()) throw Exists(target);
  if (!QFileInfo(info.absolutePath()).isDir())
    throw CannotBeMade(target, QStringLiteral("there is no folder ") + info.absolutePath());
  if (content == Content::Business) RemoveForgotten();
  if (content == Content::Document && !MakeOwnFile(path_)) throw CannotBeMade(target, Words(errno));
}

FileInTheMaking::~FileInTheMaking() {
  QFile::remove(path_);
  if (content_ == Content::Document) return;
  for (const char* suffix : {"-wal", "-shm", "-journal"})
    QFile::remove(path_ + QLatin1String(suffix));
}

/// A program that was killed left its file behind, as large as a business.
void FileInTheMaking::RemoveForgotten() const {
  constexpr qint64 kSurelyForgotten = 24 * 60 * 60;  // seconds
  const QFileInfo target(target_);
  const QDateTime now = QDateTime::currentDateTime();
  const QDir folder = target.absoluteDir();
  for (const QFileInfo& found :
       folder.entryInfoList({QStringLiteral("*.????????.tmp")}, QDir::Files)) {
    if (found.fileName().chopped(kLongerBy) == target.fileName() &&
        found.lastModified().secsTo(now) > kSurelyForgotten)
      QFile::remove(found.filePath());
  }
}

void FileInTheMaking::TakeFreePlace() const {
  const QByteArray from = QFile::encodeName(path_);
  const QByteArray to = QFile::encodeName(target_);
  if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
    return;
  const int error = errno;
  if (error == EEXIST) throw Exists(target_);
  // Not every file system can refuse by itself; QFile looks before it renames.
  if (!QFile::rename(path_, target_)) throw CannotBeMade(target_, Words(error));
}

void FileInTheMaking::TakeItsPlace() {
  KeepToOwner(path_);
  if (place_ == Place::Replacing && content_ == Content::Business)
    return TakeThePlaceOf(target_, path_);
  if (place_ == Place::Replacing) {
    if (rename(QFile::encodeName(path_).constData(), QFile::encodeName(target_).constData()) != 0)
      throw CannotBeMade(target_, Words(errno));
    return;
  }
  if (content_ == Content::Business) SyncFile(path_);
  TakeFreePlace();
  if (content_ == Content::Business) SyncFolderOf(target_);
}

void WriteWhole(const QString& path, const std::function<bool(QFileDevice&)>& write) {
  FileInTheMaking made(path, FileInTheMaking::Place::Replacing, FileInTheMaking::Content::Document);
  QFile file(made.Path());
  const bool isWritten = file.open(QIODevice::WriteOnly) && write(file) && file.flush();
  if (!isWritten) throw CannotBeMade(path, file.errorString());
  file.close();
  if (file.error() != QFileDevice::NoError) throw CannotBeMade(path, file.errorString());
  made.TakeItsPlace();
}

void WriteWhole(const QString& path, const QByteArray& content) {
  WriteWhole(path, [&](QFileDevice& file) { return file.write(content) == content.size(); });
}

}  // namespace quillary
