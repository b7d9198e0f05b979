#pragma once

#include "reports/ReportKinds.h"

namespace quillary::reports {

/// The sheet for those who drive out: what each employee has to do, then every entry with address,
/// phones, notes, the visit before and the next one, and room for the result. An entry of a client
/// who is cancelled stays off from today on, as it does on the screen.
ReportData CollectDiarySheet(Business& business, const ReportCriteria& criteria);

}  // namespace quillary::reports
