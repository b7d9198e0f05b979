#pragma once

#include <QString>

namespace quillary::shell {

/// Major, minor and revision, joined by points.
inline QString VersionText() {
  return QStringLiteral(QUILLARY_VERSION);
}

}  // namespace quillary::shell
