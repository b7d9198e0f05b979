#include "data/Upgrader.h"

#include "data/Business.h"
#include "data/Schema.h"

namespace quillary::Upgrader {

void Initialize(Business& business) {
  constexpr int kUnsupportedVersion = 3000;
  const qint64 version =
      business.LookupField(QStringLiteral("infSystem.Database_Version")).ToLong();
  if (version >= kSchemaVersion) return;
  throw ProgramError(kUnsupportedVersion,
                     QStringLiteral("The file is at schema version %1, and this program reads "
                                    "version %2. The file was left as it is")
                         .arg(version)
                         .arg(kSchemaVersion));
}

}  // namespace quillary::Upgrader
