#pragma once

#include "data/Business.h"
#include "link/Wexor.h"

#include <functional>
#include <memory>

namespace quillary::link {

/// What the upload needs from those who run it.
struct UploadTools {
  /// A session of the user's own; null when he gave up.
  std::function<std::unique_ptr<Wexor>()> logIn;
  QString archive;
  /// The folder in which a compaction works; nothing when the user gives up.
  std::function<std::optional<QString>()> pickWorkArea;
  CallProgress progress = [](const HttpLine::Progress&) { return true; };
};

/// Sends the whole file of the business to head office, after its questions, and tells how it went.
/// What goes out is a proven copy, which stays in the archive under the name of the file; compacted
/// before when the option says so. Writes infOptions.DatabaseUploaded. True when head office took
/// it. Throws StorageFailure.
bool UploadDatabaseFile(Business& business, const UploadTools& tools);

}  // namespace quillary::link
