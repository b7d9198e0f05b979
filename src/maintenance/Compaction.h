#pragma once

#include "base/ports/Prompter.h"

#include <QString>

#include <functional>
#include <optional>

/// Rewriting a business without the room that deleted rows left.
namespace quillary::maintenance {

struct CompactionPlaces {
  QString archive;
  /// The folder for the work; nothing when the user gives up. Asked again when the one before
  /// cannot be written or is too small.
  std::function<std::optional<QString>()> pickWorkArea;
};

struct CompactionResult {
  bool done = false;
  qint64 bytesBefore = 0;
  qint64 bytesAfter = 0;
  QString backup;  // where the file lies as it was
};

/// Compacts a file that nobody has open. A copy as it was goes to the archive first, as name +
/// ".BAK"; the compacted file is checked and takes the place of the old one in one step, with its
/// permissions. Every failure is told in a box, with the choice to try again where that can help;
/// giving up leaves the file as it was.
CompactionResult CompactDatabase(const QString& file, const CompactionPlaces& places,
                                 Prompter& prompter);

}  // namespace quillary::maintenance
