#include "accounts/screens/AccountScreens.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Setup.h"
#include "gui/ScreenFixture.h"

#include <QTabWidget>

namespace quillary {
namespace {

/// Over the chart of accounts, the countries and the repair of the tax. "Garden income" is there.
class AccountScreensTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    accounts::RegisterAccountScreens(business(), {navigator, host, runner});
  }
};

TEST_F(AccountScreensTest, KeepsTheChartOnTwoTabs) {
  Screen& chart = OpenTab(OpenGeneralLedgerAccounts{});
  auto* revenue = Find<Grid>(&chart, "fgRevenue");
  ClickOn(&chart, "cmdUpdateRevenue");
  EXPECT_EQ(Told(), "Please enter the name of the Revenue Account.");
  EXPECT_TRUE(Find<QWidget>(&chart, "txtRevenueAccountName")->hasFocus());
  TypeOver(&chart, "txtRevenueAccountName", "Tips");
  ClickOn(&chart, "cmdUpdateRevenue");
  ClickOn(&chart, "cmdDeleteRevenue");
  EXPECT_EQ(Told(), "Please choose a record to update.|Please choose a record to delete.");
  TypeOver(&chart, "txtRevenueAccountNo", "4-1");
  QTest::keyClick(Find<QLineEdit>(&chart, "txtRevenueAccountNo"), Qt::Key_N, Qt::ControlModifier);
  ASSERT_EQ(revenue->model()->rowCount(), 2);
  EXPECT_EQ(Find<QLineEdit>(&chart, "txtRevenueAccountName")->text(), "") << "ready for the next";
  EXPECT_FALSE(revenue->SelectedRow());

  revenue->SelectFirst();
  EXPECT_EQ(Find<QLineEdit>(&chart, "txtRevenueAccountName")->text(), "Garden income");
  TypeOver(&chart, "txtRevenueAccountNo", "4-1");
  ClickOn(&chart, "cmdUpdateRevenue");
  EXPECT_EQ(Told(), "GL Account number already exists, please enter new value.");
  ClickOn(&chart, "cmdCancelRevenue");
  EXPECT_FALSE(revenue->SelectedRow());

  auto* pages = Find<QTabWidget>(&chart, "pages");
  EXPECT_EQ(pages->tabText(0), "Revenue 2");
  pages->setCurrentIndex(1);
  TypeOver(&chart, "txtExpenseAccountName", "Fuel");
  TypeOver(&chart, "txtExpenseAccountNo", "4-1");
  ClickOn(&chart, "cmdInsertExpense");
  EXPECT_EQ(RowText(Find<Grid>(&chart, "fgExpense"), 0), "Fuel|4-1|$0.00");
  EXPECT_EQ(Told(), "");
  TypeOver(&chart, "txtExpenseAccountName", "half typed");
  EXPECT_TRUE(chart.MayClose()) << "it closes at once";
}

TEST_F(AccountScreensTest, KeepsCountriesAndAsksBeforeTheRepair) {
  Screen& countries = OpenTab(OpenCountries{});
  ClickOn(&countries, "cmdInsert");
  EXPECT_EQ(Told(), "Please enter the name of the country.");
  TypeOver(&countries, "txtCountry", "Fiji");
  TypeOver(&countries, "txtTaxName", "VAT");
  ClickOn(&countries, "cmdInsert");
  EXPECT_EQ(Word(Sql("SELECT Tax_Name FROM Countries WHERE Country_Name = 'Fiji'")), "VAT");

  Run(Sql("INSERT INTO Payments (Amount) VALUES (110)"));
  outside.prompter.Expect("re-calculate and update the GST", Answer::Yes);
  navigator.Open(RecalculateGSTComponent{});
  EXPECT_EQ(Told(), "Re-calculation done.");
  EXPECT_EQ(Word(Sql("SELECT GST_Included FROM Payments")), "10");
}

}  // namespace
}  // namespace quillary
