#include "maintenance/backups/Backups.h"

#include "base/OwnFiles.h"
#include "data/store/Connection.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/FileReplacement.h"
#include "data/store/Integrity.h"
#include "data/store/OtherFile.h"
#include "data/store/Statement.h"
#include "maintenance/backups/BackupPlaces.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace quillary::maintenance {
namespace {

Value FirstValue(const OtherFile& file, const char* statement, jet::ColumnType type) {
  Statement reading(file.Handle(), statement);
  return reading.Step() ? reading.Column(0, type) : Value();
}

/// Whether what stands today could be copied; not when it is damaged, which is often why somebody
/// goes back to a backup.
bool CopyBeforeRestoration(Business& business, const QString& kept) {
  try {
    BackupDatabaseTo(business, BeforeRestorationDescription(business.Now()), kept, {}, Proof::Rows);
    return true;
  } catch (const StorageFailure& failure) {
    if (failure.Fault() != StorageFault::Damaged) throw;
    return false;
  }
}

/// The damaged file as it is. Folding its log into it may be more than it can do.
QString KeepDamaged(Business& business, const QString& archive, const QString& name) {
  try {
    business.CloseConnection();
  } catch (const StorageFailure&) {
    // The log is kept beside the file.
  }
  return KeepIn(archive, business.DatabaseFile(), name);
}

}  // namespace

void BackupDatabaseTo(Business& business, const QString& description, const QString& destination,
                      const CopyProgress& progress, Proof proof) {
  business.ConnectToDatabase();
  business.Write(Sql("UPDATE infSystem SET Backup_Description = {}; ", description),
                 Rows::AtLeast(1));
  CopyProven(business.StoreConnection(), destination, progress, proof);
}

BackupFacts ReadBackup(const QString& file) {
  BackupFacts facts;
  const QFileInfo info(file);
  facts.file = file;
  facts.made = info.lastModified();
  facts.bytes = info.size();
  try {
    const OtherFile opened(file, OtherFile::Access::LookOnly);
    using jet::ColumnType;
    facts.description =
        FirstValue(opened, "SELECT Backup_Description FROM infSystem", ColumnType::Text).ToText();
    facts.version = static_cast<int>(
        FirstValue(opened, "SELECT Database_Version FROM infSystem", ColumnType::Long).ToLong());
    facts.clients = FirstValue(opened, "SELECT COUNT(*) FROM Clients", ColumnType::Long).ToLong();
    facts.jobs =
        FirstValue(opened, "SELECT COUNT(*) FROM Diary WHERE Status LIKE 'J%'", ColumnType::Long)
            .ToLong();
    facts.owed =
        FirstValue(opened, "SELECT -SUM(Account_Balance) FROM Clients WHERE Account_Balance < 0",
                   ColumnType::Currency)
            .ToMoney();
    facts.readable = true;
  } catch (const std::exception&) {
    // Not a business, damaged or in use: it is not offered.
  }
  return facts;
}

std::vector<BackupFacts> ListBackups(const QString& archive) {
  std::vector<BackupFacts> backups;
  const QDir folder(archive);
  for (const QString& name :
       folder.entryList({QStringLiteral("*.mdb"), QStringLiteral("*.MDB")}, QDir::Files)) {
    BackupFacts facts = ReadBackup(folder.filePath(name));
    if (facts.readable) backups.push_back(std::move(facts));
  }
  std::ranges::stable_sort(backups, std::greater(), &BackupFacts::made);
  return backups;
}

QString ProposedBackupName(QDate today) {
  return QStringLiteral("QYBackup ") +
         QLocale::c().toString(today, QStringLiteral("dddd dd-MM-yyyy"));
}

BackupOutcome CreateCustomBackup(Business& business, Prompter& prompter, const CustomBackup& backup,
                                 const CopyProgress& progress) {
  const QString name = backup.name.trimmed();
  if (name.isEmpty() || name.contains(u'/'))
    return {Refusal{QStringLiteral("Please enter a valid filename."), QStringLiteral("name")}};
  const QString folder = TrimmedFolder(backup.folder);
  const Answer answer =
      prompter.Ask(QStringLiteral("Do you want to back-up your database to %1?").arg(folder));
  if (answer != Answer::Yes) return {};
  if (!QFileInfo(folder).isDir())
    return {Refusal{QStringLiteral("The path/folder (%1) for backup doesn't exist. Please select "
                                   "which folder the backup will go to...")
                        .arg(folder),
                    QStringLiteral("folder")}};
  const QString destination = QDir(folder).filePath(name + QStringLiteral(".mdb"));
  if (QFileInfo(destination) == QFileInfo(business.DatabaseFile()))
    return {Refusal{QStringLiteral("Cannot create backup as the source and destination folder is "
                                   "the same."),
                    QStringLiteral("folder")}};
  BackupDatabaseTo(business, CustomDescription(business.Now()), destination, progress);
  return {std::nullopt, true};
}

std::optional<Refusal> CheckRestorable(const Business& business, const QString& backup) {
  if (backup.isEmpty() || !backup.endsWith(QStringLiteral(".MDB"), Qt::CaseInsensitive))
    return Refusal{QStringLiteral("You did not select a database to restore."),
                   QStringLiteral("backup")};
  if (QFileInfo(backup) == QFileInfo(business.DatabaseFile()))
    return Refusal{QStringLiteral("The file you have selected is your main database file. Please "
                                  "select a new one."),
                   QStringLiteral("backup")};
  if (!ReadBackup(backup).readable || !FindDamage(backup).isEmpty())
    return Refusal{QStringLiteral("%1 is damaged or no business of Quillary. Nothing was restored.")
                       .arg(backup),
                   QStringLiteral("backup")};
  return std::nullopt;
}

QString RestoreBackup(Business& business, const QString& backup, const QString& archive) {
  MakeOwnFolder(archive);
  const QString file = business.DatabaseFile();
  const QString name = BeforeRestorationName(business.Now());
  QString kept = QDir(archive).filePath(name);
  const bool isCopied = CopyBeforeRestoration(business, kept);
  // The backup is copied beside the file first, so that it takes its place by one rename.
  FileInTheMaking made(file, FileInTheMaking::Place::Replacing);
  if (!QFile::copy(backup, made.Path()))
    throw StorageFailure(
        StorageFault::InputOutput,
        QStringLiteral("%1 cannot be copied beside %2. Your database is as it was.")
            .arg(backup, file));
  // A copy is as its source; one of a disk that is read-only could not be used.
  QFile::setPermissions(made.Path(), QFile::ReadOwner | QFile::WriteOwner);
  if (const QStringList damage = FindDamage(made.Path()); !damage.isEmpty()) {
    throw StorageFailure(StorageFault::Damaged,
                         QStringLiteral("The copy of %1 did not come out whole: %2. Your database "
                                        "is as it was.")
                             .arg(backup, damage.first()));
  }
  if (!isCopied) kept = KeepDamaged(business, archive, name);
  business.CloseConnection();
  try {
    made.TakeItsPlace();
  } catch (const StorageFailure&) {
    // A second name of a file that goes on being written is no copy of it.
    if (!isCopied) QFile::remove(kept);
    throw;
  }
  return kept;
}

}  // namespace quillary::maintenance
