#pragma once

#include "data/schema/Upgrader.h"

#include <vector>

namespace quillary {

/// One version of the ladder: statements that run in order, and work that reads before it writes.
/// The work stands where it belongs among the statements, or alone.
struct UpgradeStep {
  const char* statement = nullptr;
  void (*work)(Business& business, const Upgrader::Options& options) = nullptr;
};

/// The steps of a version; empty for versions without any.
const std::vector<UpgradeStep>& UpgradeStepsOf(int version);

}  // namespace quillary
