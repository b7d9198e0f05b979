#pragma once

#include "data/Business.h"
#include "data/settings/LocalSettings.h"

#include <QString>

/// The first day of an installation: what of the setting-up is done, and data of older products
/// that lies about.
namespace quillary::setup {

/// The steps of the checklist, in its order.
enum class SetUpStep {
  YourInformation,
  Services,
  LedgerAccounts,
  Employees,
  Miscellaneous,
  ClientDetails,
  ClientSchedules,
};

/// Whether a step has been done, as far as the tables tell; nothing has to be.
bool IsDone(Business& business, SetUpStep step);

/// Whether the checklist is shown at the next start.
bool SetUpIsDue(const LocalSettings& settings);
void SetSetUpDue(LocalSettings& settings, bool due);

/// Where the older products were installed: the drive C: itself, or the folder that stands for it
/// on a machine that knows no drives.
QString DriveOfOlderProducts();

struct OlderData {
  QString bravantiOne;     // its database; empty when there is none
  QString verdo;           // its folder
  QString headOfficeFile;  // the file that head office sends
  bool IsEmpty() const {
    return bravantiOne.isEmpty() && verdo.isEmpty() && headOfficeFile.isEmpty();
  }
};
/// Looks without regard to case, as that drive did.
OlderData FindOlderData(const QString& drive);

/// Puts the file from head office where the older product keeps its database, and takes it away
/// from where it was. Throws StorageFailure and then leaves both as they were.
void TakeHeadOfficeFile(const QString& drive, const QString& headOfficeFile);

}  // namespace quillary::setup
