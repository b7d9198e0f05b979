#include "cli/Command.h"

namespace quillary {

std::vector<Command> DocumentCommands() {
  return {};
}

}  // namespace quillary
