#pragma once

#include "data/store/Recordset.h"

#include <sqlite3.h>

namespace quillary {

/// Makes the table of a SELECT ... INTO and fills it. It has no indexes, and a counter is a plain
/// number there, as in the dialect. Throws StatementRefused when the table exists already,
/// and StorageFailure.
void MakeTable(sqlite3* database, const jet::IntoTarget& target, const Recordset& rows);

/// The same in another business file, which must exist, as one transaction there. Two files can't
/// share a transaction, so that what is written there stays when the work here is undone.
void MakeTableInFile(const jet::IntoTarget& target, const Recordset& rows);

}  // namespace quillary
