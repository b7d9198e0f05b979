#pragma once

#include "reports/ReportKinds.h"

namespace quillary::reports {

/// Two figures that have to be the same, each got in a way of its own.
struct Tie {
  QString words;
  Money reported;  // by a report of the pack
  Money counted;   // in the tables
  bool Holds() const { return reported == counted; }
};

/// All that an accountant asks for of some days, each report a part of one: profit and loss, tax,
/// assets, purchases, payments, debtors and ledger entries. First comes a page that says how their
/// figures tie together; where they do not, the report is in trouble and says so.
std::vector<ReportKind> AccountantPackKinds();

}  // namespace quillary::reports
