#include "accounts/budgets/YearlyBudgets.h"

#include "domain/BillingWords.h"
#include "domain/Periods.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace quillary::accounts {
namespace {

constexpr int kMonthsOfYear = 12;
constexpr double kAtLeast = -100;  // percent

std::optional<BudgetYear> YearBefore(Business& business, const BudgetYear& year) {
  return BudgetYearOf(business, year.days.from.addDays(-1));
}

Money ShareOf(Money yearly, size_t months) {
  const double share = static_cast<double>(months) / kMonthsOfYear;
  return Money::FromDouble(yearly.ToDouble() * share).Rounded(2);
}

void WriteBudget(Business& business, const BudgetYear& year, Id<Account> account, Money amount) {
  const int hit =
      business.Write(Sql("UPDATE Budgets SET Budget_Amount = {} WHERE GL_Account_ID = "
                         "{} AND Budget_Period_ID = {}",
                         amount, account, year.period));
  // An account that was added after the year was opened has none there.
  if (hit == 0)
    business.Write(
        Sql("INSERT INTO Budgets (Budget_Period_ID, GL_Account_ID, Budget_Amount, "
            "Actual) VALUES ({}, {}, {}, 0)",
            year.period, account, amount));
  if (ListBudgetYears(business).front().period == year.period)
    business.Write(Sql("UPDATE General_Ledger_Accounts SET Budget_Amount = {} WHERE GL_Account_ID "
                       "= {}",
                       amount, account),
                   Rows::Exactly(1));
}

}  // namespace

std::optional<double> BudgetLine::Share() const {
  if (budget == Money()) return std::nullopt;
  return actual.ToDouble() / budget.ToDouble();
}

std::vector<BudgetLine> LoadBudgets(Business& business, const BudgetYear& year,
                                    const DateRange& days) {
  QHash<qint64, Money> actual;
  for (const Record row : business.RunSQL(
           Sql("SELECT GL_Account_ID, Sum(GL_Amount) AS Amount FROM General_Ledger_Entries WHERE "
               "Entry_Date BETWEEN {} AND {} GROUP BY GL_Account_ID",
               days.from, EndOfDay(days.to))))
    actual.insert(row[u"GL_Account_ID"].ToLong(), row[u"Amount"].ToMoney());
  QHash<qint64, Money> budgets;
  for (const Record row : business.RunSQL(
           Sql("SELECT GL_Account_ID, Budget_Amount FROM Budgets WHERE Budget_Period_ID = {}",
               year.period)))
    budgets.insert(row[u"GL_Account_ID"].ToLong(), row[u"Budget_Amount"].ToMoney());
  const size_t months = MonthsOf(days).size();
  std::vector<BudgetLine> lines;
  for (const Record row : business.RunSQL(
           Sql("SELECT GL_Account_ID, GL_Account_Number, GL_Account_Name, GL_Account_Type FROM "
               "General_Ledger_Accounts ORDER BY GL_Account_Type DESC, GL_Account_Name"))) {
    const qint64 key = row[u"GL_Account_ID"].ToLong();
    const Money yearly = budgets.value(key);
    lines.push_back(
        {Id<Account>(key), row[u"GL_Account_Number"].ToText(), row[u"GL_Account_Name"].ToText(),
         row[u"GL_Account_Type"].ToText(),
         FromText<AccountType>(row[u"GL_Account_Type"].ToText()) == AccountType::Revenue, yearly,
         ShareOf(yearly, months), actual.value(key)});
  }
  return lines;
}

QString TotalsByKind(const std::vector<BudgetLine>& lines, Money BudgetLine::*amount) {
  std::vector<std::pair<QString, Money>> kinds;
  for (const BudgetLine& line : lines) {
    auto kind = std::find_if(kinds.begin(), kinds.end(),
                             [&](const auto& known) { return known.first == line.kind; });
    if (kind == kinds.end()) kind = kinds.insert(kinds.end(), {line.kind, Money()});
    kind->second += line.*amount;
  }
  QStringList words;
  for (const auto& [kind, sum] : kinds) words += kind + u' ' + sum.ToCurrencyText();
  return words.join(QStringLiteral(", "));
}

std::vector<BudgetDays> BudgetDaysOf(const BudgetYear& year, QDate today) {
  std::vector<BudgetDays> choices{{QStringLiteral("The whole year"), year.days}};
  if (year.days.Contains(today)) {
    const QDate end = std::min(DateRange::MonthOf(today).to, year.days.to);
    choices.push_back({QStringLiteral("The year to date"), {year.days.from, end}});
  }
  for (const DateRange& month : MonthsOf(year.days)) choices.push_back({MonthWords(month), month});
  return choices;
}

std::optional<Refusal> SetBudget(Business& business, const BudgetYear& year, Id<Account> account,
                                 Money amount) {
  if (amount < Money())
    return Refusal{QStringLiteral("Please enter a valid amount."), QStringLiteral("amount")};
  const Recordset there = business.RunSQL(
      Sql("SELECT GL_Account_Name FROM General_Ledger_Accounts WHERE GL_Account_ID = {}", account));
  if (!there.HasRows()) return Refusal{QStringLiteral("This account is no longer there."), {}};
  Transaction setting(business);
  WriteBudget(business, year, account, amount.Rounded(2));
  setting.Commit();
  business.PastCommands().Describe(
      QStringLiteral("Budget of %1: %2")
          .arg(there.Field(u"GL_Account_Name").ToText(), amount.ToCurrencyText()));
  return std::nullopt;
}

std::optional<Refusal> FillBudgets(Business& business, const BudgetYear& year, BudgetSource source,
                                   double percent) {
  if (!std::isfinite(percent) || percent < kAtLeast)
    return Refusal{QStringLiteral("Please enter a percentage of -100 or more."),
                   QStringLiteral("percent")};
  const auto before = YearBefore(business, year);
  if (!before)
    return Refusal{
        QStringLiteral("There is no financial year before %1 in this business.").arg(year.Words()),
        {}};
  const bool ofBudget = source == BudgetSource::LastYearsBudget;
  Transaction filling(business);
  for (const BudgetLine& line : LoadBudgets(business, *before, before->days)) {
    const double from = (ofBudget ? line.yearly : line.actual).ToDouble();
    const Money amount = Money::FromDouble(std::max(0.0, from * (1 + percent / 100))).Rounded(2);
    WriteBudget(business, year, line.account, amount);
  }
  filling.Commit();
  business.PastCommands().Describe(
      QStringLiteral("Budgets of %1 from %2")
          .arg(year.Words(),
               ofBudget ? QStringLiteral("last year's") : QStringLiteral("last year's actuals")));
  return std::nullopt;
}

}  // namespace quillary::accounts
