#include "data/settings/LocalSettings.h"

#include "base/OwnFiles.h"
#include "data/settings/IniFile.h"
#include "data/store/FileInTheMaking.h"
#include "data/store/StorageFailure.h"

#include <QDir>
#include <QFile>

namespace quillary {
namespace {

constexpr int kLongestValue = 200;
const char kHeadOfficeSection[] = "OSTREL4NET";
// The group's own server; an installation names its address in qy.ini.
const char kDefaultHeadOfficeAddress[] = "https://headoffice.example/";
const char kOlderProductFolder[] = "C:\\PROGRAM FILES\\BRAVANTI\\QUILLARY OLD";

/// The file's text; empty when there is no file, nothing when it cannot be read.
std::optional<QByteArray> ReadWhole(const QString& path) {
  QFile file(path);
  if (!file.exists()) return QByteArray();
  if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
  return file.readAll();
}

}  // namespace

LocalSettings::LocalSettings(const QString& folder, Prompter& prompter)
    : folder_(folder), prompter_(prompter) {}

QString LocalSettings::FilePath() const {
  return QDir(folder_).filePath(QStringLiteral("qy.ini"));
}

bool LocalSettings::Initialize() {
  if (!ReadWhole(FilePath())) {
    prompter_.Tell(Tone::Stop,
                   QStringLiteral("The settings file %1 cannot be read. It was left as it is. "
                                  "Please check its permissions.  Exiting system")
                       .arg(FilePath()));
    return false;
  }
  const auto read = [&](const char* key, const char* ifMissing) {
    return ReadLocalSetting(kHeadOfficeSection, key, ifMissing);
  };
  ostrel4NetUserName = read("Ostrel4NetUserName", "quillary");
  ostrel4NetPassword = read("Ostrel4NetPassword", "m4t7wz");
  ostrel4NetURL = read("Ostrel4NetURL", kDefaultHeadOfficeAddress);
  if (ostrel4NetPassword == QStringLiteral("#{Ostrel4NetPassword}") ||
      ostrel4NetUserName == QStringLiteral("#{Ostrel4NetUserName}") ||
      ostrel4NetURL == QStringLiteral("#{Ostrel4NetURL}")) {
    prompter_.Tell(
        Tone::Stop,
        QStringLiteral("The current INI file has invalid connection values.  Exiting system"));
    return false;
  }
  const bool inOlderFolder = folder_.toUpper() == QString(kOlderProductFolder);
  SetOlderSettingsFile(inOlderFolder ? folder_ + QStringLiteral("\\y1.ini")
                                     : QStringLiteral("y1.ini"));
  return true;
}

QString LocalSettings::ReadLocalSetting(const QString& section, const QString& key,
                                        const QString& ifMissing) const {
  const auto text = ReadWhole(FilePath());
  const auto value = text ? IniFile(*text).Value(section, key) : std::nullopt;
  return value.value_or(ifMissing).left(kLongestValue);
}

void LocalSettings::WriteLocalSetting(const QString& section, const QString& key,
                                      const QString& value) {
  const auto text = ReadWhole(FilePath());
  const int error = text ? QFileDevice::WriteError : QFileDevice::ReadError;
  if (text) {
    IniFile ini(*text);
    ini.SetValue(section, key, value);
    try {
      MakeOwnFolder(folder_);
      WriteWhole(FilePath(), ini.Text());
      return;
    } catch (const StorageFailure&) {
      // Told below, as a file that cannot be read is.
    }
  }
  prompter_.Tell(
      Tone::Stop,
      QStringLiteral("An error has occured while accessing %1, but it should be possible to "
                     "continue though. GetLastError returned %2 while setting %3:%4 to %5.")
          .arg(FilePath())
          .arg(error)
          .arg(section, key, value));
}

}  // namespace quillary
