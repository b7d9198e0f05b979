#include "base/OwnFiles.h"
#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "maintenance/Compaction.h"
#include "maintenance/backups/BackupPlaces.h"
#include "maintenance/backups/ExitBackups.h"
#include "maintenance/backups/TransferredClients.h"
#include "maintenance/oneclient/BringBack.h"
#include "session/ProgramFolder.h"

#include <QDir>
#include <QFileInfo>

/// Backups, their restoration, and whole files made of a business.
namespace quillary::cli {
namespace {

QString Archive() {
  return session::ArchiveUnder(session::ProgramFolder());
}

QString OptionText(const Call& call, const char* option, const QString& ifMissing = {}) {
  return call.arguments.options.value(QString::fromLatin1(option), ifMissing);
}

void PrintFile(const Call& call, const QString& file) {
  ResultTable table({"File", "Bytes"});
  table.AddRow({file, QFileInfo(file).size()});
  PrintTable(call, table);
}

void RunBackup(const Call& call) {
  const auto business = OpenAnyBusiness(call);
  const DateTime now = business->Now();
  MakeOwnFolder(Archive());
  const QString target =
      OptionText(call, "to", QDir(Archive()).filePath(maintenance::CustomBackupName(now)));
  if (QFileInfo(target) == QFileInfo(call.File()))
    throw CommandFailure(
        QStringLiteral("Cannot create backup as the source and destination folder is the same."));
  maintenance::BackupDatabaseTo(
      *business, OptionText(call, "description", maintenance::CustomDescription(now)), target);
  business->CloseConnection();
  PrintFile(call, target);
}

void RunBackups(const Call& call) {
  ResultTable table(
      {"File", "Backup_Description", "Made", "Bytes", "Version", "Clients", "Jobs", "Owed"});
  for (const maintenance::BackupFacts& backup : maintenance::ListBackups(Archive()))
    table.AddRow({backup.file, backup.description, DateTime(backup.made.date(), backup.made.time()),
                  backup.bytes, backup.version, backup.clients, backup.jobs, backup.owed});
  PrintTable(call, table);
}

void RunRestore(const Call& call) {
  const QString backup = QFileInfo(call.arguments.positional.at(1)).absoluteFilePath();
  const auto business = OpenAnyBusiness(call);
  ThrowIf(maintenance::CheckRestorable(*business, backup));
  if (!call.world.prompter.AllowsYes())
    throw CommandFailure(
        QStringLiteral("restoring loses what was entered since the backup; --yes allows it"));
  PrintFile(call, maintenance::RestoreBackup(*business, backup, Archive()));
}

QString SinceWord(maintenance::Since since) {
  switch (since) {
    case maintenance::Since::Missing:
      return QStringLiteral("gone");
    case maintenance::Since::Changed:
      return QStringLiteral("changed");
    case maintenance::Since::New:
      break;
  }
  return QStringLiteral("new");
}

/// The rows that --rows names; all that can come back without it.
std::vector<size_t> ChosenRows(const Call& call, const maintenance::ClientComparison& comparison) {
  if (!call.arguments.Has("rows")) return comparison.AllThatCanComeBack();
  std::vector<size_t> places;
  for (const QString& word : OptionText(call, "rows").split(u',')) {
    const qint64 row = ParseKey(word.trimmed());
    if (row > static_cast<qint64>(comparison.Differences().size()))
      throw CommandFailure(QStringLiteral("there is no row %1").arg(row));
    places.push_back(static_cast<size_t>(row - 1));
  }
  return places;
}

void RunRestoreClient(const Call& call) {
  const QString backup = QFileInfo(call.arguments.positional.at(1)).absoluteFilePath();
  const auto client = call.arguments.Key<Client>("client");
  if (!client) throw WrongUsage(QStringLiteral("--client says whose rows are meant"));
  const auto business = OpenCurrentBusiness(call);
  ThrowIf(maintenance::CheckComparable(*business, backup));
  const maintenance::OpenedBackup opened(business->World(), backup);
  const maintenance::ClientComparison comparison(*business, opened, *client);
  if (!comparison.IsInBackup())
    throw CommandFailure(QStringLiteral("the backup holds no client %1").arg(client->Number()));
  const std::vector<size_t> chosen = ChosenRows(call, comparison);
  ResultTable table({"Row", "Since", "What", "Backup", "Today", "Note"});
  qint64 row = 0;
  for (const maintenance::ClientDifference& each : comparison.Differences())
    table.AddRow({++row, SinceWord(each.since), each.what, each.then, each.now, each.remark});
  PrintTable(call, table);
  if (!call.world.prompter.AllowsYes()) return;
  const maintenance::BroughtBack back = maintenance::BringBack(*business, comparison, chosen);
  business->CloseConnection();
  if (call.json) return;
  call.out << (back.pieces == 0 ? QStringLiteral("Nothing was brought back.") : back.words) << '\n';
  for (const QString& line : back.told) call.out << line << '\n';
}

void RunExitBackups(const Call& call) {
  const auto business = OpenAnyBusiness(call);
  LocalSettings settings(session::ProgramFolder(), call.world.prompter);
  ResultTable table({"File", "Backup_Description"});
  for (const maintenance::DueBackup& due : maintenance::DueBackups(
           maintenance::LoadBackupSettings(settings), business->Now(), Archive()))
    table.AddRow({due.file, due.description});
  call.world.prompter.BeQuiet();
  maintenance::TakeExitBackups(*business, settings, Archive());
  business->CloseConnection();
  PrintTable(call, table);
}

void RunCompact(const Call& call) {
  bool asked = false;
  const maintenance::CompactionResult result = maintenance::CompactDatabase(
      call.File(),
      {.archive = Archive(),
       .pickWorkArea = [&]() -> std::optional<QString> {
         if (asked) return std::nullopt;  // a script is not asked for another folder
         asked = true;
         return QFileInfo(call.File()).absolutePath();
       }},
      call.world.prompter);
  if (!result.done) throw CommandFailure(QStringLiteral("the file was not compacted"));
  ResultTable table({"File", "Bytes_Before", "Bytes_After", "Backup"});
  table.AddRow({call.File(), result.bytesBefore, result.bytesAfter, result.backup});
  PrintTable(call, table);
}

void RunTransferred(const Call& call) {
  const QString target = QFileInfo(call.arguments.positional.at(1)).absoluteFilePath();
  const auto business = OpenCurrentBusiness(call);
  if (QFileInfo(target) == QFileInfo(call.File()))
    throw CommandFailure(QStringLiteral("the new file would take the place of the business"));
  maintenance::CreateDBOfTransferred(*business, target);
  business->CloseConnection();
  PrintFile(call, target);
}

}  // namespace

std::vector<Command> BackupCommands() {
  return {
      {"backup",
       "FILE [--to PATH] [--description T]",
       "Makes a proven copy of the business; into Archive when no path is given.",
       {{"to", "PATH", "the file to make; one of that name is replaced once the copy is proven"},
        {"description", "T", "what the backup says of itself"}},
       1,
       1,
       RunBackup},
      {"backups", "FILE", "Lists the backups in Archive, newest first.", {}, 1, 1, RunBackups},
      {"restore",
       "FILE BACKUP --yes",
       "Puts a backup in the place of the business, which goes to Archive first.",
       {},
       2,
       2,
       RunRestore},
      {"restore-client",
       "FILE BACKUP --client ID [--rows N,N] [--yes]",
       "Lists what differs between a client of a backup and the same client today; --yes brings "
       "back what is gone or was changed.",
       {{"client", "ID", "the client, also one that is gone today"},
        {"rows", "N,N", "only these rows of the list"}},
       2,
       2,
       RunRestoreClient},
      {"exit-backups",
       "FILE",
       "Takes the backups that are switched on and due, as leaving the program does.",
       {},
       1,
       1,
       RunExitBackups},
      {"compact",
       "FILE",
       "Rewrites the file without the room that deleted rows left, keeping it as it was in "
       "Archive.",
       {},
       1,
       1,
       RunCompact},
      {"transferred",
       "FILE NEW_FILE",
       "Makes a business of the clients of the status Transferred and their services.",
       {},
       2,
       2,
       RunTransferred},
  };
}

}  // namespace quillary::cli
