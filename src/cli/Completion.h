#pragma once

#include "cli/Command.h"

namespace quillary::cli {

/// Writes a script that teaches bash the words of these commands: their names, then each one's
/// options, and names of files elsewhere.
void PrintCompletion(const std::vector<Command>& commands, QTextStream& out);

}  // namespace quillary::cli
