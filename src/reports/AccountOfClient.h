#pragma once

#include "reports/ReportKinds.h"

namespace quillary::reports {

/// Why a client owes what it owes: every job and payment of its billing group by day, with what is
/// owed after each. The last figure is the balance that ClientBalance computes, negated. Asked of
/// one who is billed to another, it is the account of that other. Throws std::invalid_argument for
/// a client who is not there.
ReportData CollectAccountOfClient(Business& business, const ReportCriteria& criteria);

}  // namespace quillary::reports
