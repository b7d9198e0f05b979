#include "data/settings/PerUserSettings.h"

#include "base/OwnFiles.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace quillary {

namespace {

QString FileOfUser() {
  const QString home = qEnvironmentVariable("QUILLARY_HOME");
  const QString folder =
      home.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/Quillary")
                     : home;
  MakeOwnFolder(folder);
  const QString file = QDir(folder).filePath(QStringLiteral("Quillary.ini"));
  // Later ones are written with the permissions of the one that they replace.
  if (!QFile::exists(file)) MakeOwnFile(file);
  KeepToOwner(file);
  return file;
}

}  // namespace

PerUserSettings::PerUserSettings() : store_(FileOfUser(), QSettings::IniFormat) {}

QString PerUserSettings::Read(const QString& section, const QString& key,
                              const QString& ifMissing) const {
  return store_.value(section + u'/' + key, ifMissing).toString();
}

void PerUserSettings::Write(const QString& section, const QString& key, const QString& value) {
  store_.setValue(section + u'/' + key, value);
}

}  // namespace quillary
