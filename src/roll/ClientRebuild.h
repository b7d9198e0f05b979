#pragma once

#include "base/DateRange.h"
#include "roll/RollFaults.h"
#include "roll/ScheduleEngine.h"
#include "roll/VisitWriter.h"

#include <QDate>

namespace quillary::roll {

/// The days of one rebuild, with nothing left to default.
struct RebuildDates {
  DateRange days;  // on which visits are made
  bool deleteExisting = true;
  QDate deleteFrom;
};

/// Rebuilds the open diary of one client. A service that fails goes to `faults`, the others are
/// built; what fails beyond that is thrown, and the caller undoes it.
RollCount RebuildClient(Business& business, RollFaults& faults, DaySequences& sequences,
                        Id<Client> client, const RebuildDates& dates);

/// RebuildClient() as a part that is undone by itself: a client whose rebuild fails as a whole is
/// reported and keeps the diary it had.
RollCount RebuildClientAlone(Business& business, RollFaults& faults, DaySequences& sequences,
                             Id<Client> client, const RebuildDates& dates);

}  // namespace quillary::roll
