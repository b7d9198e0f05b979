#pragma once

#include "accounts/yearend/RepairCount.h"
#include "base/DateRange.h"
#include "data/Business.h"

namespace quillary::accounts {

/// The jobs, payments, purchases, invoices, invoice items and deposits of the days, as
/// DeletePreviousRecords() would delete them.
std::vector<RepairCount> CountPreviousRecords(Business& business, const DateRange& days);

/// Deletes all six kinds, or none. An invoice goes when its whole period lies in the days. The
/// ledger entries of deleted payments and purchases stay until records are sorted out, and balances
/// until they are recomputed. Throws WriteFailed.
void DeletePreviousRecords(Business& business, const DateRange& days);

/// The warning that stands before every repair: to hold a backup.
QString BackupWarning();
/// The first of the two questions of the deletion.
bool MayDeletePreviousRecords(Prompter& prompter);
/// The second, which says what goes. Deletes and tells; false when the user declined.
bool DeletePreviousRecordsAfterAsking(Business& business, Prompter& prompter,
                                      const DateRange& days);

}  // namespace quillary::accounts
