#include "maintenance/backups/LastBackup.h"

#include <QDir>
#include <QLocale>
#include <QRegularExpression>

namespace quillary::maintenance {
namespace {

/// What was put aside before a restoration is no backup of what came after it.
bool IsBackup(const QString& name) {
  static const QRegularExpression putAside(QStringLiteral("^DATA \\d{4}-\\d\\d-\\d\\d \\d{6}\\."),
                                           QRegularExpression::CaseInsensitiveOption);
  return !putAside.match(name).hasMatch();
}

std::optional<DateTime> NewestIn(const QString& archive) {
  std::optional<DateTime> newest;
  for (const QFileInfo& file :
       QDir(archive).entryInfoList({QStringLiteral("*.mdb")}, QDir::Files)) {
    const QDateTime written = file.lastModified();
    const DateTime made(written.date(), written.time());
    if (IsBackup(file.fileName()) && (!newest || *newest < made)) newest = made;
  }
  return newest;
}

/// "Custom backup done on 2/11/2026 5:42:07 PM." tells the whole moment, other descriptions less.
std::optional<DateTime> MomentIn(const QString& description) {
  static const QRegularExpression moment(
      QStringLiteral("backup (?:done )?on (\\d+/\\d\\d/\\d{4} \\d+:\\d\\d:\\d\\d [AP]M)"));
  const auto found = moment.match(description);
  if (!found.hasMatch()) return std::nullopt;
  const QDateTime read = QLocale::c().toDateTime(found.captured(1), "d/MM/yyyy h:mm:ss AP");
  if (!read.isValid()) return std::nullopt;
  return DateTime(read.date(), read.time());
}

}  // namespace

std::optional<DateTime> LastBackup(Business& business, const QString& archive) {
  const auto inArchive = NewestIn(archive);
  const auto told =
      MomentIn(business.FirstField(Sql("SELECT Backup_Description FROM infSystem")).ToText());
  if (!inArchive || !told) return inArchive ? inArchive : told;
  return std::max(*inArchive, *told);
}

}  // namespace quillary::maintenance
