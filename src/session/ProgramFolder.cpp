#include "session/ProgramFolder.h"

#include "base/OwnFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace quillary::session {

QString ProgramFolder() {
  const QString beside = ToolsFolder();
  if (QFile::exists(QDir(beside).filePath(QStringLiteral("qy.ini")))) return beside;
  QString folder = qEnvironmentVariable("QUILLARY_HOME");
  if (folder.isEmpty()) {
    folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
             QStringLiteral("/quillary");
  }
  MakeOwnFolder(folder);
  return folder;
}

QString ArchiveUnder(const QString& programFolder) {
  return QDir(programFolder).filePath(QStringLiteral("Archive"));
}

QString ToolsFolder() {
  return QCoreApplication::applicationDirPath();
}

}  // namespace quillary::session
