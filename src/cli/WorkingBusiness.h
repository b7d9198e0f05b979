#pragma once

#include "cli/Command.h"
#include "data/Business.h"

#include <memory>

namespace quillary {

/// The file of the call, open, whatever its version. Throws StorageFailure.
std::unique_ptr<Business> OpenAnyBusiness(const Call& call);

/// The file of the call, open, with the shared values loaded that the schedule needs. Unlike a
/// start it rolls nothing. Throws StorageFailure, and CommandFailure or ProgramError when the file
/// is of another version and has to be started first.
std::unique_ptr<Business> OpenCurrentBusiness(const Call& call);

}  // namespace quillary
