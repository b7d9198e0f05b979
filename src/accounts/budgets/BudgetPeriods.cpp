#include "accounts/budgets/BudgetPeriods.h"

#include "base/Text.h"

namespace quillary::accounts {
namespace {

constexpr int kMonthOfJuly = 7;

BudgetYear YearOf(const Record& row) {
  return {Id<BudgetPeriod>(row[u"Budget_Period_ID"].ToLong()),
          {row[u"Starting_Date"].ToDate(), row[u"Ending_Date"].ToDate()}};
}

/// A file without the date has the financial year of Australia, as reports take it too.
QDate FirstDayOfYear(Business& business) {
  const QDate set =
      business.FirstField(Sql("SELECT Financial_Year_Starting FROM infSystem")).ToDate();
  return {business.Today().year(), set.isValid() ? set.month() : kMonthOfJuly, 1};
}

Id<BudgetPeriod> OpenYear(Business& business) {
  const QDate first = FirstDayOfYear(business);
  Transaction opening(business);
  const auto period = business.InsertReturningKey<BudgetPeriod>(
      Sql("INSERT INTO Budget_Periods (Starting_Date, Ending_Date) VALUES ({}, {})", first,
          first.addYears(1).addDays(-1)));
  for (const Record account : business.RunSQL(Sql(
           "SELECT GL_Account_ID, GL_Account_Name, Budget_Amount FROM General_Ledger_Accounts; ")))
    business.Write(
        Sql("INSERT INTO Budgets (Budget_Period_ID, GL_Account_ID, Budget_Amount, "
            "Actual) VALUES ({}, {}, {}, 0)",
            period, account[u"GL_Account_ID"], account[u"Budget_Amount"].ToMoney()));
  opening.Commit();
  return period;
}

int LinkEntries(Business& business, const BudgetYear& year) {
  int corrections = 0;
  for (const Record entry : business.RunSQL(
           Sql("SELECT * FROM General_Ledger_Entries WHERE Entry_Date BETWEEN {} AND {}",
               year.days.from, year.days.to))) {
    const qint64 budget =
        business
            .FirstField(Sql("SELECT Budget_ID FROM Budgets WHERE GL_Account_ID = {} AND "
                            "Budget_Period_ID = {}",
                            entry[u"GL_Account_ID"], year.period))
            .ToLong();
    if (budget == entry[u"Budget_ID"].ToLong()) continue;
    business.Write(Sql("UPDATE General_Ledger_Entries SET Budget_ID = {} WHERE GL_Entry_ID = {}",
                       budget, entry[u"GL_Entry_ID"]),
                   Rows::Exactly(1));
    ++corrections;
  }
  return corrections;
}

int SumEntries(Business& business, const BudgetYear& year) {
  int corrections = 0;
  for (const Record budget :
       business.RunSQL(Sql("SELECT * FROM Budgets WHERE Budget_Period_ID = {}", year.period))) {
    const Money actual =
        business
            .FirstField(
                Sql("SELECT Sum(GL_Amount) FROM General_Ledger_Entries WHERE Budget_ID = {}",
                    budget[u"Budget_ID"]))
            .ToMoney();
    if (actual == budget[u"Actual"].ToMoney()) continue;
    business.Write(
        Sql("UPDATE Budgets SET Actual = {} WHERE Budget_ID = {}", actual, budget[u"Budget_ID"]),
        Rows::Exactly(1));
    ++corrections;
  }
  return corrections;
}

}  // namespace

QString BudgetYear::Words() const {
  const QString first = QString::number(days.from.year());
  if (days.from.year() == days.to.year()) return first;
  return first + u'/' + QString::number(days.to.year()).right(2);
}

std::vector<BudgetYear> ListBudgetYears(Business& business) {
  std::vector<BudgetYear> years;
  for (const Record row : business.RunSQL(
           Sql("SELECT * FROM Budget_Periods ORDER BY Starting_Date DESC, Budget_Period_ID DESC")))
    years.push_back(YearOf(row));
  return years;
}

std::optional<BudgetYear> BudgetYearOf(Business& business, QDate day) {
  for (const BudgetYear& year : ListBudgetYears(business))
    if (year.days.Contains(day)) return year;
  return std::nullopt;
}

Id<BudgetPeriod> InitializeBudgets(Business& business) {
  const QDate end =
      business.FirstField(Sql("SELECT MAX(Ending_Date) FROM Budget_Periods; ")).ToDate();
  if (!end.isValid() || end < business.Today()) return OpenYear(business);
  return Id<BudgetPeriod>(
      business.FirstField(Sql("SELECT MAX(Budget_Period_ID) FROM Budget_Periods; ")).ToLong());
}

int RecalculateBudgets(Business& business) {
  int corrections = 0;
  Transaction repair(business);
  for (const Record row : business.RunSQL(Sql("SELECT * FROM Budget_Periods;"))) {
    const BudgetYear year = YearOf(row);
    corrections += LinkEntries(business, year) + SumEntries(business, year);
  }
  repair.Commit();
  business.PastCommands().Describe(QStringLiteral("Budgets recalculated"));
  return corrections;
}

QString BudgetsVerifiedWords(int corrections) {
  return QStringLiteral(
             "All of the budgets have been verified. %1 budget(s) were incorrect, and have been "
             "repaired.")
      .arg(corrections);
}

}  // namespace quillary::accounts
