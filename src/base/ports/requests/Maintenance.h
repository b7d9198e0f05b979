#pragma once

/// Requests of the repairs, the backups and the exchange of whole databases.
namespace quillary {

struct OpenRestoreBackup {};
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
