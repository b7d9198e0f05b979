#pragma once

#include "balances/DebtAges.h"
#include "base/DateRange.h"
#include "base/Money.h"
#include "data/Business.h"

#include <optional>
#include <vector>

/// How the business stands at a glance. Each block is read by a statement or two over all rows of
/// its days; nothing here writes.
namespace quillary::today {

/// The jobs of some days, those that are cancelled left out, as the diary counts them.
struct JobsFigures {
  DateRange days;
  int jobs = 0;
  Money amount = {};  // tax included
  int open = 0;
  int done = 0;      // and not invoiced
  int invoiced = 0;  // and done
  int withoutEmployee = 0;
};
JobsFigures LoadJobsFigures(Business& business, const DateRange& days);

/// What clients owe, as the list of debtors shows it.
struct OwedFigures {
  Money total;
  int clients = 0;
  std::optional<QDate> since;  // of the one who has owed longest
  balances::AgedMoney ages = {};
};
OwedFigures LoadOwed(Business& business);

struct MonthFigures {
  DateRange month;
  Money done = {};      // prices of jobs done
  Money invoiced = {};  // totals of invoices made
  Money received = {};  // payments, refunds taken off
};
/// This month and the twelve before it.
struct YearFigures {
  std::vector<MonthFigures> months;  // this month last
  Money soFar;                       // done from the first of this month to today
  Money soFarLastYear;               // on the same days a year ago

  const MonthFigures& ThisMonth() const { return months.back(); }
  /// In percent of last year's, to the nearest whole one; nothing when there was nothing.
  std::optional<int> Growth() const;
};
YearFigures LoadYear(Business& business);

}  // namespace quillary::today
