#include "data/settings/PerUserSettings.h"

#include <QDir>
#include <QStandardPaths>

namespace quillary {

namespace {

QString FileOfUser() {
  const QString home = qEnvironmentVariable("QUILLARY_HOME");
  const QString folder =
      home.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                           QStringLiteral("/Quillary")
                     : home;
  QDir().mkpath(folder);
  return QDir(folder).filePath(QStringLiteral("Quillary.ini"));
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
