#pragma once

#include "base/ports/requests/Documents.h"
#include "documents/reports/Report.h"

namespace quillary::documents {

/// A list as it stands on its screen, as a report: columns as wide as what they hold, on its side
/// when it is too wide for the page, columns of money to the right. Its file is named after the
/// title.
ReportDocument ComposeList(Business& business, const ReportPlaces& places, const PrintList& list);

}  // namespace quillary::documents
