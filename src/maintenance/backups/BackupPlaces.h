#pragma once

#include "base/DateTime.h"

#include <QString>

/// Which backup lies where, and what it says of itself.
namespace quillary::maintenance {

/// One for each weekday: "Data1Mon.mdb".
QString DailyBackupName(QDate day);
/// One for each week of a month, 1 to 5, by its Monday: "Data22.mdb".
QString WeeklyBackupName(QDate monday);
/// One for each month: "Data3Nov.mdb".
QString MonthlyBackupName(QDate day);
/// A new one each minute: "DATA 02-NOV-26 09.05.MDB".
QString CustomBackupName(const DateTime& moment);
/// What the business was before it was restored: "DATA 2026-11-02 090500.MDB".
QString BeforeRestorationName(const DateTime& moment);

/// The Monday on or before the day.
QDate MondayOf(QDate day);

// What Backup_Description says, in the words that the list of backups shows.

QString DailyDescription(const DateTime& moment);
QString WeeklyDescription(const DateTime& moment);
QString MonthlyDescription(const DateTime& moment);
QString CustomDescription(const DateTime& moment);
QString BeforeRestorationDescription(const DateTime& moment);

/// The folder without the blanks and the one slash or backslash behind it.
QString TrimmedFolder(const QString& path);

}  // namespace quillary::maintenance
