#pragma once

#include <QDate>

#include <optional>

/// Requests that open the screens of the diary, its jobs and its schedule. Those with a Result come
/// back when the user has finished; the asker then loads its list again.
namespace quillary {

struct OpenJobsList {};
struct OpenReschedule {};
struct OpenJobsAndPaymentChecker {};
struct OpenListOfClientsWithSchedulingProblem {
  bool atStartUp = false;  // shows itself only when there is something to show
};

struct EditJob {
  using Result = bool;
  qint64 diaryId = 0;
};
/// A job that is not in the diary yet.
struct AddJob {
  using Result = bool;
  qint64 clientId = 0;
};
/// A visit that is not in the diary yet.
struct AddVisit {
  using Result = bool;
  std::optional<qint64> clientId;  // nothing: to be chosen
};
struct EditVisit {
  using Result = bool;
  qint64 diaryId = 0;
};
struct EditQuoteVisit {
  using Result = bool;
  qint64 diaryId = 0;
};
struct RescheduleFutureJobs {
  using Result = bool;
  qint64 clientId = 0;
};
struct EditSuburbPositions {
  using Result = bool;
};

/// The work sheet of the diary, for the same days and employee as the screen shows.
struct PrintWorkSheet {
  QDate from;
  QDate to;
  std::optional<qint64> employeeId;  // nothing: all
  bool bySuburbPosition = false;
};
struct PrintDailyTotals {
  QDate from;
  QDate to;
};

}  // namespace quillary
