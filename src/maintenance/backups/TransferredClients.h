#pragma once

#include "maintenance/backups/Backups.h"

/// A business of its own for the clients that go to another owner.
namespace quillary::maintenance {

/// Makes a copy of the business at `path` that holds the clients of the status "Transferred" with
/// their services, and none of the jobs and the money. A file there is replaced. The business is
/// closed meanwhile and open again afterwards. Throws StorageFailure, and WriteFailed when a table
/// could not be emptied; then there is no new file.
void CreateDBOfTransferred(Business& business, const QString& path);

/// The command of the screen: checks, asks, makes it and tells.
BackupOutcome CreateDBOfTransferredAfterAsking(Business& business, Prompter& prompter,
                                               const CustomBackup& target);

}  // namespace quillary::maintenance
