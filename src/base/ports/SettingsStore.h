#pragma once

#include <QString>

namespace quillary {

/// Per-user settings by section and key: last file, print and mail choices, screen preferences.
class SettingsStore {
 public:
  virtual ~SettingsStore() = default;
  virtual QString Read(const QString& section, const QString& key,
                       const QString& ifMissing = {}) const = 0;
  virtual void Write(const QString& section, const QString& key, const QString& value) = 0;
};

}  // namespace quillary
