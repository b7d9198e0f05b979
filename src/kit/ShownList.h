#pragma once

#include "base/ports/requests/Documents.h"

class QTableView;

namespace quillary {

/// What a table shows, as it is filtered and sorted now, ready to be printed. Ticks that only
/// choose rows, in a column without a heading, mean nothing on paper and are left out; where they
/// are what the list is about, `ticksAre` is their heading.
///
///   navigator.Open(ShownList(tr("Clients"), grdClients));
PrintList ShownList(const QString& title, const QTableView* table, const QString& ticksAre = {});

}  // namespace quillary
