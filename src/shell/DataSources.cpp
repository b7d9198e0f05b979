#include "shell/DataSources.h"

namespace quillary::shell {

namespace {

const QString kList = QStringLiteral("ODBC Data Sources");
const QString kDriver = QStringLiteral("Microsoft Access Driver (*.mdb)");

}  // namespace

bool DataSourceExists(const SettingsStore& settings, const QString& name) {
  return settings.Read(kList, name) == kDriver;
}

void CreateDataSource(SettingsStore& settings, const QString& name, const QString& description,
                      const QString& file) {
  if (DataSourceExists(settings, name)) return;
  const std::pair<const char*, QString> values[] = {{"DBQ", file},
                                                    {"Description", description},
                                                    {"UID", {}},
                                                    {"Fil", QStringLiteral("MS Access;")},
                                                    {"DriverId", "25"}};
  for (const auto& [key, value] : values)
    settings.Write(QStringLiteral("ODBC ") + name, QLatin1StringView(key), value);
  // Last, so that a source is in the list only when it is whole.
  settings.Write(kList, name, kDriver);
}

}  // namespace quillary::shell
