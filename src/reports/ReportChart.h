#pragma once

#include "documents/pages/Composer.h"
#include "reports/ReportData.h"

namespace quillary::reports {

/// Bars side by side below what stands on the page, each beside the year before in grey, on the
/// next page where there is no room. Nothing without bars, or where all of them are 0.
void DrawChart(documents::Composer& page, const std::vector<ChartBar>& bars);

}  // namespace quillary::reports
