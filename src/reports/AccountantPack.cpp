#include "reports/AccountantPack.h"

#include "domain/ClientStatus.h"
#include "reports/Headings.h"
#include "reports/ListReport.h"
#include "reports/ProfitAndLoss.h"
#include "reports/TaxReport.h"

#include <stdexcept>

namespace quillary::reports {
namespace {

ReportData Part(Business& business, const char* name, const ReportCriteria& criteria) {
  const ReportKind* kind = FindReportKind(QString::fromLatin1(name));
  if (kind == nullptr) throw std::logic_error(std::string("There is no report named ") + name);
  return CollectReport(business, *kind, criteria);
}

Money TotalIn(const ReportData& part, size_t column) {
  return part.sections.front().totals.at(column).ToMoney();
}

/// Of the cells of one column, row by row: not of the totals, which are what is tried.
Money RowsOf(const ReportSection& section, size_t column) {
  Money sum;
  for (const ReportGroup& group : section.groups)
    for (const ReportRow& row : group.rows) sum += row.cells.at(column).ToMoney();
  return sum;
}

// The places of amounts in the columns of the parts.
constexpr size_t kPaymentAmount = 4;
constexpr size_t kPaymentTax = 5;
constexpr size_t kPurchaseAmount = 5;
constexpr size_t kPurchaseTax = 6;
constexpr size_t kLedgerAmount = 3;
constexpr size_t kLineAmount = 3;
constexpr size_t kOwing = 3;

struct Parts {
  ReportData profitAndLoss;
  ReportData tax;
  ReportData assets;
  ReportData purchases;
  ReportData payments;
  ReportData debtors;
  ReportData ledger;
};

Parts CollectParts(Business& business, const DateRange& days) {
  const ReportCriteria criteria{.days = days};
  return {Part(business, "profit-loss", criteria),   Part(business, "gst", criteria),
          Part(business, "asset-register", {}),      Part(business, "purchases", criteria),
          Part(business, "payments", criteria),      Part(business, "debtors-creditors", {}),
          Part(business, "ledger-entries", criteria)};
}

/// The balances below or above 0 of the clients that the list of debtors holds.
Money BalancesWhere(Business& business, const char* sign) {
  Money sum;
  for (const Record row : business.RunSQL(
           Sql("SELECT Account_Balance, Status FROM Clients WHERE Account_Balance IS NOT NULL "
               "AND Status IS NOT NULL AND ") +
           Sql(sign))) {
    if (!StoredClientStatus(row[u"Status"].ToText()).IsIn(ClientGroup::NotInDebtors))
      sum -= row[u"Account_Balance"].ToMoney();
  }
  return sum;
}

Money LedgerOf(Business& business, const DateRange& days, const char* source) {
  return business
      .FirstField(Sql("SELECT Sum(GL_Amount) FROM General_Ledger_Entries WHERE {} IS NOT NULL AND ",
                      Sql(source)) +
                  Within("Entry_Date", days))
      .ToMoney();
}

std::vector<Tie> TiesOf(Business& business, const DateRange& days, const Parts& parts) {
  const ProfitAndLoss figures = CollectProfitAndLoss(business, days);
  const Results results = ResultsOf(figures, documents::TaxMode::Included, IsOnCash(business));
  const TaxFigures cash = CollectTaxFigures(business, days, SalesBasis::Cash);
  const ReportData lines = Part(business, "revenue-of-account", {.days = days});
  Money expenseOfJobs;
  for (const AccountSum& sum : figures.expense)
    if (!sum.isOfLedger) expenseOfJobs += sum.amount;
  return {
      {QStringLiteral("Cash received, in profit and loss and as payments"),
       RowsOf(parts.payments.sections.front(), kPaymentAmount), figures.cashReceived},
      {QStringLiteral("Total of the payments, and sales by cash of the tax report"),
       TotalIn(parts.payments, kPaymentAmount), cash.sales},
      {QStringLiteral("Tax of the payments, and tax on sales by cash"),
       TotalIn(parts.payments, kPaymentTax), cash.taxOnSales},
      {QStringLiteral("Revenue, and the jobs that it is made of"),
       results.jobsRevenue + expenseOfJobs, RowsOf(lines.sections.front(), kLineAmount)},
      {QStringLiteral("Total of the purchases, and those of the tax report"),
       TotalIn(parts.purchases, kPurchaseAmount),
       cash.capital + cash.untaxedCapital + cash.purchases + cash.untaxedPurchases},
      {QStringLiteral("Tax of the purchases, and tax on purchases"),
       TotalIn(parts.purchases, kPurchaseTax), cash.taxOnPurchases},
      {QStringLiteral("Expenses, and the ledger entries of purchases"),
       results.expense - expenseOfJobs, LedgerOf(business, days, "Purchase_ID")},
      {QStringLiteral("Total of the purchases, and what the ledger holds of them"),
       TotalIn(parts.purchases, kPurchaseAmount), LedgerOf(business, days, "Purchase_ID")},
      {QStringLiteral("Ledger entries, of payments and purchases together"),
       RowsOf(parts.ledger.sections.front(), kLedgerAmount),
       LedgerOf(business, days, "Purchase_ID") + LedgerOf(business, days, "Payment_ID")},
      {QStringLiteral("Debtors, and the balances below 0"),
       RowsOf(parts.debtors.sections.front(), kOwing),
       BalancesWhere(business, "Account_Balance < 0")},
      {QStringLiteral("Creditors, and the balances above 0"),
       RowsOf(parts.debtors.sections.back(), kOwing),
       BalancesWhere(business, "Account_Balance > 0")},
  };
}

ReportSection TieSection(const std::vector<Tie>& ties) {
  ReportSection section;
  section.title = QStringLiteral("How the figures tie together");
  section.columns = {{"What", "<+3.6in", CellKind::Text},
                     {"In the report", ">+1.15in", CellKind::Money},
                     {"Counted apart", ">+1.15in", CellKind::Money},
                     {{}, "<+1.2in", CellKind::Text}};
  ReportGroup& group = section.groups.emplace_back();
  group.showsKey = false;
  for (const Tie& tie : ties)
    group.rows.push_back(
        {.cells = {tie.words, tie.reported, tie.counted,
                   tie.Holds() ? QStringLiteral("ties")
                               : QStringLiteral("DOES NOT TIE: %1")
                                     .arg((tie.reported - tie.counted).ToCurrencyText())},
         .strong = !tie.Holds()});
  return section;
}

ReportData CollectPack(Business& business, const ReportCriteria& criteria) {
  Parts parts = CollectParts(business, criteria.days);
  const std::vector<Tie> ties = TiesOf(business, criteria.days, parts);
  ReportData data{.title = QStringLiteral("Accountant's Pack")};
  data.scope = {SystemName(), FromTo(criteria.days)};
  for (const Tie& tie : ties) {
    if (!tie.Holds())
      data.troubles +=
          QStringLiteral("%1 do not tie: %2 against %3.")
              .arg(tie.words, tie.reported.ToCurrencyText(), tie.counted.ToCurrencyText());
  }
  if (!data.troubles.isEmpty())
    data.scope +=
        QStringLiteral("%1 of %2 figures DO NOT TIE").arg(data.troubles.size()).arg(ties.size());
  data.sections = {TieSection(ties)};
  for (ReportData* part : {&parts.profitAndLoss, &parts.tax, &parts.assets, &parts.purchases,
                           &parts.payments, &parts.debtors, &parts.ledger})
    data.parts.push_back(std::move(*part));
  return data;
}

}  // namespace

std::vector<ReportKind> AccountantPackKinds() {
  return {{"accountant-pack", "Accountant's pack", "Accountant Pack.doc", Asks::Days, CollectPack}};
}

}  // namespace quillary::reports
