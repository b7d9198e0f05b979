#pragma once

namespace quillary {

class Business;

/// Brings the schema of a file of an older version up to the current one.
namespace Upgrader {

/// Does nothing for a file at the current version or above it. Throws ProgramError for a file below
/// it, whose tables this program would misread.
void Initialize(Business& business);

}  // namespace Upgrader

}  // namespace quillary
