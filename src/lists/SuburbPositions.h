#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The order in which the diary can go through the suburbs. A suburb that is not listed comes
/// first.
namespace quillary::lists {

struct SuburbPosition {
  QString suburbName;
  int position = 0;
};

std::vector<SuburbPosition> ListSuburbPositions(Business& business);  // by position

/// Adds the suburbs that clients live in and the list lacks, by name, at its end; returns how many.
int AcquireSuburbsFromClients(Business& business);
/// Numbers the suburbs from 1 in the order given.
void StoreSuburbOrder(Business& business, const QStringList& suburbNames);
void ChangeSuburbPosition(Business& business, const QString& suburbName, int position);

/// Asks, then takes the suburb off the list; its clients stay as they are. Refuses when none is
/// selected.
std::optional<Refusal> RemoveSuburb(Business& business, Prompter& prompter,
                                    const std::optional<QString>& suburbName);

}  // namespace quillary::lists
