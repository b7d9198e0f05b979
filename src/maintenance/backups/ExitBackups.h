#pragma once

#include "data/Business.h"
#include "data/settings/LocalSettings.h"
#include "data/store/ProvenCopy.h"

#include <vector>

/// The backups that are taken as the program ends.
namespace quillary::maintenance {

/// Which of them are switched on, as qy.ini keeps it.
struct BackupSettings {
  bool custom = false;
  bool daily = false;
  bool weekly = false;
  bool monthly = false;
  QString customPath;
  QDate lastWeekly;   // invalid before the first
  QDate lastMonthly;  // invalid before the first
};
/// `pathIfMissing` is where a custom backup goes before a folder was chosen: it differs between
/// exit and screen.
BackupSettings LoadBackupSettings(const LocalSettings& settings,
                                  const QString& pathIfMissing = QStringLiteral("A:"));

/// A backup that is due, with the file it goes to and what it says of itself.
struct DueBackup {
  enum class Kind { Daily, Weekly, Monthly } kind;
  QString file;
  QString description;
};
/// Those due at that moment, in the order in which they are taken: the daily one at every exit, the
/// weekly one on a Monday and where none was taken since, the monthly one once a month.
std::vector<DueBackup> DueBackups(const BackupSettings& settings, const DateTime& now,
                                  const QString& archive);

/// Asks about the custom backup and takes it, then those that are due, and notes in qy.ini when.
/// Each says in itself what it is. The first of a day is proven to its indexes, and so is every one
/// that would take the place of an older day's: a damaged index, which the quicker proof of those
/// that follow does not see, costs a day's backups at most.
/// Leaves the business open. Throws StorageFailure; a backup that was there then stays.
void TakeExitBackups(Business& business, LocalSettings& settings, const QString& archive,
                     const CopyProgress& progress = {});

}  // namespace quillary::maintenance
