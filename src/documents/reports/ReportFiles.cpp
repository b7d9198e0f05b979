#include "documents/reports/ReportFiles.h"

#include "base/OwnFiles.h"
#include "base/Text.h"

#include <QDir>

#include <stdexcept>

namespace quillary::documents {

QString CleanFileName(const QString& text) {
  return RemoveIllegalFileCharacters(text);
}

QString FileTimeStamp(const DateTime& moment) {
  return moment.time.toString(QStringLiteral("HH-mm-ss"));
}

QString ReportFolder(const QString& programFolder) {
  const QString folder = QDir(programFolder).filePath(QStringLiteral("Report Doc"));
  if (!MakeOwnFolder(folder)) {
    throw std::runtime_error(
        QStringLiteral("The folder for documents cannot be made: %1").arg(folder).toStdString());
  }
  return folder;
}

}  // namespace quillary::documents
