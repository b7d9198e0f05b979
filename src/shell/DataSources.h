#pragma once

#include "base/ports/SettingsStore.h"

#include <QString>

/// Named database files, for a separate database of another division. They stand in the per-user
/// settings, since this platform has no machine-wide list of them.
namespace quillary::shell {

bool DataSourceExists(const SettingsStore& settings, const QString& name);
/// Does nothing when there is one of that name.
void CreateDataSource(SettingsStore& settings, const QString& name, const QString& description,
                      const QString& file);

}  // namespace quillary::shell
