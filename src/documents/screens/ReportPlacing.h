#pragma once

#include "documents/reports/Report.h"

namespace quillary::documents {

/// Where the reports of this program go, on the paper that the default printer holds, without
/// one on that of the country.
ReportPlaces PlacesOfReports();

}  // namespace quillary::documents
