#pragma once

#include "base/ports/Prompter.h"

#include <QString>

namespace quillary {

/// What belongs to the installation rather than to the business or the user: the head-office login,
/// the first-run flag and the backup settings. Kept in the sectioned text file qy.ini.
class LocalSettings {
 public:
  /// `folder` is where qy.ini lies or will lie.
  LocalSettings(const QString& folder, Prompter& prompter);

  /// Reads the head-office login. Tells the user and returns false when the file still holds the
  /// placeholders of an unfinished installation or cannot be read, in which case the program has
  /// to end.
  bool Initialize();

  /// A value is cut at 200 characters. `ifMissing` when there is no file, section or key.
  QString ReadLocalSetting(const QString& section, const QString& key,
                           const QString& ifMissing = {}) const;
  /// Tells the user when the file cannot be written; the caller goes on.
  void WriteLocalSetting(const QString& section, const QString& key, const QString& value);

  const QString& Folder() const { return folder_; }
  QString FilePath() const;
  /// The settings file of the older product, for its import.
  const QString& OlderSettingsFile() const { return olderSettingsFile_; }
  void SetOlderSettingsFile(const QString& path) { olderSettingsFile_ = path; }

  QString ostrel4NetUserName;
  QString ostrel4NetPassword;
  QString ostrel4NetURL;

 private:
  QString folder_;
  Prompter& prompter_;
  QString olderSettingsFile_;
};

}  // namespace quillary
