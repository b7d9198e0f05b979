#pragma once

#include <QString>

/// Putting whole files into place so that neither a killed program nor a loss of power leaves a
/// name without one.
namespace quillary {

/// Waits until the file's bytes are on the disk. Throws StorageFailure.
void SyncFile(const QString& path);
/// A name counts only once its folder is on the disk too.
void SyncFolderOf(const QString& path);

/// Lays `file`, with the logs that SQLite may have left beside it, into the folder `archive` under
/// `name`, or a numbered one when that is taken. Nothing is taken away: it is a second name for the
/// same file, or, on another file system, a copy that was compared byte for byte; only its owner
/// may read it. Returns where it lies. Throws StorageFailure.
QString KeepIn(const QString& archive, const QString& file, const QString& name);

}  // namespace quillary
