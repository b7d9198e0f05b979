#include "reports/TaxReport.h"

#include "domain/EntryStatus.h"
#include "domain/Periods.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"
#include "reports/ProfitAndLoss.h"

namespace quillary::reports {
namespace {

Money SumOf(Business& business, const char* column, const char* table, const Sql& where) {
  return business.FirstField(Sql("SELECT SUM({}) FROM {} WHERE ", Sql(column), Sql(table)) + where)
      .ToMoney();
}

Sql DoneWithin(const DateRange& days) {
  return Within("Schedule_Date", days) + Sql(" AND Status IN {}", CodesOf(EntryGroup::WorkDone));
}

const Sql& Taxed() {
  static const Sql taxed(" AND GST_Included <> 0");
  return taxed;
}
/// None that was written and none at all are alike: neither counts towards the tax.
const Sql& Untaxed() {
  static const Sql untaxed(" AND (GST_Included = 0 OR GST_Included IS NULL)");
  return untaxed;
}

void CollectSales(Business& business, const DateRange& days, SalesBasis basis,
                  TaxFigures& figures) {
  if (basis == SalesBasis::Cash) {
    const Sql within = Within("Payment_Date", days);
    figures.sales = SumOf(business, "Amount", "Payments", within);
    figures.taxOnSales = SumOf(business, "GST_Included", "Payments", within);
    figures.untaxedSales = SumOf(business, "Amount", "Payments", within + Untaxed());
    return;
  }
  const Sql within = DoneWithin(days);
  figures.sales = SumOf(business, "Total_Price", "Diary", within);
  figures.taxOnSales = SumOf(business, "Total_GST", "Diary", within);
  figures.untaxedSales = SumOf(business, "Total_Price", "Diary",
                               within + Sql(" AND (Total_GST = 0 OR Total_GST IS NULL)"));
}

void CollectPurchases(Business& business, const DateRange& days, TaxFigures& figures) {
  const Sql within = Within("Purchase_Date", days);
  const Sql capital(" AND Capital = True");
  const Sql other(" AND Capital = False");
  const auto sum = [&](const Sql& which, const Sql& tax) {
    return SumOf(business, "Amount", "Purchases", within + which + tax);
  };
  figures.capital = sum(capital, Taxed());
  figures.untaxedCapital = sum(capital, Untaxed());
  figures.purchases = sum(other, Taxed());
  figures.untaxedPurchases = sum(other, Untaxed());
  figures.taxOnPurchases = SumOf(business, "GST_Included", "Purchases", within + Taxed());
}

// The form: the columns are cash and accrual, and the business's own method a year before.

struct Figures {
  TaxFigures cash;
  TaxFigures accrual;
  TaxFigures before;
};

template <typename Get>
ReportRow Line(const char* box, const QString& words, const Figures& figures, const Get& get) {
  return {.cells = {box, words, get(figures.cash), get(figures.accrual), get(figures.before)}};
}

ReportRow Strong(ReportRow row) {
  row.strong = true;
  return row;
}

ReportGroup SalesGroup(const Figures& figures, const QString& tax) {
  using F = TaxFigures;
  return {.key = QStringLiteral("Sales"),
          .rows = {Line("G1", QStringLiteral("Total sales, %1 included").arg(tax), figures,
                        [](const F& f) { return f.sales; }),
                   Line("G3", QStringLiteral("Of these without %1").arg(tax), figures,
                        [](const F& f) { return f.untaxedSales; }),
                   Strong(Line("1A", QStringLiteral("%1 on sales").arg(tax), figures,
                               [](const F& f) { return f.taxOnSales; }))},
          .totals = {}};
}

ReportGroup PurchasesGroup(const Figures& figures, const QString& tax) {
  using F = TaxFigures;
  return {.key = QStringLiteral("Purchases"),
          .rows = {Line("G10", QStringLiteral("Capital purchases with %1").arg(tax), figures,
                        [](const F& f) { return f.capital; }),
                   Line("G10", QStringLiteral("Capital purchases without %1").arg(tax), figures,
                        [](const F& f) { return f.untaxedCapital; }),
                   Line("G11", QStringLiteral("Other purchases with %1").arg(tax), figures,
                        [](const F& f) { return f.purchases; }),
                   Line("G11", QStringLiteral("Other purchases without %1").arg(tax), figures,
                        [](const F& f) { return f.untaxedPurchases; }),
                   Strong(Line("1B", QStringLiteral("%1 on purchases").arg(tax), figures,
                               [](const F& f) { return f.taxOnPurchases; }))},
          .totals = {}};
}

ReportGroup ResultGroup(const Figures& figures, const QString& tax, bool onCash) {
  const Money payable = (onCash ? figures.cash : figures.accrual).Payable();
  const QString words = payable < Money() ? QStringLiteral("%1 to be refunded, as less than 0")
                                          : QStringLiteral("%1 to be paid");
  return {.key = QStringLiteral("Result"),
          .rows = {Strong(
              Line("", words.arg(tax), figures, [](const TaxFigures& f) { return f.Payable(); }))},
          .totals = {},
          .showsKey = false};
}

/// What lies in the days and counts in neither or only one column, so that nobody has to wonder.
ReportSection OutsideSection(Business& business, const DateRange& days) {
  ReportSection section;
  section.title = QStringLiteral("What these figures leave out");
  section.columns = {{"What", "<+4.2in", CellKind::Text},
                     {"Rows", ">+1in", CellKind::Count},
                     {"Amount", ">+1.6in", CellKind::Money}};
  ReportGroup& group = section.groups.emplace_back();
  group.key = QStringLiteral("Outside");
  group.showsKey = false;
  const auto add = [&](const char* words, const char* table, const char* column, const Sql& where) {
    const Recordset found =
        business.RunSQL(Sql("SELECT Count(*) AS HowMany, Sum({}) AS HowMuch FROM {} WHERE ",
                            Sql(column), Sql(table)) +
                        where);
    group.rows.push_back(
        {.cells = {words, found.Field(u"HowMany").ToLong(), found.Field(u"HowMuch").ToMoney()}});
  };
  const Sql scheduled = Within("Schedule_Date", days);
  add("Jobs that are not done", "Diary", "Total_Price",
      scheduled + Sql(" AND Status = {}", EntryStatus::JobOpen));
  add("Jobs that are cancelled", "Diary", "Total_Price",
      scheduled + Sql(" AND Status = {}", EntryStatus::JobCancelled));
  add("Visits and quotes", "Diary", "Total_Price",
      scheduled + Sql(" AND NOT (") + IsOfKind("Status", EntryKind::Job) + Sql(")"));
  add("Done jobs on no payment: in accrual only", "Diary", "Total_Price",
      DoneWithin(days) + Sql(" AND Payment_ID IS NULL"));
  add("Tax-exempt payments: among the sales without tax", "Payments", "Amount",
      Within("Payment_Date", days) + Sql(" AND Tax_Exempt = True"));
  add("Tax-exempt purchases: among those without tax", "Purchases", "Amount",
      Within("Purchase_Date", days) + Sql(" AND Tax_Exempt = True"));
  add("Purchases without a date", "Purchases", "Amount", Sql("Purchase_Date IS NULL"));
  return section;
}

/// What is payable of each month, beside that of the month a year before. The tables are read once
/// for all months.
std::vector<ChartBar> PayableByMonth(Business& business, const DateRange& days, SalesBasis basis) {
  constexpr size_t kMostBars = 24;
  const auto months = MonthsOf(days);
  if (months.size() < 2 || months.size() > kMostBars) return {};
  const DateRange all{YearBefore(days).from, days.to};
  std::map<QDate, Money> payable;
  const auto add = [&](const Sql& statement, bool isPaid) {
    for (const Record row : business.RunSQL(statement)) {
      const Money tax = row[u"Tax"].ToMoney();
      payable[row[u"On_Day"].ToDate()] += isPaid ? -tax : tax;
    }
  };
  if (basis == SalesBasis::Cash)
    add(Sql("SELECT Payment_Date AS On_Day, SUM(GST_Included) AS Tax FROM Payments WHERE ") +
            Within("Payment_Date", all) + Sql(" GROUP BY Payment_Date"),
        false);
  else
    add(Sql("SELECT Schedule_Date AS On_Day, SUM(Total_GST) AS Tax FROM Diary WHERE ") +
            DoneWithin(all) + Sql(" GROUP BY Schedule_Date"),
        false);
  add(Sql("SELECT Purchase_Date AS On_Day, SUM(GST_Included) AS Tax FROM Purchases WHERE ") +
          Within("Purchase_Date", all) + Sql(" GROUP BY Purchase_Date"),
      true);
  const auto sum = [&](const DateRange& month) {
    Money of;
    for (auto at = payable.lower_bound(month.from); at != payable.end() && at->first <= month.to;
         ++at)
      of += at->second;
    return of;
  };
  std::vector<ChartBar> bars;
  for (const DateRange& month : months)
    bars.push_back({MonthWords(month), sum(month), sum(YearBefore(month))});
  return bars;
}

ReportData CollectTaxReport(Business& business, const ReportCriteria& criteria) {
  const bool onCash = IsOnCash(business);
  const QString tax = business.values.taxName;
  const auto own = onCash ? SalesBasis::Cash : SalesBasis::Accrual;
  const Figures figures{CollectTaxFigures(business, criteria.days, SalesBasis::Cash),
                        CollectTaxFigures(business, criteria.days, SalesBasis::Accrual),
                        CollectTaxFigures(business, YearBefore(criteria.days), own)};
  ReportSection form;
  form.columns = {{"Box", "<+.65in", CellKind::Text},
                  {"What", "<+2.6in", CellKind::Text},
                  {"By cash", ">+1.3in", CellKind::Money},
                  {"By accrual", ">+1.3in", CellKind::Money},
                  {"A year before", ">+1.3in", CellKind::Money}};
  form.groups = {SalesGroup(figures, tax), PurchasesGroup(figures, tax),
                 ResultGroup(figures, tax, onCash)};
  ReportData data{.title = tax + QStringLiteral(" Report")};
  data.scope = {SystemName(), FromTo(criteria.days),
                QStringLiteral("Accounting method: ") +
                    (onCash ? QStringLiteral("Cash") : QStringLiteral("Accrual"))};
  data.sections = {std::move(form), OutsideSection(business, criteria.days)};
  data.chart = PayableByMonth(business, criteria.days, own);
  return data;
}

}  // namespace

TaxFigures CollectTaxFigures(Business& business, const DateRange& days, SalesBasis basis) {
  TaxFigures figures;
  CollectSales(business, days, basis, figures);
  CollectPurchases(business, days, figures);
  return figures;
}

std::vector<ReportKind> TaxReportKinds() {
  return {{"gst", "Tax report", "GST Report.doc", Asks::Days, CollectTaxReport}};
}

}  // namespace quillary::reports
