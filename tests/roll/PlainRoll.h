#pragma once

#include "data/Business.h"

namespace quillary {

/// The roll as its rules read, one statement after the other through the public routines, with
/// nothing remembered between two visits. The engine has to leave the same rows behind.
void PlainRollGlobally(Business& business);
void PlainRollForClient(Business& business, Id<Client> client, QDate start, QDate end);

}  // namespace quillary
