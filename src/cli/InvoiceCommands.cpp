#include "cli/Command.h"

namespace quillary {

std::vector<Command> InvoiceCommands() {
  return {};
}

}  // namespace quillary
