#include "ReportsFixture.h"
#include "reports/ProfitAndLoss.h"
#include "reports/TaxReport.h"

namespace quillary::reports {
namespace {

struct FiguresCase {
  Source source;
  const char* method;
};

std::string NameOf(const ::testing::TestParamInfo<FiguresCase>& info) {
  return std::string(info.param.source.name) + info.param.method;
}

/// Profit, loss and tax against sums of the tables, for a year, a month and days of nothing.
class BookFiguresTest : public ReportsTest, public ::testing::WithParamInterface<FiguresCase> {
 protected:
  void SetUp() override {
    ReportsTest::SetUp();
    Load(GetParam().source);
    business().values.accountingMethod = GetParam().method;
  }
  bool OnCash() const { return QString(GetParam().method) == "Cash"; }
  std::vector<DateRange> Ranges() const {
    const DateRange& year = GetParam().source.year;
    const QDate middle = year.to.addDays(-20);
    return {year, DateRange::MonthOf(middle), {QDate(1990, 1, 1), QDate(1990, 12, 31)}};
  }

  struct Sums {
    std::map<qint64, Money> revenue;  // by account, 0 for none
    std::map<qint64, Money> tax;
    std::map<qint64, Money> expense;
    Money cash;
  };

  /// Which entries count: those on a payment of the days, or those of the days.
  bool Counts(const Books::Row& entry, const DateRange& days,
              const std::map<qint64, Books::Row>& payments) const {
    if (!OnCash()) {
      const QString status = entry.at("Status").ToText();
      return (IsDone(entry) || status == "J") && IsWithin(entry.at("Schedule_Date"), days);
    }
    const auto payment = payments.find(entry.at("Payment_ID").ToLong());
    return payment != payments.end() && IsWithin(payment->second.at("Payment_Date"), days);
  }

  Sums SumUp(const DateRange& days) {
    Sums sums;
    const auto payments = books->ById("Payments", "Payment_ID");
    const auto entries = books->ById("Diary", "Diary_ID");
    const auto services = books->ById("Services", "Service_ID");
    const auto accounts = books->ById("General_Ledger_Accounts", "GL_Account_ID");
    std::set<qint64> withLines;
    const auto add = [&](const Books::Row& entry, qint64 service, const Value& price,
                         const Value& tax) {
      if (!Counts(entry, days, payments)) return;
      const auto of = services.find(service);
      const qint64 account =
          of == services.end() ? 0 : of->second.at("Default_GL_Account_ID").ToLong();
      const qint64 known = accounts.contains(account) ? account : 0;
      sums.revenue[known] += price.ToMoney();
      sums.tax[known] += tax.ToMoney();
    };
    for (const Books::Row& line : (*books)["Diary_Services"]) {
      const auto entry = entries.find(line.at("Diary_ID").ToLong());
      if (entry == entries.end()) continue;
      withLines.insert(entry->first);
      add(entry->second, line.at("Service_ID").ToLong(), line.at("Price"), line.at("GST"));
    }
    for (const auto& [id, entry] : entries)
      if (!withLines.contains(id)) add(entry, 0, entry.at("Total_Price"), entry.at("Total_GST"));
    for (const Books::Row& line : (*books)["General_Ledger_Entries"])
      if (!line.at("Purchase_ID").IsNull() && IsWithin(line.at("Entry_Date"), days))
        sums.expense[line.at("GL_Account_ID").ToLong()] += line.at("GL_Amount").ToMoney();
    for (const auto& [id, payment] : payments)
      if (IsWithin(payment.at("Payment_Date"), days)) sums.cash += payment.at("Amount").ToMoney();
    return sums;
  }
};

Money All(const std::map<qint64, Money>& sums) {
  Money all;
  for (const auto& [account, sum] : sums) all += sum;
  return all;
}

TEST_P(BookFiguresTest, ProfitAndLossIsWhatTheTablesAddUpTo) {
  for (const DateRange& days : Ranges()) {
    const Sums sums = SumUp(days);
    const ProfitAndLoss figures = CollectProfitAndLoss(business(), days);
    std::map<qint64, Money> revenue;
    for (const AccountSum& sum : figures.revenue) {
      const qint64 account = NumberOrZero(sum.account);
      EXPECT_EQ(sum.amount, sums.revenue.at(account)) << account;
      EXPECT_EQ(sum.tax, sums.tax.at(account)) << account;
      EXPECT_EQ(account == 0, sum.name == "(No specific account)");
      revenue[account] += sum.amount;
    }
    EXPECT_EQ(All(revenue), All(sums.revenue)) << "an account fell out";
    for (const AccountSum& sum : figures.expense)
      EXPECT_EQ(sum.amount, sums.expense.at(NumberOrZero(sum.account)));
    const Results with = ResultsOf(figures, documents::TaxMode::Included, OnCash());
    EXPECT_EQ(with.expense, All(sums.expense));
    EXPECT_EQ(with.cashReceived, sums.cash);
    EXPECT_EQ(with.Profit(), (OnCash() ? sums.cash : All(sums.revenue)) - All(sums.expense));
    const Results without = ResultsOf(figures, documents::TaxMode::Excluded, OnCash());
    EXPECT_EQ(without.jobsRevenue, All(sums.revenue) - All(sums.tax));
  }
}

TEST_P(BookFiguresTest, TheReportShowsThemAndTheResultByItsSign) {
  for (const DateRange& days : Ranges()) {
    const Sums sums = SumUp(days);
    const Money profit = (OnCash() ? sums.cash : All(sums.revenue)) - All(sums.expense);
    const auto groups = Collect("profit-loss", {.days = days}).sections.front().groups;
    EXPECT_EQ(groups.front().totals[2].ToMoney(), All(sums.revenue));
    EXPECT_EQ(groups.size(), OnCash() ? 4U : 3U);
    if (OnCash()) {
      EXPECT_EQ(groups[1].rows[1].cells[2].ToMoney(), sums.cash);
    }
    const ReportGroup& expense = groups[groups.size() - 2];
    EXPECT_EQ(expense.totals[0].ToText(), "Total Expense");
    EXPECT_EQ(expense.totals[2].ToMoney(), All(sums.expense));
    const ReportRow& result = groups.back().rows.front();
    EXPECT_EQ(result.cells[0].ToText(), profit < Money() ? "Your loss is " : "Your profit is ");
    EXPECT_EQ(result.cells[2].ToMoney(), profit < Money() ? -profit : profit);
  }
}

TEST_P(BookFiguresTest, MonthsAddUpToTheirTotal) {
  const DateRange days{GetParam().source.year.to.addMonths(-5), GetParam().source.year.to};
  const auto data = Collect("profit-loss", {.days = days, .option = "with-tax-months"});
  for (const ReportGroup& group : data.sections.front().groups) {
    for (const ReportRow& row : group.rows) {
      Money months;
      for (size_t at = 2; at + 1 < row.cells.size(); ++at) months += row.cells[at].ToMoney();
      EXPECT_EQ(months, row.cells.back().ToMoney()) << row.cells[0].ToText().toStdString();
    }
  }
}

TEST_P(BookFiguresTest, TaxIsWhatTheTablesAddUpTo) {
  for (const DateRange& days : Ranges()) {
    TaxFigures expected;
    if (OnCash()) {
      for (const Books::Row& row : (*books)["Payments"]) {
        if (!IsWithin(row.at("Payment_Date"), days)) continue;
        expected.sales += row.at("Amount").ToMoney();
        expected.taxOnSales += row.at("GST_Included").ToMoney();
        if (row.at("GST_Included").ToMoney() == Money())
          expected.untaxedSales += row.at("Amount").ToMoney();
      }
    } else {
      for (const Books::Row& row : (*books)["Diary"]) {
        if (!IsDone(row) || !IsWithin(row.at("Schedule_Date"), days)) continue;
        expected.sales += row.at("Total_Price").ToMoney();
        expected.taxOnSales += row.at("Total_GST").ToMoney();
        if (row.at("Total_GST").ToMoney() == Money())
          expected.untaxedSales += row.at("Total_Price").ToMoney();
      }
    }
    for (const Books::Row& row : (*books)["Purchases"]) {
      if (!IsWithin(row.at("Purchase_Date"), days)) continue;
      const bool isTaxed = row.at("GST_Included").ToMoney() != Money();
      Money& sum = row.at("Capital").ToBool()
                       ? (isTaxed ? expected.capital : expected.untaxedCapital)
                       : (isTaxed ? expected.purchases : expected.untaxedPurchases);
      sum += row.at("Amount").ToMoney();
      expected.taxOnPurchases += row.at("GST_Included").ToMoney();
    }
    const TaxFigures figures =
        CollectTaxFigures(business(), days, OnCash() ? SalesBasis::Cash : SalesBasis::Accrual);
    EXPECT_EQ(figures.sales, expected.sales);
    EXPECT_EQ(figures.taxOnSales, expected.taxOnSales);
    EXPECT_EQ(figures.untaxedSales, expected.untaxedSales);
    EXPECT_EQ(figures.capital, expected.capital);
    EXPECT_EQ(figures.untaxedCapital, expected.untaxedCapital);
    EXPECT_EQ(figures.purchases, expected.purchases);
    EXPECT_EQ(figures.untaxedPurchases, expected.untaxedPurchases);
    EXPECT_EQ(figures.Payable(), expected.taxOnSales - expected.taxOnPurchases);
    // On the form: 1A and the result, in the column of the method.
    const auto groups = Collect("gst", {.days = days}).sections.front().groups;
    const size_t column = OnCash() ? 2 : 3;
    EXPECT_EQ(groups[0].rows[2].cells[column].ToMoney(), expected.taxOnSales);
    EXPECT_EQ(groups[2].rows[0].cells[column].ToMoney(), figures.Payable());
    const auto bars = Collect("gst", {.days = days}).chart;
    Money months;
    for (const ChartBar& bar : bars) months += bar.amount;
    if (!bars.empty()) {
      EXPECT_EQ(months, figures.Payable()) << "the chart";
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Books, BookFiguresTest,
                         ::testing::Values(FiguresCase{kDemo, "Cash"},
                                           FiguresCase{kDemo, "Accrual"},
                                           FiguresCase{kConverted, "Cash"},
                                           FiguresCase{kConverted, "Accrual"}),
                         NameOf);

class ExemptTest : public ReportsTest {};

TEST_F(ExemptTest, LessTaxAnExemptPurchaseCountsWhole) {
  Run(
      Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) VALUES "
          "('Levies', 'Expense')"));
  Run(
      Sql("INSERT INTO Purchases (Description, Amount, Purchase_Date, Tax_Exempt) VALUES "
          "('Levy', 110, {}, True)",
          QDate(2026, 11, 2)));
  Run(
      Sql("INSERT INTO General_Ledger_Entries (Purchase_ID, GL_Account_ID, GL_Amount, "
          "GST_Included, Entry_Date) VALUES (1, 1, 110, 10, {})",
          QDate(2026, 11, 2)));
  const DateRange days{QDate(2026, 11, 1), QDate(2026, 11, 30)};
  for (const char* option : {"without-tax", "with-tax"}) {
    const auto data = Collect("profit-loss", {.days = days, .option = option});
    const ReportRow result = data.sections.front().groups.back().rows.front();
    EXPECT_EQ(result.cells[0].ToText(), "Your loss is ");
    EXPECT_EQ(result.cells[2].ToMoney(), Money::FromWhole(110)) << option;
  }
  // A preview is made again after each commit to the ledger, so making it must come to rest.
  int written = 0;
  const Subscription listening = business().OnCommitted(
      [&](const Tables& tables) { written += tables.Contains("General_Ledger_Entries"); });
  Collect("profit-loss", {.days = days, .option = "without-tax"});
  EXPECT_EQ(written, 0);
}

}  // namespace
}  // namespace quillary::reports
