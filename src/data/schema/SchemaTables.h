#pragma once

#include <vector>

namespace quillary {

/// One table of a business file at the current schema version, as a statement of the dialect.
struct TableDefinition {
  const char* name;
  const char* statement;
};

const std::vector<TableDefinition>& TableDefinitions();

}  // namespace quillary
