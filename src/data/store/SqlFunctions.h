#pragma once

#include <sqlite3.h>

namespace quillary {

/// Gives a connection the functions that translated statements call (data/jet/Functions.h). They
/// live in the connection only, so the file itself needs none of them.
void RegisterSqlFunctions(sqlite3* database);

}  // namespace quillary
