#include "maintenance/backups/ExitBackups.h"

#include "base/OwnFiles.h"
#include "maintenance/backups/BackupPlaces.h"
#include "maintenance/backups/Backups.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace quillary::maintenance {
namespace {

constexpr char kSection[] = "BACKUPS";
constexpr char kLastWeekly[] = "LAST_WEEKLY_BACKUP";
constexpr char kLastMonthly[] = "LAST_MONTHLY_BACKUP";
// How a day is noted in qy.ini.
constexpr char kNotedDay[] = "yyyy/MM/dd";

QString Read(const LocalSettings& settings, const char* key, const QString& ifMissing) {
  return settings.ReadLocalSetting(QString::fromLatin1(kSection), QString::fromLatin1(key),
                                   ifMissing);
}

bool IsOn(const LocalSettings& settings, const char* key) {
  const QString value = Read(settings, key, QStringLiteral("0")).trimmed();
  return value.compare(u"true", Qt::CaseInsensitive) == 0 || value.toInt() != 0;
}

QDate ReadDay(const LocalSettings& settings, const char* key) {
  return QDate::fromString(Read(settings, key, QStringLiteral("0")),
                           QString::fromLatin1(kNotedDay));
}

void NoteDay(LocalSettings& settings, const char* key, QDate day) {
  settings.WriteLocalSetting(QString::fromLatin1(kSection), QString::fromLatin1(key),
                             day.toString(QString::fromLatin1(kNotedDay)));
}

/// Whether the file was written on an earlier day than this one, or not yet.
bool IsOfAnEarlierDay(const QString& file, QDate today) {
  const QFileInfo info(file);
  return !info.exists() || info.lastModified().date() != today;
}

/// The backup that the user is asked about, into a folder of his choice.
void OfferCustomBackup(Business& business, const QString& chosen, const CopyProgress& progress) {
  Prompter& prompter = business.World().prompter;
  if (prompter.Ask(QStringLiteral("Do you want to back-up your database to %1?").arg(chosen)) !=
      Answer::Yes)
    return;
  const QString folder = TrimmedFolder(chosen);
  const bool isDrive = folder.compare(u"A:", Qt::CaseInsensitive) == 0;
  if (!isDrive && !QFileInfo(folder).isDir()) {
    prompter.Tell(Tone::Stop,
                  QStringLiteral("The path/folder (%1) for backup doesn't exist. Please reload "
                                 "Quillary and update the setting for Automatic backups.")
                      .arg(folder));
    return;
  }
  const QString file = QDir(folder).filePath(CustomBackupName(business.Now()));
  if (QFileInfo(file) == QFileInfo(business.DatabaseFile())) {
    prompter.Tell(
        Tone::Stop,
        QStringLiteral("Cannot create backup as the source and destination folder is the same.\n"
                       "Please check again the setting in the Automatic Backup screen."));
    return;
  }
  BackupDatabaseTo(business, CustomDescription(business.Now()), file, progress);
}

}  // namespace

BackupSettings LoadBackupSettings(const LocalSettings& settings, const QString& pathIfMissing) {
  return {.custom = IsOn(settings, "DO_CUSTOM_BACKUP"),
          .daily = IsOn(settings, "DO_DAILY_BACKUP"),
          .weekly = IsOn(settings, "DO_WEEKLY_BACKUP"),
          .monthly = IsOn(settings, "DO_MONTHLY_BACKUP"),
          .customPath = Read(settings, "CUSTOM_PATH", pathIfMissing),
          .lastWeekly = ReadDay(settings, kLastWeekly),
          .lastMonthly = ReadDay(settings, kLastMonthly)};
}

std::vector<DueBackup> DueBackups(const BackupSettings& settings, const DateTime& now,
                                  const QString& archive) {
  const QDir folder(archive);
  const QDate today = now.date;
  std::vector<DueBackup> due;
  if (settings.daily)
    due.push_back(
        {DueBackup::Kind::Daily, folder.filePath(DailyBackupName(today)), DailyDescription(now)});
  const QDate monday = MondayOf(today);
  const bool noneSince = !settings.lastWeekly.isValid() || settings.lastWeekly < monday;
  if (settings.weekly && (today == monday || noneSince))
    due.push_back({DueBackup::Kind::Weekly, folder.filePath(WeeklyBackupName(monday)),
                   WeeklyDescription(now)});
  const QDate first(today.year(), today.month(), 1);
  if (settings.monthly && (!settings.lastMonthly.isValid() || settings.lastMonthly < first))
    due.push_back({DueBackup::Kind::Monthly, folder.filePath(MonthlyBackupName(today)),
                   MonthlyDescription(now)});
  return due;
}

void TakeExitBackups(Business& business, LocalSettings& settings, const QString& archive,
                     const CopyProgress& progress) {
  const BackupSettings wanted = LoadBackupSettings(settings);
  if (wanted.custom) OfferCustomBackup(business, wanted.customPath, progress);
  const std::vector<DueBackup> due = DueBackups(wanted, business.Now(), archive);
  if (!due.empty()) MakeOwnFolder(archive);
  // What one copy has shown of the business holds for those that follow at once.
  bool isProven = std::ranges::none_of(due, [](const DueBackup& backup) {
    return IsOfAnEarlierDay(backup.file, QDate::currentDate());
  });
  for (const DueBackup& backup : due) {
    BackupDatabaseTo(business, backup.description, backup.file, progress,
                     isProven ? Proof::Rows : Proof::Indexes);
    isProven = true;
    if (backup.kind == DueBackup::Kind::Weekly) NoteDay(settings, kLastWeekly, business.Today());
    if (backup.kind == DueBackup::Kind::Monthly) NoteDay(settings, kLastMonthly, business.Today());
  }
}

}  // namespace quillary::maintenance
