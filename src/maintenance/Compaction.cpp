#include "maintenance/Compaction.h"

#include "data/store/Connection.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/FileReplacement.h"
#include "data/store/Integrity.h"
#include "data/store/StorageFailure.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStorageInfo>

namespace quillary::maintenance {
namespace {

bool IsInUse(const QString& file) {
  try {
    Connection(file).Open(OpenMode::Existing);
    return false;
  } catch (const StorageFailure& failure) {
    if (failure.Fault() == StorageFault::InUse) return true;
    throw;
  }
}

bool CanBeWritten(const QString& folder) {
  QFile trial(QDir(folder).filePath(QStringLiteral(".quillary-trial")));
  const bool written = trial.open(QIODevice::WriteOnly);
  trial.remove();
  return written;
}

/// A folder that can be written and has the room; nothing when the user gives up.
std::optional<QString> WorkArea(const CompactionPlaces& places, qint64 needed, Prompter& prompter) {
  while (const auto folder = places.pickWorkArea()) {
    if (!CanBeWritten(*folder)) {
      if (prompter.Ask(QStringLiteral("This path is a restricted area.\nDo you want to select "
                                      "another work area?   "),
                       QStringLiteral("Restricted Area")) == Answer::Yes)
        continue;
      return std::nullopt;
    }
    if (QStorageInfo(*folder).bytesAvailable() >= needed) return folder;
    const Answer again = prompter.Ask(
        QStringLiteral("There is not enough free space on drive %1.    \nNeed at least %2 bytes of "
                       "free space to compact this database.\n\nTo free space the application will "
                       "terminate while you do it.\nIf you want to select another drive, click "
                       "RETRY.")
            .arg(QStorageInfo(*folder).rootPath(), QLocale::c().toString(needed)),
        QStringLiteral("Need More Free Space"));
    if (again != Answer::Yes) return std::nullopt;
  }
  return std::nullopt;
}

/// The copy of the file as it is; empty when it could not be made, which has been told.
QString KeepAsItIs(const QString& file, const QString& archive, Prompter& prompter) {
  const QString name = QFileInfo(file).completeBaseName() + QStringLiteral(".BAK");
  try {
    const QString kept = KeepIn(archive, file, name);
    prompter.Tell(Tone::Information,
                  QStringLiteral("A backup of your database has been created at: %1").arg(kept));
    return kept;
  } catch (const StorageFailure& failure) {
    prompter.Tell(Tone::Stop,
                  QStringLiteral("Failed to make a backup copy \n%1\nTry again.")
                      .arg(QString::fromUtf8(failure.what())),
                  QStringLiteral("Bad Database Backup"));
    return {};
  }
}

/// Writes the compacted file, asking whether to try again when that fails.
bool WriteCompacted(const QString& file, const QString& made, Prompter& prompter) {
  while (true) {
    QFile::remove(made);
    try {
      Connection source(file);
      source.Open(OpenMode::Existing);
      source.CopyTo(made);
      source.Close();
      return true;
    } catch (const StorageFailure& failure) {
      const Answer again =
          prompter.Ask(QStringLiteral("==> %1\nDo you want to try this process again?  ")
                           .arg(QString::fromUtf8(failure.what())),
                       QStringLiteral("Error Compacting Database"));
      if (again != Answer::Yes) return false;
    }
  }
}

/// A rename works within one file system only, so what was made elsewhere is brought beside first.
void PutInPlace(const QString& file, const QString& made) {
  FileInTheMaking beside(file, FileInTheMaking::Place::Replacing);
  if (!QFile::rename(made, beside.Path()) && !QFile::copy(made, beside.Path()))
    throw StorageFailure(StorageFault::InputOutput,
                         QStringLiteral("%1 cannot be brought beside %2").arg(made, file));
  if (!FindDamage(beside.Path()).isEmpty()) {
    throw StorageFailure(StorageFault::Damaged,
                         QStringLiteral("the compacted file did not come out whole"));
  }
  beside.TakeItsPlace();
}

}  // namespace

CompactionResult CompactDatabase(const QString& file, const CompactionPlaces& places,
                                 Prompter& prompter) {
  CompactionResult result;
  result.bytesBefore = QFileInfo(file).size();
  if (IsInUse(file)) {
    prompter.Tell(Tone::Stop,
                  QStringLiteral("Database is currently being accessed by another application."),
                  QStringLiteral("Cannot continue"));
    return result;
  }
  const auto workArea = WorkArea(places, result.bytesBefore, prompter);
  if (!workArea) return result;
  result.backup = KeepAsItIs(file, places.archive, prompter);
  if (result.backup.isEmpty()) return result;
  const QString made =
      QDir(*workArea).filePath(QFileInfo(file).fileName() + QStringLiteral(".tmp"));
  if (!WriteCompacted(file, made, prompter)) return result;
  try {
    PutInPlace(file, made);
    result.done = true;
  } catch (const StorageFailure&) {
    prompter.Tell(Tone::Stop, QStringLiteral("Failed to replace database.  Contact support.   "),
                  QStringLiteral("Bad Database Replace"));
  }
  QFile::remove(made);
  result.bytesAfter = QFileInfo(file).size();
  return result;
}

}  // namespace quillary::maintenance
