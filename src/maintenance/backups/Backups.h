#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"
#include "data/store/ProvenCopy.h"

#include <QDateTime>

#include <optional>
#include <vector>

/// Whole copies of the business, each of which says in itself what it is.
namespace quillary::maintenance {

/// Stamps infSystem.Backup_Description, in the open business too, and makes a proven copy at
/// `destination`, over one that lies there. Throws WriteFailed and StorageFailure, for a damaged
/// business too; a backup that was there then stays.
void BackupDatabaseTo(Business& business, const QString& description, const QString& destination,
                      const CopyProgress& progress = {}, Proof proof = Proof::Indexes);

/// What a backup says of itself.
struct BackupFacts {
  QString file;
  QString description;
  QDateTime made;  // when the file was last written
  qint64 bytes = 0;
  bool readable = false;
  int version = 0;
  qint64 clients = 0;
  qint64 jobs = 0;
  Money owed;  // the sum of all debts, as a number above zero
};
/// Reads a backup without changing a byte of it; not readable when it is no whole business.
BackupFacts ReadBackup(const QString& file);
/// The backups in the folder that can be read, newest first.
std::vector<BackupFacts> ListBackups(const QString& archive);

/// A backup into a folder of the user's choice, under a name of his.
struct CustomBackup {
  QString name;  // without extension
  QString folder;
};
/// "QYBackup Monday 02-11-2026".
QString ProposedBackupName(QDate today);
/// Asks, checks the folder and makes the backup. Refuses an empty name and a folder that is not
/// there; false without refusal when the user declined.
struct BackupOutcome {
  std::optional<Refusal> refusal;
  bool made = false;
};
BackupOutcome CreateCustomBackup(Business& business, Prompter& prompter, const CustomBackup& backup,
                                 const CopyProgress& progress = {});

/// Why the file cannot be restored; nothing when it can.
std::optional<Refusal> CheckRestorable(const Business& business, const QString& backup);
/// Puts the backup in the place of the business's file, in one step and with the file as it was in
/// `archive` first: as a proven copy, or, when it is damaged, as it is. The connection is closed
/// and stays so: what follows must start anew. Returns where the old file lies. Throws
/// StorageFailure and leaves the business as it was.
QString RestoreBackup(Business& business, const QString& backup, const QString& archive);

}  // namespace quillary::maintenance
