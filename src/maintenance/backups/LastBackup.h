#pragma once

#include "data/Business.h"

#include <optional>

namespace quillary::maintenance {

/// When the business was last copied whole, as far as it can be told: by the newest backup in the
/// archive, or by what the business says of its own last one, which may lie in another folder.
/// Nothing before the first.
std::optional<DateTime> LastBackup(Business& business, const QString& archive);

}  // namespace quillary::maintenance
