#include "session/Support.h"

#include "data/settings/LocalSettings.h"

namespace quillary::session {

Support ReadSupport(const LocalSettings& settings) {
  const auto read = [&](const char* key) {
    return settings.ReadLocalSetting(QStringLiteral("SUPPORT"), QLatin1StringView(key)).trimmed();
  };
  return {read("Address"), read("FAQ"), read("Manual"), read("Website")};
}

}  // namespace quillary::session
