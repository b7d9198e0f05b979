#pragma once

#include "base/Money.h"

#include <QString>

#include <optional>
#include <vector>

namespace quillary::accounts {

/// What one step of a repair changes or deletes.
struct RepairCount {
  QString what;
  int rows = 0;
  std::optional<Money> amount = {};  // of the rows together, where they have one
};

/// A line for each step that does something; "Nothing to do." without any.
QString WordsOf(const std::vector<RepairCount>& counts);

}  // namespace quillary::accounts
