#pragma once

#include "base/DateRange.h"
#include "base/Id.h"

#include <optional>

/// Requests that open the screens of the diary, its jobs and its schedule. Those with a Result come
/// back when the user has finished; the asker then loads its list again.
namespace quillary {

/// The jobs of this month, unless days are named.
struct OpenJobsList {
  enum class Which { All, Done, DueForInvoice };
  std::optional<DateRange> days = {};
  Which which = Which::All;
};
struct OpenReschedule {};
struct OpenJobsAndPaymentChecker {};
struct OpenListOfClientsWithSchedulingProblem {
  bool atStartUp = false;  // shows itself only when there is something to show
};

struct EditJob {
  using Result = bool;
  Id<Entry> entry;
};
/// A job that is not in the diary yet.
struct AddJob {
  using Result = bool;
  Id<Client> client;
};
/// A visit that is not in the diary yet.
struct AddVisit {
  using Result = bool;
  std::optional<Id<Client>> client;  // nothing: to be chosen
};
struct EditVisit {
  using Result = bool;
  Id<Entry> entry;
};
struct EditQuoteVisit {
  using Result = bool;
  Id<Entry> entry;
};
struct RescheduleFutureJobs {
  using Result = bool;
  Id<Client> client;
};
struct EditSuburbPositions {
  using Result = bool;
};

/// The work sheet of the diary, for the same days and employee as the screen shows.
struct PrintWorkSheet {
  DateRange days;
  std::optional<Id<Employee>> employee;  // nothing: all
  bool bySuburbPosition = false;
};
struct PrintDailyTotals {
  DateRange days;
};

}  // namespace quillary
