#include "accounts/budgets/YearlyBudgets.h"
#include "cli/Command.h"
#include "cli/Parsing.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"

/// Budgets of the ledger accounts, for scripts.
namespace quillary::cli {
namespace {

using accounts::BudgetYear;

constexpr qint64 kFirstYear = 1900;
constexpr qint64 kLastYear = 9999;

/// The year that begins in it, else the one that ends in it; without a number the latest.
BudgetYear YearAsked(Business& business, const std::optional<qint64>& asked) {
  const std::vector<BudgetYear> years = accounts::ListBudgetYears(business);
  for (const BudgetYear& year : years)
    if (!asked || year.days.from.year() == *asked) return year;
  for (const BudgetYear& year : years)
    if (year.days.to.year() == *asked) return year;
  throw CommandFailure(asked ? QStringLiteral("there is no financial year %1").arg(*asked)
                             : QStringLiteral("there is no financial year yet: start the program, "
                                              "or use budget"));
}

void RunBudgets(const Call& call) {
  const auto asked = call.arguments.Number("year", kFirstYear, kLastYear);
  const auto business = OpenCurrentBusiness(call);
  const BudgetYear year = YearAsked(*business, asked);
  const auto lines = accounts::LoadBudgets(*business, year, year.days);
  business->CloseConnection();
  ResultTable table(
      {"GL_Account_ID", "GL_Account_Name", "Year", "Budget_Amount", "Actual", "Difference"});
  for (const accounts::BudgetLine& line : lines)
    table.AddRow(
        {line.account, line.name, year.Words(), line.yearly, line.actual, line.Difference()});
  PrintTable(call, table);
}

void RunBudget(const Call& call) {
  const auto account = call.arguments.Key<Account>("account");
  const auto asked = call.arguments.Number("year", kFirstYear, kLastYear);
  if (!account || !asked) throw WrongUsage(QStringLiteral("budget needs --account and --year"));
  const Money amount = AmountOf(call.arguments, "amount");
  const auto business = OpenCurrentBusiness(call);
  accounts::InitializeBudgets(*business);
  const BudgetYear year = YearAsked(*business, asked);
  ThrowIf(accounts::SetBudget(*business, year, *account, amount));
  business->CloseConnection();
  ResultTable table({"GL_Account_ID", "Year", "Budget_Amount"});
  table.AddRow({*account, year.Words(), amount});
  PrintTable(call, table);
}

void RunBudgetsRecalculate(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  const int corrections = accounts::RecalculateBudgets(*business);
  business->CloseConnection();
  if (call.json)
    call.out << "{\"corrections\": " << corrections << "}\n";
  else
    call.out << accounts::BudgetsVerifiedWords(corrections) << '\n';
}

}  // namespace

std::vector<Command> BudgetCommands() {
  return {
      {"budgets",
       "FILE [--year Y]",
       "Lists what each ledger account is to come to in a financial year, and what it did.",
       {{"year", "Y", "in which it begins; the latest when missing"}},
       1,
       1,
       RunBudgets},
      {"budget",
       "FILE --account ID --year Y --amount A",
       "Sets the budget of an account for a financial year.",
       {{"account", "ID", "of the ledger"},
        {"year", "Y", "in which the financial year begins"},
        {"amount", "A", "of the whole year, tax included"}},
       1,
       1,
       RunBudget},
      {"budgets-recalculate",
       "FILE",
       "Links every ledger entry to its budget and sums the budgets up anew.",
       {},
       1,
       1,
       RunBudgetsRecalculate},
  };
}

}  // namespace quillary::cli
