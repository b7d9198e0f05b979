#include "documents/billing/BillingLayouts.h"
#include "documents/billing/Letterhead.h"
#include "documents/billing/clean/CleanParts.h"

#include <algorithm>

namespace quillary::documents {
namespace clean {
namespace {

constexpr double kSlipLine = 0.42;

void AddWork(BillingPages& pages, const BillingFrame& frame, const InvoiceContent& invoice) {
  pages.AdvanceY(0.5);
  if (!invoice.jobs.clients.empty()) {
    AddLabel(pages, QStringLiteral("WORK DONE"), 0.4);
    AddJobs(pages, frame, invoice.jobs,
            invoice.withNextJob ? JobColumns::WithNextJob : JobColumns::Plain);
  }
  if (!invoice.pastJobs) return;
  const auto addTotal = [&pages](const Amounts& total) {
    AddSumRow(pages, QStringLiteral("Total"), total.price.ToCurrencyText(),
              total.tax.ToCurrencyText(), kStrong, 0.75);
  };
  if (!invoice.jobs.clients.empty()) addTotal(invoice.jobs.total);
  pages.KeepTogether(1 + 0.62 + 0.75 + 0.84 + 2 * kRow);
  AddLabel(pages, QStringLiteral("UNPAID PAST JOBS"), 1);
  AddJobs(pages, frame, *invoice.pastJobs, JobColumns::Past);
  addTotal(invoice.pastJobs->total);
}

void AddTotals(BillingPages& pages, const InvoiceContent& invoice) {
  constexpr double kSums = 0.8 + 0.58 + 0.25 + 0.62;
  pages.KeepTogether(kSums);
  const QString tax = invoice.pastJobs ? QString() : invoice.jobs.total.tax.ToCurrencyText();
  AddSumRow(pages, invoice.totalLabel, invoice.invoiceTotal.ToCurrencyText(), tax, kBody, 0.8);
  const Money before = invoice.amountPayable - invoice.invoiceTotal;
  if (before != Money()) {
    AddSumRow(pages,
              before < Money() ? QStringLiteral("In credit before this invoice")
                               : QStringLiteral("Outstanding before this invoice"),
              before.ToCurrencyText(), {}, kQuiet, 0.58);
  }
  pages.AddLine(0.25, pages.Design().left);
  AddSumRow(pages, QStringLiteral("TOTAL AMOUNT PAYABLE"), invoice.amountPayable.ToCurrencyText(),
            {}, {.size = 11, .bold = true, .colour = kInk}, 0.62);
}

struct SlipColumn {
  double x = 0;
  double width = 0;
  std::vector<std::pair<QString, BillingStyle>> lines = {};

  void Add(const BillingPages& pages, const QString& text, const BillingStyle& style) {
    for (const QString& line : pages.Wrap(text, width, style)) lines.emplace_back(line, style);
  }
  void AddAll(const BillingPages& pages, const QStringList& texts, const BillingStyle& style) {
    for (const QString& text : texts) Add(pages, text, style);
  }
};

std::vector<SlipColumn> SlipColumns(const BillingPages& pages, const BillingFrame& frame,
                                    const InvoiceContent& invoice) {
  const double left = pages.Design().left;
  const double width = pages.Design().right - left;
  SlipColumn pay{.x = left, .width = width * 0.44 - 0.4};
  pay.AddAll(pages, invoice.terms, kStrong);
  pay.AddAll(pages, EftLines(frame.header), kBody);
  SlipColumn from{.x = left + width * 0.44, .width = width * 0.28 - 0.4};
  if (!invoice.madeOutTo.isEmpty()) from.Add(pages, QStringLiteral("FROM"), kLabel);
  from.AddAll(pages, invoice.madeOutTo, kBody);
  SlipColumn to{.x = left + width * 0.72, .width = width * 0.28};
  const QStringList sender = SenderLines(frame.header);
  if (!sender.isEmpty()) to.Add(pages, QStringLiteral("TO"), kLabel);
  to.AddAll(pages, sender, kBody);
  return {pay, from, to};
}

/// At the foot of the last page, to be cut off there.
void AddSlip(BillingPages& pages, const BillingFrame& frame, const InvoiceContent& invoice) {
  constexpr double kAbove = 0.9;       // of the cut
  constexpr double kHeadHeight = 1.6;  // from the cut to the columns
  const std::vector<SlipColumn> columns = SlipColumns(pages, frame, invoice);
  size_t lines = 0;
  for (const SlipColumn& column : columns) lines = std::max(lines, column.lines.size());
  const double height = kHeadHeight + static_cast<double>(lines + 1) * kSlipLine;
  double top = pages.Bottom() - height;
  if (pages.CurrentY() + kAbove > top) pages.NewPage();
  // Terms that no page holds beside the rest begin below what stands there.
  top = std::max(top, pages.CurrentY() + kAbove);
  const double left = pages.Design().left;
  const double right = pages.Design().right;
  pages.MoveTo(top);
  pages.RuleOut(left, right, 0.02, kMuted, true);
  pages.MoveTo(top + 0.35);
  const QString cut = QStringLiteral("[Please cut here]");
  const BillingStyle small{.size = 7, .colour = kMuted};
  pages.TextOut(cut, (left + right - pages.WidthOf(cut, small)) / 2, small);
  pages.MoveTo(top + 1);
  pages.TextOut(QStringLiteral("REMITTANCE SLIP"), left, kStrong);
  const QString number = QStringLiteral("Invoice No: ") + invoice.number;
  pages.TextOutTo(number, right, kStrong);
  const double room = columns[1].x - left + 2;
  if (!invoice.description.isEmpty()) {
    pages.TextOutTo(pages.Wrap(invoice.description, room, kBody).first() + QStringLiteral(" · "),
                    right - pages.WidthOf(number, kStrong), kBody);
  }
  for (const SlipColumn& column : columns) {
    pages.MoveTo(top + kHeadHeight);
    for (const auto& [text, style] : column.lines) {
      if (!pages.HasRoom(kSlipLine)) pages.NewPage();
      pages.TextOut(text, column.x, style);
      pages.MoveTo(pages.CurrentY() + kSlipLine);
    }
  }
  pages.MoveTo(pages.Bottom());
  pages.TextOut(ReportDateText(frame.today), left, {.size = 6, .colour = kMuted});
}

}  // namespace
}  // namespace clean

void LayInvoiceClean(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                     const InvoiceContent& invoice) {
  pages.BeginDocument(QStringLiteral("Invoice No: %1 (continued)").arg(invoice.number),
                      invoice.madeOutTo.value(0));
  const QString title =
      invoice.description.isEmpty() ? QStringLiteral("Invoice") : invoice.description;
  clean::AddHead(pages, frame, logo,
                 {.title = title,
                  .facts = {{QStringLiteral("Invoice No:"), invoice.number},
                            {QStringLiteral("DATE:"), ReportDateText(invoice.date)}},
                  .toLabel = QStringLiteral("INVOICE TO"),
                  .to = invoice.madeOutTo,
                  .amountLabel = QStringLiteral("TOTAL AMOUNT PAYABLE"),
                  .amount = invoice.amountPayable});
  clean::AddWork(pages, frame, invoice);
  clean::AddTotals(pages, invoice);
  clean::AddNotes(pages, frame, invoice.notes);
  clean::AddSlip(pages, frame, invoice);
}

}  // namespace quillary::documents
