#pragma once

#include "data/Business.h"

namespace quillary::maintenance {

/// The repair command that makes the next start climb the ladder again from a version that the user
/// types: two questions first, then the number, proposing the current one. Writes
/// infSystem.Database_Version, logs the command, and asks whether to restart; on any answer but No
/// the connection is closed and the process ended. A number that is none, or not above 0, changes
/// nothing and asks for no restart.
void SetDatabaseVersion(Business& business);

}  // namespace quillary::maintenance
