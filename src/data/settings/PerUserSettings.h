#pragma once

#include "base/ports/SettingsStore.h"

#include <QSettings>

namespace quillary {

/// The per-user settings under the application name "Quillary". With QUILLARY_HOME set they lie in
/// that folder, so that a test or a demo never touches the user's own.
class PerUserSettings : public SettingsStore {
 public:
  PerUserSettings();
  QString Read(const QString& section, const QString& key, const QString& ifMissing) const override;
  void Write(const QString& section, const QString& key, const QString& value) override;

 private:
  QSettings store_;
};

}  // namespace quillary
