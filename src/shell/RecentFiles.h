#pragma once

#include "base/ports/SettingsStore.h"

#include <QStringList>

namespace quillary::shell {

/// The database files opened last, newest first, at most four.
class RecentFiles {
 public:
  explicit RecentFiles(SettingsStore& settings);

  const QStringList& Paths() const { return paths_; }
  /// A path that is listed already, in whatever letters, moves to the front; a new one pushes the
  /// oldest out.
  void PutInFront(const QString& path);
  void Save();

 private:
  SettingsStore& settings_;
  QStringList paths_;
};

}  // namespace quillary::shell
