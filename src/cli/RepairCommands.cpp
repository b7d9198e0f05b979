#include "cli/Command.h"

namespace quillary {

std::vector<Command> RepairCommands() {
  return {};
}

}  // namespace quillary
