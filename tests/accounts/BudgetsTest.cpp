#include "accounts/budgets/YearlyBudgets.h"
#include "support/BusinessTest.h"

namespace quillary::accounts {
namespace {

/// Accounts 1 Lawns (revenue, 12000 a year) and 2 Fuel (expense, 2400 a year).
class BudgetsTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    Run(Sql("DELETE FROM General_Ledger_Accounts"));
    for (const auto& [id, name, type, budget] :
         {std::tuple(1, "Lawns", "Revenue", 12000), {2, "Fuel", "Expense", 2400}})
      Run(
          Sql("INSERT INTO General_Ledger_Accounts (GL_Account_ID, GL_Account_Name, "
              "GL_Account_Type, Budget_Amount) VALUES ({}, {}, {}, {})",
              id, name, type, budget));
  }
  void StartYear(const char* month, QDate today) {
    Run(Sql("UPDATE infSystem SET Financial_Year_Starting = {}",
            QDate::fromString(QString("2019-%1-01").arg(month), Qt::ISODate)));
    outside.clock.now.date = today;
  }
  void Book(int account, QDate day, int dollars) {
    Run(
        Sql("INSERT INTO General_Ledger_Entries (GL_Account_ID, Entry_Date, GL_Amount) "
            "VALUES ({}, {}, {})",
            account, day, dollars));
  }
  QString Rows(const char* select) {
    QStringList rows;
    for (const Record row : Run(Sql(select))) {
      QStringList fields;
      for (size_t at = 0; at < row.Size(); ++at)
        fields += row[at].IsDate() ? row[at].ToDate().toString(Qt::ISODate) : row[at].ToText("-");
      rows += fields.join(' ');
    }
    return rows.join(", ");
  }
  QString Periods() {
    return Rows("SELECT Budget_Period_ID, Starting_Date, Ending_Date FROM Budget_Periods");
  }
};

TEST_F(BudgetsTest, AYearOpensWhenNoneIsThereOrTheLastHasEnded) {
  struct Case {
    const char* why;
    QDate today;
    const char* periods;
  };
  Run(Sql("UPDATE General_Ledger_Accounts SET Budget_Amount = NULL WHERE GL_Account_ID = 2"));
  const char* const first = "1 2026-07-01 2027-06-30";
  const char* const both = "1 2026-07-01 2027-06-30, 2 2027-07-01 2028-06-30";
  for (const Case& c :
       {Case{"a July year first opened in May is the one to come", {2026, 5, 10}, first},
        Case{"again", {2026, 5, 10}, first}, Case{"its last day", {2027, 6, 30}, first},
        Case{"the day after", {2027, 7, 1}, both}, Case{"again", {2028, 6, 30}, both}}) {
    StartYear("07", c.today);
    const auto period = InitializeBudgets(business());
    EXPECT_EQ(Periods(), c.periods) << c.why;
    EXPECT_EQ(period.Number(), QString(c.periods).count(',') + 1) << c.why;
  }
  EXPECT_EQ(Rows("SELECT Budget_Period_ID, GL_Account_ID, Budget_Amount, Actual FROM Budgets"),
            "1 1 12000 0, 1 2 0 0, 2 1 12000 0, 2 2 0 0");
}

TEST_F(BudgetsTest, RecalculationLinksEntriesAndSumsThem) {
  StartYear("01", {2026, 11, 2});
  InitializeBudgets(business());
  EXPECT_EQ(RecalculateBudgets(business()), 0);
  Book(1, {2026, 3, 1}, 100);
  Book(2, {2026, 12, 31}, 30);
  Book(2, {2025, 12, 31}, 7);  // before the year
  Book(9, {2026, 3, 1}, 5);    // of no account
  EXPECT_EQ(RecalculateBudgets(business()), 4) << "two links and two sums";
  EXPECT_EQ(RecalculateBudgets(business()), 0);
  EXPECT_EQ(Rows("SELECT GL_Amount, Budget_ID FROM General_Ledger_Entries"),
            "100 1, 30 2, 7 -, 5 -");
  EXPECT_EQ(Rows("SELECT Budget_ID, Actual FROM Budgets"), "1 100, 2 30");
  Run(Sql("UPDATE General_Ledger_Entries SET GL_Account_ID = 2 WHERE GL_Amount = 100"));
  const int corrections = RecalculateBudgets(business());
  EXPECT_EQ(corrections, 3) << "an entry that moved: its link and both sums";
  EXPECT_EQ(BudgetsVerifiedWords(corrections),
            "All of the budgets have been verified. 3 budget(s) were incorrect, and have been "
            "repaired.");
  EXPECT_EQ(Rows("SELECT Budget_ID, Actual FROM Budgets"), "1 0, 2 130");
}

TEST_F(BudgetsTest, FiguresAreThoseOfTheDaysAskedFor) {
  StartYear("07", {2026, 11, 2});
  InitializeBudgets(business());
  Book(1, {2026, 7, 1}, 900);
  Book(1, {2026, 11, 30}, 1500);
  Book(1, {2027, 6, 30}, 50);
  Book(2, {2026, 11, 2}, 300);
  const BudgetYear year = *BudgetYearOf(business(), {2026, 11, 2});
  EXPECT_EQ(year.Words(), "2026/27");
  const auto choices = BudgetDaysOf(year, {2026, 11, 2});
  ASSERT_EQ(choices.size(), 14U) << "the year, the year to date, and twelve months";
  struct Case {
    size_t choice;
    const char* lawns;  // budget, actual, difference
    const char* fuel;
  };
  for (const Case& c :
       {Case{0, "12000 2450 -9550", "2400 300 2100"}, Case{1, "5000 2400 -2600", "1000 300 700"},
        Case{2, "1000 900 -100", "200 0 200"}, Case{6, "1000 1500 500", "200 300 -100"}}) {
    const auto lines = LoadBudgets(business(), year, choices[c.choice].days);
    ASSERT_EQ(lines.size(), 2U);
    const auto words = [](const BudgetLine& line) {
      return QStringList{line.budget.ToText(), line.actual.ToText(), line.Difference().ToText()}
          .join(' ');
    };
    EXPECT_EQ(words(lines[0]), c.lawns) << choices[c.choice].words.toStdString();
    EXPECT_EQ(words(lines[1]), c.fuel) << choices[c.choice].words.toStdString();
  }
  EXPECT_EQ(LoadBudgets(business(), year, choices[6].days)[1].Share(), 1.5);
  Run(
      Sql("INSERT INTO General_Ledger_Accounts (GL_Account_ID, GL_Account_Name, GL_Account_Type) "
          "VALUES (3, 'Mower', 'Asset')"));
  Book(3, {2026, 7, 9}, 400);
  const auto lines = LoadBudgets(business(), year, year.days);
  EXPECT_EQ(lines[2].Difference(), Money::FromWhole(-400)) << "spent, though no expense";
  EXPECT_EQ(TotalsByKind(lines, &BudgetLine::actual),
            "Revenue $2,450.00, Expense $300.00, Asset $400.00");
}

TEST_F(BudgetsTest, BudgetsAreSetAndFilledFromTheYearBefore) {
  StartYear("01", {2025, 3, 1});
  InitializeBudgets(business());
  Book(1, {2025, 6, 1}, 9001);
  const BudgetYear first = ListBudgetYears(business()).front();
  EXPECT_TRUE(FillBudgets(business(), first, BudgetSource::LastYearsBudget, 0))
      << "there is no year before";
  StartYear("01", {2026, 3, 1});
  InitializeBudgets(business());
  const BudgetYear year = ListBudgetYears(business()).front();
  Run(Sql("DELETE FROM Budgets WHERE GL_Account_ID = 2 AND Budget_Period_ID = {}", year.period));
  const auto budgets = [&] {
    return Rows(
               "SELECT Budget_Amount FROM Budgets WHERE Budget_Period_ID = 2 ORDER BY "
               "GL_Account_ID") +
           " / " + Rows("SELECT Budget_Amount FROM General_Ledger_Accounts ORDER BY GL_Account_ID");
  };
  struct Case {
    BudgetSource source;
    double percent;
    const char* budgets;  // of the year, and those with which the next one opens
  };
  for (const Case& c : {Case{BudgetSource::LastYearsBudget, 2.5, "12300, 2460 / 12300, 2460"},
                        Case{BudgetSource::LastYearsActuals, 10, "9901.1, 0 / 9901.1, 0"},
                        Case{BudgetSource::LastYearsBudget, -100, "0, 0 / 0, 0"}}) {
    ASSERT_FALSE(FillBudgets(business(), year, c.source, c.percent));
    EXPECT_EQ(budgets(), c.budgets);
  }
  for (const double percent : {-101.0, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_TRUE(FillBudgets(business(), year, BudgetSource::LastYearsBudget, percent));
  EXPECT_FALSE(SetBudget(business(), year, Id<Account>(2), *Money::Parse(QString("99.999"))));
  EXPECT_EQ(budgets(), "0, 100 / 0, 100");
  EXPECT_FALSE(SetBudget(business(), first, Id<Account>(1), Money::FromWhole(5)));
  EXPECT_EQ(budgets(), "0, 100 / 0, 100") << "an earlier year opens no other";
  EXPECT_TRUE(SetBudget(business(), year, Id<Account>(1), *Money::Parse(QString("-1"))));
  EXPECT_TRUE(SetBudget(business(), year, Id<Account>(77), Money::FromWhole(5)));
}

}  // namespace
}  // namespace quillary::accounts
