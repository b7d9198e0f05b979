#include "data/access/ConvertAccessFile.h"
#include "diary/DiaryCommands.h"
#include "diary/JobServices.h"
#include "fault/worker/BookWork.h"
#include "maintenance/Compaction.h"
#include "maintenance/Salvage.h"
#include "maintenance/backups/Backups.h"
#include "maintenance/backups/ExitBackups.h"
#include "older/ImportOlder.h"
#include "roll/ScheduleEngine.h"
#include "session/AccessConversion.h"
#include "session/StartUp.h"
#include "support/FailingDisk.h"
#include "support/ScriptedOutside.h"

#include <QDir>
#include <QFileInfo>
#include <QString>

#include <errno.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

/// fault_worker WORK FILE OPERATION [ACCESS_FILE]
///
/// Does one piece of work on a business file and is killed at the given disk operation; with
/// operation 0 it lives, and prints how many there were. Where files take each other's places, and
/// in works called "...-names", the operations are those on their names; otherwise SQLite's.
namespace {

struct NameOperations {
  int done = 0;
  int killAt = 0;
  bool archiveIsElsewhere = false;
};
NameOperations names;

/// Before the operation: after the last one the work is done.
void MeetName() {
  if (++names.done == names.killAt) raise(SIGKILL);
}

}  // namespace

// The linker leads calls of the functions below here.
extern "C" {
int __real_linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);
int __real_fsync(int handle);

int __wrap_linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
  MeetName();
  if (!names.archiveIsElsewhere) return __real_linkat(fromFolder, from, toFolder, to, flags);
  errno = EXDEV;
  return -1;
}
int __wrap_rename(const char* from, const char* to) {
  MeetName();
  return __real_rename(from, to);
}
int __wrap_unlink(const char* path) {
  MeetName();
  return __real_unlink(path);
}
int __wrap_fsync(int handle) {
  MeetName();
  return __real_fsync(handle);
}
}

namespace quillary {
namespace {

std::unique_ptr<Business> Open(ScriptedOutside& outside, const QString& work, const QString& file) {
  auto business = std::make_unique<Business>(outside.Ports(), file);
  // An old file has no holidays before its ladder makes them.
  if (work != u"ladder") LoadHolidaysIntoArray(*business);
  business->values.daysToAdvanceSchedule = 60;
  business->values.gstPercentage = 0.1F;
  return business;
}

/// What an hour at the desk stores: jobs that are done, lines that are added, services that change.
void SaveMuch(Business& business) {
  const Recordset jobs =
      business.RunSQL(Sql("SELECT TOP 12 Diary_ID FROM Diary WHERE Status = 'J'"));
  for (const Record row : jobs) {
    auto job = diary::LoadJob(business, Id<Entry>(row[size_t{0}].ToLong()));
    diary::SaveService(business, *job, {{}, Id<Service>(1), Money::FromUnits(125000)},
                       diary::SaveLine::AsNew);
    job->status = EntryStatus::JobDone;
    diary::SaveJob(business, *job);
  }
  for (qint64 client = 1; client <= 6; ++client) {
    business.RunSQL(
        Sql("UPDATE Client_Services SET Price = Price + 1 WHERE Client_ID = {}", client));
    roll::AdvanceScheduleForClient(business, Id<Client>(client));
  }
  diary::DeleteEntry(business, Id<Entry>(jobs.Row(0)[size_t{0}].ToLong()));
}

/// Puts another file in the place of this one; the old one goes to Archive.
int Replace(const QString& work, const QString& file, int operation) {
  ScriptedOutside outside;
  const QString archive = QFileInfo(file).absolutePath() + QStringLiteral("/Archive");
  names.killAt = operation;
  names.archiveIsElsewhere = work.endsWith(u"-far");
  if (work.startsWith(u"repair")) {
    maintenance::RepairInPlace(file, archive, QStringLiteral("now"));
  } else {
    outside.prompter.Expect("is a Microsoft Access file", Answer::Yes);
    if (session::ConvertIfAccessFile(outside.Ports(), file, archive).isEmpty()) return 1;
  }
  std::printf("%d\n", names.done);
  return 0;
}

/// Copies of whole files, with BACKUP.MDB beside the business as the backup.
bool CopyWholeFiles(ScriptedOutside& outside, const QString& work, const QString& file) {
  const QDir folder = QFileInfo(file).absoluteDir();
  const QString archive = folder.filePath(QStringLiteral("Archive"));
  if (work.startsWith(u"compact")) {
    int offered = 0;
    const auto area = [&] { return ++offered == 1 ? std::optional(folder.path()) : std::nullopt; };
    return maintenance::CompactDatabase(file, {archive, area}, outside.prompter).done;
  }
  Business business(outside.Ports(), file);
  if (work.startsWith(u"backup")) {
    maintenance::BackupDatabaseTo(business, QStringLiteral("the new one"),
                                  folder.filePath(QStringLiteral("BACKUP.MDB")));
  } else if (work.startsWith(u"restore")) {
    maintenance::RestoreBackup(business, folder.filePath(QStringLiteral("BACKUP.MDB")), archive);
  } else {
    LocalSettings settings(folder.path(), outside.prompter);
    maintenance::TakeExitBackups(business, settings, archive);
  }
  business.CloseConnection();
  return true;
}

bool IsOfWholeFiles(const QString& work) {
  const QString kind = work.section(u'-', 0, 0);
  return kind == u"backup" || kind == u"restore" || kind == u"compact" || kind == u"exit";
}

int Run(const QString& work, const QString& file, int operation, const QString& accessFile) {
  if (work.startsWith(u"repair") || work.startsWith(u"take-over"))
    return Replace(work, file, operation);
  ScriptedOutside outside;
  FailingDisk disk;
  const bool ofNames = work.endsWith(u"-names");
  if (ofNames) names.killAt = operation;
  disk.FailAt(ofNames ? 0 : operation, DiskFault::KillProcess);
  if (IsOfWholeFiles(work)) {
    if (!CopyWholeFiles(outside, work, file)) return 1;
    std::printf("%d\n", ofNames ? names.done : disk.Operations());
    return 0;
  }
  if (work == u"convert") {
    ConvertAccessFile(accessFile, file);
  } else {
    const auto business = Open(outside, work, file);
    if (work == u"roll") roll::AdvanceScheduleGlobally(*business);
    if (work == u"save") SaveMuch(*business);
    if (work == u"import")
      older::ImportOlder(*business, accessFile,
                         QFileInfo(file).absolutePath() + QStringLiteral("/Archive"));
    if (const auto books = BookWork(work)) books(*business);
    if (work == u"ladder") session::UpgradeFile(*business, business->DatabaseFolder());
    if (work == u"hold") {
      std::puts("open");
      std::fflush(stdout);
      pause();
    }
    business->CloseConnection();
  }
  std::printf("%d\n", disk.Operations());
  return 0;
}

}  // namespace
}  // namespace quillary

int main(int count, char** words) {
  if (count < 4) return 2;
  return quillary::Run(QString::fromLocal8Bit(words[1]), QString::fromLocal8Bit(words[2]),
                       std::atoi(words[3]),
                       count > 4 ? QString::fromLocal8Bit(words[4]) : QString());
}
