#include "documents/billing/BillingLayouts.h"
#include "documents/billing/Letterhead.h"
#include "documents/billing/classic/BillingTables.h"

namespace quillary::documents {
namespace {

constexpr double kNumberX = 16;
constexpr double kDescriptionWidth = 14.7;
constexpr double kSlipFrom = 20;  // a slip never begins below

BillingPages::Row DescriptionAndNumber(const InvoiceContent& invoice) {
  return {{1, invoice.description, kDescriptionWidth},
          {kNumberX, QStringLiteral("Invoice No: ") + invoice.number}};
}

void AddHead(BillingPages& pages, const InvoiceContent& invoice) {
  pages.AddLine(1.5, 1);
  pages.AddRow(DescriptionAndNumber(invoice), BillingPages::Bold(9), 0.75);
  pages.AddRow({{1, QStringLiteral("DATE: ") + ReportDateText(invoice.date)}},
               BillingPages::Bold(9), 0.75);
  pages.AddRow({{1, QStringLiteral("INVOICE TO:")}}, BillingPages::Bold(), 1);
  pages.AddLines(invoice.madeOutTo, 3, BillingPages::Bold());
}

void AddJobs(BillingPages& pages, const BillingFrame& frame, const InvoiceContent& invoice) {
  constexpr double kServiceX = 5;
  constexpr double kNextJobX = 12;
  constexpr double kServiceWidth = kNextJobX - kServiceX - 0.2;
  const bool next = invoice.withNextJob;
  const MoneyColumns headings =
      next ? MoneyColumns{.price = 14, .tax = 16} : MoneyColumns{.price = 12, .tax = 14};
  const MoneyColumns columns = AmountColumns(frame.mode, headings);
  pages.KeepTogether(1 + 6 * kRow + 2 * kRuleGap);
  pages.AddRow({{1, QStringLiteral("WORK DONE ")}}, BillingPages::Bold(), 1);
  BillingPages::Row top{{3, QStringLiteral("Date")}, {kServiceX, QStringLiteral("Service")}};
  if (next) top.push_back({kNextJobX, QStringLiteral("Next Job")});
  for (const auto& cell : MoneyHeadings(frame, QStringLiteral("Price"), headings))
    top.push_back(cell);
  pages.BeginTable(top, kRow);
  for (const ClientJobs& client : invoice.jobs.clients) {
    AddClientHeading(pages, client, kRow);
    for (const JobRow& job : client.jobs) {
      BillingPages::Row row{{3, ReportDateText(job.date)}, {kServiceX, job.service, kServiceWidth}};
      if (next) row.push_back({kNextJobX, ReportDateText(job.nextVisit)});
      AddMoney(row, job.shown, columns);
      pages.AddRow(row);
    }
  }
  pages.AddLine(kRuleGap, kTableX);
  AddTotalRow(pages, invoice.jobs.total, next ? 9 : 5, columns);
  pages.EndTable();
}

void AddClosing(BillingPages& pages, const InvoiceContent& invoice) {
  constexpr double kTotalsX = 12;
  pages.KeepTogether(kRuleGap + 0.75 + 1);
  pages.AddLine(kRuleGap, kTableX);
  pages.AddRow({{kTotalsX, invoice.totalLine}}, BillingPages::Bold(9), 0.75);
  pages.AddRow({{kTotalsX, invoice.payableLine}}, BillingPages::Bold(10), 1);
}

struct SlipRow {
  BillingPages::Row row;
  BillingPages::Style style = {};
  double distance = kRow;
};

/// What stands below the rule of the cut.
std::vector<SlipRow> SlipRows(const BillingFrame& frame, const InvoiceContent& invoice) {
  constexpr double kBeforeTerms = 0.75;
  std::vector<SlipRow> rows{
      {{{1, QStringLiteral("REMITTANCE SLIP:")}}, BillingPages::Bold(9), 0.75},
      {DescriptionAndNumber(invoice), BillingPages::Bold(9), 0.5}};
  const size_t above = rows.size();
  for (const QString& line : invoice.terms) rows.push_back({{{1, line}}, BillingPages::Bold()});
  for (const QString& line : EftLines(frame.header)) rows.push_back({{{3, line}}});
  const QStringList sender = SenderLines(frame.header);
  if (!sender.isEmpty()) rows.push_back({{{1, QStringLiteral("From :")}}, {}, 0.75});
  for (const QString& line : sender) rows.push_back({{{3, line}}});
  rows.push_back({{{1, ReportDateText(frame.today)}}, {.size = 6}, 0.5});
  rows[above].distance += kBeforeTerms;
  return rows;
}

void AddSlip(BillingPages& pages, const BillingFrame& frame, const InvoiceContent& invoice) {
  constexpr double kCut = 0.75;
  if (pages.CurrentY() > kSlipFrom) pages.NewPage();
  const std::vector<SlipRow> rows = SlipRows(frame, invoice);
  // In one piece: who cuts it off must not find half of it.
  double height = kCut + kRuleGap;
  for (const SlipRow& row : rows) height += pages.HeightOf(row.row, row.style, row.distance);
  pages.KeepTogether(height);
  pages.AddRow({{8, QStringLiteral("[Please cut here]")}}, {}, kCut);
  pages.AddLine(kRuleGap, kTableX);
  for (const SlipRow& row : rows) pages.AddRow(row.row, row.style, row.distance);
}

}  // namespace

void LayInvoicePdf(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                   const InvoiceContent& invoice) {
  pages.BeginDocument(QStringLiteral("Invoice No: %1 (continued)").arg(invoice.number),
                      invoice.madeOutTo.value(0));
  PrintHeaderPDF(pages, frame.header, logo, QStringLiteral("Invoice"));
  AddHead(pages, invoice);
  if (!invoice.jobs.clients.empty()) AddJobs(pages, frame, invoice);
  if (invoice.pastJobs)
    AddPastJobs(pages, frame, *invoice.pastJobs, QStringLiteral("UNPAID PAST JOBS"));
  AddClosing(pages, invoice);
  AddNotes(pages, frame, invoice.notes);
  pages.AdvanceY(0.5);
  AddNotes(pages, frame, frame.generalNotes);
  AddSlip(pages, frame, invoice);
}

}  // namespace quillary::documents
