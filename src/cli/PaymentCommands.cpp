#include "cli/Command.h"

namespace quillary {

std::vector<Command> PaymentCommands() {
  return {};
}

}  // namespace quillary
