#pragma once

#include <QString>

namespace quillary {

/// Major, minor and revision, joined by points.
QString VersionText();

}  // namespace quillary
