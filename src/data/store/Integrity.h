#pragma once

#include <QString>
#include <QStringList>

namespace quillary {

/// What SQLite's own check finds wrong with the pages, indexes and constraints of a file, a line
/// each, the first hundred; empty when it is whole. The file is opened for reading only, so that
/// looking at a damaged one makes nothing worse, unless a program died within a write and left the
/// journal that makes the file whole. Throws StorageFailure when the file is missing, in
/// use or cannot be read; what is no database at all is told as one line.
QStringList FindDamage(const QString& path);

}  // namespace quillary
