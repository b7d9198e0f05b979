#pragma once

#include "base/Refusal.h"
#include "data/Business.h"
#include "data/store/OtherFile.h"

#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <vector>

namespace quillary::maintenance {

/// A backup that rows are read from beside the open business. The file itself is only read: one of
/// an older version is brought up to date in a copy that goes with this object.
class OpenedBackup {
 public:
  /// Throws StorageFailure for a file that is damaged or no business, and when there is no room for
  /// the copy of an older one. CheckComparable() tells of those before.
  OpenedBackup(const Outside& outside, const QString& file);

  const QString& File() const { return file_; }
  sqlite3* Handle() const { return opened_->Handle(); }

 private:
  QString file_;
  std::unique_ptr<QTemporaryDir> folder_;  // of the copy
  std::unique_ptr<OtherFile> opened_;
};

/// Refuses what is no backup of a business, is damaged, or comes from a newer program.
std::optional<Refusal> CheckComparable(const Business& business, const QString& backup);

/// A client as a backup knows it.
struct ClientOfBackup {
  Id<Client> id;
  QString words;   // the name
  QString beside;  // "no longer there", or empty
};
/// All clients of the backup, by name.
std::vector<ClientOfBackup> ListClientsOf(const OpenedBackup& backup, Business& business);

}  // namespace quillary::maintenance
