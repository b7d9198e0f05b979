#include "accounts/budgets/BudgetPeriods.h"
#include "accounts/screens/AccountScreens.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Maintenance.h"
#include "gui/ScreenFixture.h"

#include <QComboBox>

namespace quillary {
namespace {

/// Over budgets and the repair of all records. The accounts are Lawns, Fuel and Mower, and the
/// year, 2026/27, has a year before it.
class BudgetScreensTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    navigator.Register<ShowLedgerEntries>([this](const ShowLedgerEntries& asked) {
      entries +=
          QStringLiteral("%1 %2 %3")
              .arg(asked.account.Number())
              .arg(asked.days.from.toString(Qt::ISODate), asked.days.to.toString(Qt::ISODate));
    });
    runner.RunWithin(
        [this](const QString& what) { return std::make_shared<CommandScope>(business(), what); });
    accounts::RegisterAccountScreens(business(), {navigator, host, runner});
    Run(Sql("DELETE FROM General_Ledger_Accounts"));
    for (const auto& [id, name, type, budget] : {std::tuple(1, "Lawns", "Revenue", 12000),
                                                 {2, "Fuel", "Expense", 2400},
                                                 {3, "Mower", "Asset", 600}})
      Run(
          Sql("INSERT INTO General_Ledger_Accounts (GL_Account_ID, GL_Account_Name, "
              "GL_Account_Type, Budget_Amount) VALUES ({}, {}, {}, {})",
              id, name, type, budget));
    Run(Sql("UPDATE infSystem SET Financial_Year_Starting = #2019/7/1#"));
    const QDate today = business().Today();
    for (const QDate day : {today.addYears(-1), today}) {
      outside.clock.now.date = day;
      accounts::InitializeBudgets(business());
    }
  }
  void Book(int account, QDate day, int dollars) {
    Run(
        Sql("INSERT INTO General_Ledger_Entries (GL_Account_ID, Entry_Date, GL_Amount) "
            "VALUES ({}, {}, {})",
            account, day, dollars));
  }
  static void Choose(Screen& screen, const char* combo, const QString& letters) {
    EnterField(Find<QComboBox>(&screen, combo));
    TypeKeys(letters);
  }
  static QString Totals(const Screen& screen) { return Find<QLabel>(&screen, "lblTotals")->text(); }

  QStringList entries;  // that were asked for
};

TEST_F(BudgetScreensTest, FiguresFollowYearMonthsAndEntries) {
  Book(1, {2026, 11, 1}, 4000);
  Book(2, {2026, 8, 31}, 1500);
  Book(3, {2026, 8, 2}, 200);
  Screen& budgets = OpenTab(OpenBudgets{});
  auto* grid = Find<Grid>(&budgets, "grdBudgets");
  EXPECT_EQ(RowText(grid, 0), "Lawns||Revenue|$5,000.00|$4,000.00|-$1,000.00|80 %");
  EXPECT_EQ(RowText(grid, 1), "Fuel||Expense|$1,000.00|$1,500.00|-$500.00|150 %");
  EXPECT_EQ(RowText(grid, 2), "Mower||Asset|$250.00|$200.00|$50.00|80 %");
  EXPECT_EQ(Totals(budgets), "Booked: Revenue $4,000.00, Expense $1,500.00, Asset $200.00");

  grid->SelectKey(2);
  Choose(budgets, "cmbDays", "Aug");
  EXPECT_EQ(RowText(grid, 1), "Fuel||Expense|$200.00|$1,500.00|-$1,300.00|750 %");
  ClickOn(&budgets, "cmdEntries");
  EnterField(grid);
  PressKey(Qt::Key_Return);
  EXPECT_EQ(entries, QStringList(2, "2 2026-08-01 2026-08-31")) << "the row in view, by both ways";

  Choose(budgets, "cmbYear", "2025");
  EXPECT_EQ(RowText(grid, 1), "Fuel||Expense|$2,400.00|$0.00|$2,400.00|0 %") << "the whole year";
}

TEST_F(BudgetScreensTest, BudgetsAreTypedFilledAndTakenBack) {
  Screen& setup = OpenTab(OpenSetupBudgets{});
  auto* grid = Find<Grid>(&setup, "grdSetupBudgets");
  const auto fuel = [&] {
    return Word(
        Sql("SELECT Budget_Amount FROM Budgets WHERE GL_Account_ID = 2 AND "
            "Budget_Period_ID = 2"));
  };
  TypeInto(grid, 1, 4, "3000");
  EXPECT_EQ(fuel(), "3000");
  EXPECT_EQ(RowText(grid, 1), "Fuel||Expense|$3,000.00|$250.00|$2,400.00|$0.00");
  EXPECT_EQ(Totals(setup), "Budgeted: Revenue $12,000.00, Expense $3,000.00, Asset $600.00");
  TypeInto(grid, 1, 4, "-5");
  EXPECT_EQ(Told(), "Please enter a valid amount.");
  EXPECT_EQ(fuel(), "3000");

  TypeOver(&setup, "txtPercent", "-200");
  ClickOn(&setup, "cmdCopyLastYear");
  EXPECT_EQ(Told(), "Please enter a percentage of -100 or more.");
  EXPECT_TRUE(Find<QWidget>(&setup, "txtPercent")->hasFocus());
  TypeOver(&setup, "txtPercent", "10");
  ClickOn(&setup, "cmdCopyLastYear");
  EXPECT_EQ(fuel(), "2640");
  const auto refusal = business().PastCommands().Undo();
  EXPECT_FALSE(refusal) << refusal->message.toStdString();
  EXPECT_EQ(fuel(), "3000");
  ClickOn(&setup, "cmdFromActuals");
  EXPECT_EQ(fuel(), "0");

  Choose(setup, "cmbYear", "2025");
  EXPECT_EQ(RowText(grid, 1), "Fuel||Expense|$2,400.00|$200.00||") << "no year before it";
  for (const char* fill : {"cmdCopyLastYear", "cmdFromActuals"})
    EXPECT_FALSE(Find<QPushButton>(&setup, fill)->isEnabled());
}

TEST_F(BudgetScreensTest, RecalculationTellsWhatItRepaired) {
  Book(1, {2026, 11, 1}, 4000);
  navigator.Open(RecalculateBudgets{});
  EXPECT_EQ(Told(),
            "All of the budgets have been verified. 2 budget(s) were incorrect, and have been "
            "repaired.");
}

TEST_F(BudgetScreensTest, SortingOutShowsItsStepsBeforeAndAfter) {
  Run(Sql("UPDATE Clients SET First_Name = Display_Name"));
  Run(Sql("INSERT INTO Payments (Client_ID, Amount) VALUES (1, 0)"));
  Run(Sql("INSERT INTO Diary (Client_ID, Total_Price) VALUES (1, 5)"));
  outside.prompter.Expect("Continue?", Answer::No);
  navigator.Open(SortOutDatabaseRecords{});
  EXPECT_EQ(host.shown, nullptr);
  outside.prompter.Expect("1 diary entries without a date deleted", Answer::Yes);
  Screen& steps = OpenTab(SortOutDatabaseRecords{});
  EXPECT_TRUE(Told().startsWith("You might need to check the Payment and Purchase records"));
  auto* grid = Find<Grid>(&steps, "grdSteps");
  EXPECT_EQ(grid->model()->rowCount(), 16);
  EXPECT_EQ(RowText(grid, 2), "Payments of nothing or of nobody deleted|1|0");
  EXPECT_EQ(Totals(steps), "2 before, 0 after");
  EXPECT_EQ(Count("Payments") + Count("Diary"), 0);
  EXPECT_EQ(business().PastCommands().ToUndo().value(0), "Database records sorted out");
  EXPECT_FALSE(business().PastCommands().Undo());
  steps.Reload();
  EXPECT_EQ(Totals(steps), "2 before, 2 after");
}

}  // namespace
}  // namespace quillary
