#pragma once

#include "base/ports/Outside.h"

#include <QString>

namespace quillary::session {

/// The file to open in place of the chosen one. A business file is itself. A genuine Access file is
/// offered for conversion: it goes untouched into the folder `archive`, and then the business made
/// of it takes its name in one step. Empty when the user does not want that, or when it cannot be
/// done, in which case the user has been told why and the file stands as it was.
QString ConvertIfAccessFile(const Outside& outside, const QString& path, const QString& archive);

}  // namespace quillary::session
