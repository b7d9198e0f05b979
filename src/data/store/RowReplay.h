#pragma once

#include "data/store/Connection.h"
#include "data/store/RowLog.h"

#include <set>
#include <utility>

namespace quillary {

/// A row that is not as the log left it, so that taking the log back would overwrite what came
/// since.
struct ReplayConflict {
  enum class Why { Changed, Gone, Taken };
  QString table;
  qint64 row = 0;
  Why why = Why::Changed;
};

/// Table and column, for numbers that are handed out once: taking back never lowers them.
using SpentNumbers = std::set<std::pair<std::string, std::string>>;

/// The first row of `log`, seen from its end, that `since` changed in a way that taking `log` back
/// would overwrite.
std::optional<ReplayConflict> FindConflict(RowLog& log,
                                           const std::vector<std::shared_ptr<RowLog>>& since,
                                           const jet::Catalogue& schema, const SpentNumbers& spent);

/// Takes back all changes of the log, the last one first. Should a row be neither as the log left
/// it nor told by FindConflict(), it is returned and the caller has to undo the transaction. Throws
/// StorageFailure.
std::optional<ReplayConflict> TakeBack(Connection& connection, RowLog& log,
                                       const SpentNumbers& spent);

}  // namespace quillary
