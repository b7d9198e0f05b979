#pragma once

#include "base/ports/requests/Documents.h"

class QTableView;

namespace quillary {

/// What a table shows, as it is filtered and sorted now, ready to be printed.
///
///   navigator.Open(ShownList(tr("Clients"), grdClients));
PrintList ShownList(const QString& title, const QTableView* table);

}  // namespace quillary
