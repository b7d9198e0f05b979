#include "accounts/TaxRepair.h"
#include "documents/reports/Report.h"
#include "domain/Periods.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"
#include "reports/ProfitAndLoss.h"

#include <algorithm>

/// How profit and loss is shown: beside the same days a year before, or month by month.
namespace quillary::reports {
namespace {

using documents::TaxMode;

struct Period {
  QString heading;
  ProfitAndLoss figures;
  Results results;
};

struct Shown {
  std::vector<Period> periods;
  TaxMode mode;
  bool onCash;
  bool addsUp;  // the last period is all of the others
};

Period PeriodOf(const BookDays& books, const QString& heading, const DateRange& days, TaxMode mode,
                bool onCash) {
  Period period{heading, books.Within(days), {}};
  period.results = ResultsOf(period.figures, mode, onCash);
  return period;
}

// Accounts are told apart by their number in the tables and not by their words.
using AccountKey = qint64;
AccountKey KeyOfSum(const AccountSum& sum) {
  return NumberOrZero(sum.account);
}

Money AmountIn(const std::vector<AccountSum>& sums, AccountKey key, TaxMode mode) {
  Money amount;
  for (const AccountSum& sum : sums)
    if (KeyOfSum(sum) == key)
      amount += mode == TaxMode::Included ? sum.amount : sum.amount - sum.tax;
  return amount;
}

std::vector<Value> CellsOf(const QString& number, const QString& name,
                           const std::vector<Money>& amounts) {
  std::vector<Value> cells{number, name};
  cells.insert(cells.end(), amounts.begin(), amounts.end());
  return cells;
}

template <typename AmountOf>
std::vector<Money> OfEach(const Shown& shown, const AmountOf& amountOf) {
  std::vector<Money> amounts;
  for (const Period& period : shown.periods) amounts.push_back(amountOf(period));
  return amounts;
}

std::vector<Value> WordsAnd(const QString& words, const std::vector<Money>& amounts) {
  return CellsOf(words, {}, amounts);
}

/// Every account of any period, those of the first one first.
ReportGroup AccountGroup(const Shown& shown, const QString& key,
                         std::vector<AccountSum> ProfitAndLoss::*which, ReportLink::To to) {
  ReportGroup group{.key = key, .rows = {}, .totals = {}};
  std::vector<AccountKey> done;
  for (const Period& period : shown.periods) {
    for (const AccountSum& sum : period.figures.*which) {
      const AccountKey account = KeyOfSum(sum);
      if (std::find(done.begin(), done.end(), account) != done.end()) continue;
      done.push_back(account);
      group.rows.push_back({.cells = CellsOf(sum.number, sum.name,
                                             OfEach(shown,
                                                    [&](const Period& of) {
                                                      return AmountIn(of.figures.*which, account,
                                                                      shown.mode);
                                                    })),
                            .link = {to, account}});
    }
  }
  return group;
}

ReportGroup LinesGroup(const QString& key, std::vector<ReportRow> rows) {
  for (ReportRow& row : rows) row.strong = true;
  return {.key = key, .rows = std::move(rows), .totals = {}, .showsKey = false};
}

/// "Your profit is", or "Your loss is" with the loss as a positive amount. Beside other periods
/// only the first one's word stands there, so a loss of theirs shows as what it is: less than 0.
ReportRow ResultRow(const Shown& shown) {
  const Results& results =
      shown.addsUp ? shown.periods.back().results : shown.periods.front().results;
  const bool isLoss = results.Profit() < Money();
  return {.cells =
              WordsAnd(isLoss ? QStringLiteral("Your loss is ") : QStringLiteral("Your profit is "),
                       OfEach(shown, [&](const Period& period) {
                         return isLoss ? -period.results.Profit() : period.results.Profit();
                       }))};
}

ReportSection SectionOf(const Shown& shown) {
  ReportSection section;
  const bool wide = shown.periods.size() > 2;
  section.columns = {{"Number", wide ? "<+.6in" : "<+1.5in", CellKind::Text, Total::Word},
                     {"Account", wide ? "<+1.3in" : "<+2in", CellKind::Text}};
  for (const Period& period : shown.periods)
    section.columns.push_back(
        {period.heading, wide ? ">+.8in" : ">+1.5in", CellKind::Money, Total::Sum});
  ReportGroup revenue = AccountGroup(shown, QStringLiteral("Revenue"), &ProfitAndLoss::revenue,
                                     ReportLink::To::RevenueAccount);
  revenue.totals = WordsAnd(QStringLiteral("Total Revenue (based on jobs paid for)"),
                            OfEach(shown, [](const Period& of) { return of.results.jobsRevenue; }));
  section.groups.push_back(std::move(revenue));
  if (shown.onCash) {
    std::vector<ReportRow> lines(2);
    lines[0].cells = {QStringLiteral("* This is for reference purpose only if you are on Cash"),
                      Value()};
    lines[0].cells.resize(section.columns.size());
    lines[1].cells =
        WordsAnd(QStringLiteral("Total Cash Received"),
                 OfEach(shown, [](const Period& of) { return of.results.cashReceived; }));
    section.groups.push_back(LinesGroup(QStringLiteral("Cash received"), std::move(lines)));
  }
  ReportGroup expense = AccountGroup(shown, QStringLiteral("Expense"), &ProfitAndLoss::expense,
                                     ReportLink::To::LedgerAccount);
  expense.totals = WordsAnd(QStringLiteral("Total Expense"),
                            OfEach(shown, [](const Period& of) { return of.results.expense; }));
  section.groups.push_back(std::move(expense));
  section.groups.push_back(LinesGroup(QStringLiteral("Result"), {ResultRow(shown)}));
  return section;
}

/// The profit of each month, beside that of the month a year before.
std::vector<ChartBar> ProfitByMonth(const BookDays& books, const DateRange& days, TaxMode mode,
                                    bool onCash) {
  std::vector<ChartBar> bars;
  const std::vector<DateRange> months = MonthsOf(days);
  constexpr size_t kMostBars = 24;
  if (months.size() < 2 || months.size() > kMostBars) return bars;
  const auto profit = [&](const DateRange& of) {
    return ResultsOf(books.Within(of), mode, onCash).Profit();
  };
  for (const DateRange& month : months)
    bars.push_back({MonthWords(month), profit(month), profit(YearBefore(month))});
  return bars;
}

/// The jobs behind the revenue of an account, or of each.
ReportData CollectRevenueLines(Business& business, const ReportCriteria& criteria) {
  ListReport list;
  list.columns = {
      FieldColumn("Client", "<+2in", CellKind::Text, "Display_Name", Total::Word),
      FieldColumn("Schedule date", "<+1in", CellKind::Day, "Schedule_Date"),
      CellColumn(
          QStringLiteral("Job Description"), "<+2in", CellKind::Text,
          [](const Record& row) -> Value {
            return row[u"Service"].IsNull() ? row[u"Description"] : row[u"Service"];
          },
          Total::Count),
      FieldColumn("Amount", ">+1.25in", CellKind::Money, "Amount", Total::Sum),
      CellColumn(
          TaxHeading(business), ">+1in", CellKind::Money,
          [](const Record& row) { return row[u"Tax"]; }, Total::Sum),
  };
  list.group = [](const Record& row) {
    return GroupKey{row[u"GL_Account_Name"].ToText(QStringLiteral("(No specific account)")),
                    row[u"GL_Account_ID"].ToLong()};
  };
  list.link = LinkTo(ReportLink::To::Entry, "Diary_ID");
  ReportData data{.title = QStringLiteral("Revenue By Account")};
  data.scope = {FromTo(criteria.days), IsOnCash(business)
                                           ? QStringLiteral("Jobs that were paid in these days")
                                           : QStringLiteral("Jobs of these days")};
  data.sections = {
      CollectList(list, business.RunSQL(RevenueLines(business, criteria.days, criteria.record)))};
  return data;
}

constexpr size_t kMostMonths = 12;

ReportData CollectShown(Business& business, const ReportCriteria& criteria) {
  const bool withTax = !criteria.option.startsWith(u"without");
  // What is less tax needs the tax of exempt records to be none.
  if (!withTax) accounts::ZeroTaxOfExemptLedgerEntries(business);
  Shown shown{.periods = {},
              .mode = withTax ? TaxMode::Included : TaxMode::Excluded,
              .onCash = IsOnCash(business),
              .addsUp = criteria.option.endsWith(u"months")};
  const BookDays books(business, {YearBefore(criteria.days).from, criteria.days.to});
  const auto collect = [&](const QString& heading, const DateRange& days) {
    shown.periods.push_back(PeriodOf(books, heading, days, shown.mode, shown.onCash));
  };
  if (shown.addsUp) {
    const auto months = MonthsOf(criteria.days);
    if (months.size() > kMostMonths)
      throw std::invalid_argument("Month by month shows 12 months at most.");
    for (const DateRange& month : months) collect(MonthWords(month), month);
    collect(QStringLiteral("Total"), criteria.days);
  } else {
    collect(QStringLiteral("Amount"), criteria.days);
    collect(QStringLiteral("A year before"), YearBefore(criteria.days));
  }
  ReportData data{.title = QStringLiteral("Profit & Loss")};
  data.scope = {SystemName(),
                QStringLiteral("Profit/Loss from ") + RangeWords(criteria.days) +
                    QStringLiteral(" (Amount %1 %2)")
                        .arg(withTax ? QStringLiteral("with") : QStringLiteral("without"),
                             business.values.taxName)};
  data.sections = {SectionOf(shown)};
  data.landscape = shown.addsUp;
  if (!shown.addsUp) data.chart = ProfitByMonth(books, criteria.days, shown.mode, shown.onCash);
  return data;
}

}  // namespace

std::vector<ReportKind> ProfitAndLossKinds() {
  return {{"profit-loss",
           "Profit and loss",
           "Profit & Lost.doc",
           Asks::Days,
           CollectShown,
           {},
           {{"with-tax", "With tax"},
            {"without-tax", "Without tax"},
            {"with-tax-months", "With tax, by month"},
            {"without-tax-months", "Without tax, by month"}}},
          {"revenue-of-account", "Revenue by account", "Revenue By Account.doc", Asks::Days,
           CollectRevenueLines}};
}

}  // namespace quillary::reports
