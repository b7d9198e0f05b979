#pragma once

#include "accounts/budgets/BudgetPeriods.h"
#include "base/Refusal.h"

#include <QString>

/// The budgets of one financial year beside what was booked. Amounts include tax.
namespace quillary::accounts {

struct BudgetLine {
  Id<Account> account;
  QString number;
  QString name;
  QString kind;  // "Revenue", "Expense", as stored
  bool isRevenue = false;
  Money yearly;  // the budget of the whole year
  Money budget;  // its share of the days asked for, by months
  Money actual;  // what the account's entries of these days come to

  /// How far revenue is above its budget, and what is spent, on expenses or assets, below; so what
  /// is below 0 is worse than budgeted.
  Money Difference() const { return isRevenue ? actual - budget : budget - actual; }
  /// Actual as a share of the budget; nothing without a budget.
  std::optional<double> Share() const;
};

/// All accounts, revenue first, by name. The figures are those of `days` within the year, and the
/// budget's share is by calendar months that these touch.
std::vector<BudgetLine> LoadBudgets(Business& business, const BudgetYear& year,
                                    const DateRange& days);

/// The sum of one of the amounts for each kind of account: "Revenue $1.00, Expense $2.00".
QString TotalsByKind(const std::vector<BudgetLine>& lines, Money BudgetLine::*amount);

/// What can be looked at of a year: all of it, from its start up to the month of `today`, and each
/// of its months.
struct BudgetDays {
  QString words;
  DateRange days;
};
std::vector<BudgetDays> BudgetDaysOf(const BudgetYear& year, QDate today);

/// Writes the budget of an account in that year, and where it is the latest year also the amount
/// with which the next one will open. Refuses an amount below 0, and an account that has gone.
/// Throws WriteFailed.
std::optional<Refusal> SetBudget(Business& business, const BudgetYear& year, Id<Account> account,
                                 Money amount);

/// Where new budgets come from.
enum class BudgetSource { LastYearsBudget, LastYearsActuals };
/// Writes the budgets of all accounts from the year before, `percent` more, to whole cents; less
/// than nothing becomes 0. Refuses when there is no year before, and less than -100 percent.
/// Returns nothing when done. One transaction. Throws WriteFailed.
std::optional<Refusal> FillBudgets(Business& business, const BudgetYear& year, BudgetSource source,
                                   double percent);

}  // namespace quillary::accounts
