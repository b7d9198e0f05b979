#include "documents/BillingLayouts.h"
#include "documents/BillingTables.h"
#include "documents/Letterhead.h"

namespace quillary {
namespace {

constexpr double kRow = BillingPages::kRowHeight;
constexpr double kRuleGap = 0.25;
constexpr double kTableX = 2;
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

/// From the cut to the date, so that a slip is not cut in two by the page's edge.
double SlipHeight(const BillingPages& pages, const BillingFrame& frame,
                  const InvoiceContent& invoice) {
  constexpr double kFixed = 0.75 + kRuleGap + 0.75 + 0.5 + 0.75 + 0.75 + 0.5 + 2 * kRow;
  qsizetype rows = EftLines(frame.header).size() + SenderLines(frame.header).size();
  for (const QString& line : invoice.terms) rows += pages.RowsOf(line, 1, 0, BillingPages::Bold());
  return kFixed + static_cast<double>(rows) * kRow;
}

void AddSlip(BillingPages& pages, const BillingFrame& frame, const InvoiceContent& invoice) {
  if (pages.CurrentY() > kSlipFrom) pages.NewPage();
  pages.KeepTogether(SlipHeight(pages, frame, invoice));
  pages.AddRow({{8, QStringLiteral("[Please cut here]")}}, {}, 0.75);
  pages.AddLine(kRuleGap, kTableX);
  pages.AddRow({{1, QStringLiteral("REMITTANCE SLIP:")}}, BillingPages::Bold(9), 0.75);
  pages.AddRow(DescriptionAndNumber(invoice), BillingPages::Bold(9), 0.5);
  pages.AdvanceY(0.75);
  pages.AddLines(invoice.terms, 1, BillingPages::Bold());
  pages.AddLines(EftLines(frame.header), 3, {});
  pages.AddRow({{1, QStringLiteral("From :")}}, {}, 0.75);
  pages.AddLines(SenderLines(frame.header), 3, {});
  pages.AddRow({{1, ReportDateText(frame.today)}}, {.size = 6}, 0.5);
}

}  // namespace

void LayInvoicePdf(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                   const InvoiceContent& invoice) {
  pages.BeginDocument(QStringLiteral("Invoice No: %1 (continued)").arg(invoice.number));
  PrintHeaderPDF(pages, frame.header, logo, QStringLiteral("Invoice"));
  AddHead(pages, invoice);
  AddJobs(pages, frame, invoice);
  if (invoice.pastJobs)
    AddPastJobs(pages, frame, *invoice.pastJobs, QStringLiteral("UNPAID PAST JOBS"));
  AddClosing(pages, invoice);
  AddNotes(pages, frame, invoice.notes);
  pages.AdvanceY(0.5);
  AddNotes(pages, frame, frame.generalNotes);
  AddSlip(pages, frame, invoice);
}

}  // namespace quillary
