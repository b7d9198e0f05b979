#pragma once

#include <QString>
#include <QtGlobal>

#include <functional>

namespace quillary {

class Business;

/// Brings the schema of a file of an older version up to the current one, rung by rung.
namespace Upgrader {

struct Options {
  /// Where a verified copy of the file is kept before the first rung changes it.
  QString archiveFolder;
  /// Rebuilds one client's open diary; the schedule lies above this floor.
  std::function<void(qint64 clientId)> advanceScheduleForClient;
  /// Called between statements, so that a long rung does not look like a dead program.
  std::function<void()> repaint = [] {};
};

/// Runs the rungs from the stored version + 1 up to the current one. Each rung happens whole,
/// stamps infSystem.Database_Version when done, and is begun anew after an interruption. A
/// statement that is refused is passed over, since some rungs repeat a change of another; a reading
/// that fails stops it. A file at the current version or above it is left alone. Tells the user
/// where the copy of the old file lies. Throws StorageFailure when that copy cannot be made, before
/// anything is changed.
void Initialize(Business& business, const Options& options);

/// Runs one rung and stamps its version. Versions without statements only stamp.
void UpgradeToVersion(Business& business, int version, const Options& options);

}  // namespace Upgrader

}  // namespace quillary
