#pragma once

#include "data/Business.h"
#include "setup/sheets/Sheet.h"

/// What the clients are to receive as a sheet: one row for each service of an active client, and an
/// empty one for a client without any. The checks are those of the screen of a client.
namespace quillary::setup {

/// Client, service, kind, next visit, frequency, employee, price, notes; the client is not edited.
std::vector<SheetColumn> ScheduleSheetColumns(Business& business);
/// By client, the main service first. The key is that of the service, or that of the client
/// negated where there is none yet.
std::vector<SheetRow> LoadScheduleSheet(Business& business);

/// Writes a block, each of its rows whole or not at all; the first cell written to an empty row
/// begins a service with what is usual: the default service, today, the first employee. A frequency
/// makes a casual service a regular one. Afterwards the diary of the clients concerned is made
/// anew. All of it is one command. Throws WriteFailed.
SheetOutcome WriteSchedules(Business& business, const SheetBlock& block);

}  // namespace quillary::setup
