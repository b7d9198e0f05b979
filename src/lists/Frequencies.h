#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// The numbers of days that the lists of frequencies offer.
namespace quillary::lists {

struct ListedFrequency {
  Id<Frequency> id;
  int days = 0;
};

std::vector<ListedFrequency> ListFrequencies(Business& business);  // by days

/// Adds an entry of 0 days, to be changed in its cell; returns its key.
Id<Frequency> AddFrequency(Business& business);
/// A whole number from 1 to 365.
std::optional<Refusal> CheckFrequencyDays(const QString& typed);
/// Stores what was typed unless CheckFrequencyDays() refuses it.
std::optional<Refusal> ChangeFrequencyDays(Business& business, Id<Frequency> frequency,
                                           const QString& typed);
/// Refuses when none is selected.
std::optional<Refusal> RemoveFrequency(Business& business, std::optional<Id<Frequency>> frequency);

}  // namespace quillary::lists
