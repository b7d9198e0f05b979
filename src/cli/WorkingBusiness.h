#pragma once

#include "base/Refusal.h"
#include "cli/Command.h"
#include "data/Business.h"

#include <memory>
#include <optional>

namespace quillary::cli {

/// The file of the call, open, whatever its version. Throws StorageFailure.
std::unique_ptr<Business> OpenAnyBusiness(const Call& call);

/// The file of the call, open, with the shared values loaded. Unlike a start it rolls nothing. A
/// refused statement ends the command from now on, since it would leave half of what was asked for:
/// it throws CommandFailure. Throws StorageFailure, and CommandFailure or ProgramError when the
/// file is of another version and has to be started first.
std::unique_ptr<Business> OpenCurrentBusiness(const Call& call);

/// Throws CommandFailure with the words of a refusal.
void ThrowIf(const std::optional<Refusal>& refusal);

}  // namespace quillary::cli
