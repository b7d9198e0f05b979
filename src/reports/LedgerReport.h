#pragma once

#include "reports/ReportKinds.h"

namespace quillary::reports {

/// The entries of the general ledger, account by account, each with the payment or purchase that it
/// is of.
std::vector<ReportKind> LedgerReportKinds();

}  // namespace quillary::reports
