#pragma once

#include "data/Business.h"
#include "data/settings/LocalSettings.h"
#include "kit/CommandRunner.h"

#include <memory>

namespace quillary::shell {

/// How a start comes to its business when nothing says which: by the doors, or by the window that
/// selects a file.
class FirstDoors {
 public:
  FirstDoors(const Outside& outside, LocalSettings& settings, CommandRunner& runner);

  /// Null when the user leaves. Throws StorageFailure when the chosen file cannot be opened; the
  /// next start then waits for another choice instead of opening the same file again.
  std::unique_ptr<Business> Choose();

 private:
  bool ComesWithNothing() const;
  std::unique_ptr<Business> GoThroughADoor(bool& left);
  std::unique_ptr<Business> SelectAFile();
  std::unique_ptr<Business> MakeNew();
  std::unique_ptr<Business> OpenDemo();
  std::unique_ptr<Business> Open(const QString& file);

  Outside outside_;
  LocalSettings& settings_;
  CommandRunner& runner_;
};

}  // namespace quillary::shell
