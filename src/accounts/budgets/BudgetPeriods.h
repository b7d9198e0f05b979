#pragma once

#include "base/DateRange.h"
#include "base/Money.h"
#include "data/Business.h"

#include <optional>
#include <vector>

/// Budgets: what each ledger account is to come to in a financial year, and what it did come to.
namespace quillary::accounts {

/// One financial year.
struct BudgetYear {
  Id<BudgetPeriod> period;
  DateRange days;

  /// "2026" or, where it runs over new year, "2026/27".
  QString Words() const;
};
/// All years, the latest first.
std::vector<BudgetYear> ListBudgetYears(Business& business);
/// The year in which that day lies; nothing when none covers it.
std::optional<BudgetYear> BudgetYearOf(Business& business, QDate day);

/// Opens a financial year when there is none yet or the last one has ended: from the first of the
/// month of infSystem.Financial_Year_Starting in the year of today, with a budget for each account
/// as General_Ledger_Accounts.Budget_Amount has it. So one that starts in July and is opened in May
/// begins with the July to come. Returns the present year.
/// Throws WriteFailed.
Id<BudgetPeriod> InitializeBudgets(Business& business);

/// Links each ledger entry to the budget of its account in its year, and sums the entries of each
/// budget up as its actual amount. Returns how many of both were wrong. One transaction. Throws
/// WriteFailed.
int RecalculateBudgets(Business& business);
/// "All of the budgets have been verified. 3 budget(s) were incorrect, and have been repaired."
QString BudgetsVerifiedWords(int corrections);

}  // namespace quillary::accounts
