#pragma once

#include "scheduling/RollFaults.h"
#include "scheduling/ScheduleEngine.h"
#include "scheduling/VisitWriter.h"

#include <QDate>

namespace quillary {

/// The days of one rebuild, with nothing left to default.
struct RebuildDates {
  QDate start;
  QDate end;
  bool deleteExisting = true;
  QDate deleteFrom;
};

/// Rebuilds the open diary of one client. Failures go to `faults`; a client whose rebuild fails as
/// a whole keeps the diary it had.
RollCount RebuildClient(Business& business, RollFaults& faults, DaySequences& sequences,
                        qint64 clientId, const RebuildDates& dates);

}  // namespace quillary
