#pragma once

#include "base/Id.h"

#include <QString>

#include <optional>

/// Requests of the repairs, the backups and the exchange of whole databases.
namespace quillary {

struct OpenRestoreBackup {};
/// One client of a backup beside today, to bring rows of it back; of the newest backup and nobody
/// yet unless told.
struct OpenRestoreClient {
  std::optional<Id<Client>> client = {};
  QString backup = {};
};
struct OpenCreateCustomBackup {};
struct OpenAutomaticBackups {};
struct OpenCreateDBOfTransferred {};
struct SetDBVersion {};
struct SortOutDatabaseRecords {};
struct UpdateBillingNames {
  bool firstNameFirst = true;
};
struct DeletePreviousFinancialRecords {};
struct UploadDatabase {};

}  // namespace quillary
