#include "maintenance/backups/BackupPlaces.h"

#include <QLocale>

namespace quillary::maintenance {
namespace {

/// Names of files and descriptions stay English, whatever the machine speaks: what one start has
/// written, another has to find.
QString InEnglish(const DateTime& moment, const QString& format) {
  return QLocale::c().toString(QDateTime(moment.date, moment.time), format);
}

QString DateAndTime(const DateTime& moment) {
  return InEnglish(moment, QStringLiteral("d/MM/yyyy h:mm:ss AP"));
}

}  // namespace

QString DailyBackupName(QDate day) {
  return QStringLiteral("Data1%1.mdb").arg(InEnglish(day, QStringLiteral("ddd")));
}

QString WeeklyBackupName(QDate monday) {
  return QStringLiteral("Data2%1.mdb").arg((monday.day() - 1) / 7 + 1);
}

QString MonthlyBackupName(QDate day) {
  return QStringLiteral("Data3%1.mdb").arg(InEnglish(day, QStringLiteral("MMM")));
}

QString CustomBackupName(const DateTime& moment) {
  return QStringLiteral("data %1.mdb")
      .arg(InEnglish(moment, QStringLiteral("dd-MMM-yy hh.mm")))
      .toUpper();
}

QString BeforeRestorationName(const DateTime& moment) {
  return QStringLiteral("DATA %1.MDB").arg(InEnglish(moment, QStringLiteral("yyyy-MM-dd hhmmss")));
}

QDate MondayOf(QDate day) {
  return day.addDays(1 - day.dayOfWeek());
}

QString DailyDescription(const DateTime& moment) {
  return QStringLiteral("Daily backup on %1, %2")
      .arg(InEnglish(moment, QStringLiteral("dddd")),
           InEnglish(moment, QStringLiteral("h:mm:ss AP")));
}

QString WeeklyDescription(const DateTime& moment) {
  return QStringLiteral("Weekly backup on %1").arg(DateAndTime(moment));
}

QString MonthlyDescription(const DateTime& moment) {
  return QStringLiteral("Monthly backup on %1").arg(InEnglish(moment, QStringLiteral("MMMM")));
}

QString CustomDescription(const DateTime& moment) {
  return QStringLiteral("Custom backup done on %1.").arg(DateAndTime(moment));
}

QString BeforeRestorationDescription(const DateTime& moment) {
  return QStringLiteral("Automatic backup before restoration %1.").arg(DateAndTime(moment));
}

QString TrimmedFolder(const QString& path) {
  QString folder = path.trimmed();
  if (folder.size() > 1 && (folder.endsWith(u'\\') || folder.endsWith(u'/'))) folder.chop(1);
  return folder;
}

}  // namespace quillary::maintenance
