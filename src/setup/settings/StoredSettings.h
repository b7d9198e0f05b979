#pragma once

#include "base/Refusal.h"
#include "data/Business.h"
#include "data/settings/LocalSettings.h"

#include <QString>

#include <optional>
#include <vector>

/// Every setting of the settings screens and of the backups under its stored name, one by one: for
/// scripts.
namespace quillary::setup {

/// Where a setting is kept.
enum class SettingPlace { Options, System, Details, User, Installation };
enum class SettingKind { Text, WholeNumber, Fraction, YesNo, Day };

struct StoredSetting {
  const char* name;  // the column, or the key within the section
  SettingPlace place;
  SettingKind kind = SettingKind::Text;
  const char* section = "";  // of the user's or the installation's settings
  const char* ifMissing = "";
  bool secret = false;  // not shown
};

const std::vector<StoredSetting>& StoredSettings();
/// By its name, whatever the case; null when there is none.
const StoredSetting* FindStoredSetting(const QString& name);

/// What is stored, in plain words; a secret as "(set)" or empty.
QString ReadStoredSetting(Business& business, const LocalSettings& local,
                          const StoredSetting& setting);
/// Stores a value after the checks of the screen that the setting belongs to. Throws WriteFailed.
std::optional<Refusal> WriteStoredSetting(Business& business, LocalSettings& local,
                                          const StoredSetting& setting, const QString& value);

}  // namespace quillary::setup
