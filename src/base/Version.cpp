#include "base/Version.h"

namespace quillary {

QString VersionText() {
  return QStringLiteral(QUILLARY_VERSION);
}

}  // namespace quillary
