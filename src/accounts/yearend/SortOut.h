#pragma once

#include "accounts/yearend/RepairCount.h"
#include "data/Business.h"

#include <functional>

namespace quillary::accounts {

/// Hears that a step begins: its number from 1, and of how many.
using StepProgress = std::function<void(int step, int steps)>;

/// Takes out what should not be there (payments and purchases of nothing, entries and lines that
/// belong to nothing, invoices that no job points at, splits that do not add up to their payment or
/// purchase), fills in missing names, and lets the lines of each job rule its total. What each step
/// did, in order. A second run does nothing. One transaction. Throws WriteFailed.
std::vector<RepairCount> SortOutRecords(Business& business, const StepProgress& progress = {});

/// What SortOutRecords() would do; nothing is changed.
std::vector<RepairCount> CountWhatToSortOut(Business& business);

/// What hears of the menu command, in this order; any may be empty.
struct SortOutListener {
  std::function<void(const std::vector<RepairCount>& before)> begins = {};  // once it is allowed
  StepProgress step = {};
  std::function<void(const std::vector<RepairCount>& after)> ended = {};  // what is left to do
};
/// The menu command: asks, saying what each step will do; sorts out; tells. False when declined.
bool SortOutAfterAsking(Business& business, Prompter& prompter,
                        const SortOutListener& listener = {});

}  // namespace quillary::accounts
