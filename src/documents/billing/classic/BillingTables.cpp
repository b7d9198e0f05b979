#include "documents/billing/classic/BillingTables.h"

#include "documents/billing/BillingLayouts.h"
#include "documents/reports/Report.h"

#include <algorithm>

namespace quillary::documents {
namespace {

constexpr double kColumnGap = 0.2;  // that texts keep from the next column
constexpr double kNumberWidth = 1.8;

}  // namespace

MoneyColumns AmountColumns(TaxMode mode, const MoneyColumns& headings) {
  return mode == TaxMode::Included ? headings : MoneyColumns{.price = 13, .tax = 16};
}

BillingPages::Row MoneyHeadings(const BillingFrame& frame, const QString& word,
                                const MoneyColumns& columns) {
  return {BillingPages::MoneyCell(columns.price, word),
          BillingPages::MoneyCell(columns.tax, frame.taxHeading)};
}

void AddMoney(BillingPages::Row& row, const Amounts& amounts, const MoneyColumns& columns) {
  row.push_back(BillingPages::MoneyCell(columns.price, amounts.price.ToCurrencyText()));
  row.push_back(BillingPages::MoneyCell(columns.tax, amounts.tax.ToCurrencyText()));
}

void AddTotalRow(BillingPages& pages, const Amounts& total, double x, const MoneyColumns& columns) {
  BillingPages::Row row{{x, QStringLiteral("Total")}};
  AddMoney(row, total, columns);
  pages.AddRow(row, BillingPages::Bold());
}

void AddClientHeading(BillingPages& pages, const ClientJobs& client, double distance) {
  constexpr double kHeadingRows = 4;  // with the first job
  pages.KeepTogether(distance + kHeadingRows * kRow + kRuleGap);
  pages.AddRow({{1, client.displayName}}, BillingPages::Bold(), distance);
  pages.AddRow({{1, client.address}}, BillingPages::Bold());
  if (!client.workCover.isEmpty()) pages.AddRow({{1, client.workCover}});
  pages.AddLine(kRuleGap, kTableX);
}

void AddPastJobs(BillingPages& pages, const BillingFrame& frame, const JobSection& section,
                 const QString& heading) {
  constexpr double kDateX = 5;
  constexpr double kServiceX = 9;
  const MoneyColumns headings;
  const MoneyColumns columns = AmountColumns(frame.mode, headings);
  pages.KeepTogether(1 + 0.5 + kRuleGap + 5 * kRow);
  pages.AddRow({{1, heading}}, BillingPages::Bold(), 1);
  BillingPages::Row top{{3, QStringLiteral("Invoice No.")},
                        {kDateX, QStringLiteral("Date")},
                        {kServiceX, QStringLiteral("Service")}};
  for (const auto& cell : MoneyHeadings(frame, QStringLiteral("Price"), headings))
    top.push_back(cell);
  pages.BeginTable(top, 0.5);
  for (const ClientJobs& client : section.clients) {
    AddClientHeading(pages, client, 0.5);
    for (const JobRow& job : client.jobs) {
      BillingPages::Row row{{3, job.invoiceNumber, kNumberWidth},
                            {kDateX, ReportDateText(job.date), kServiceX - kDateX - kColumnGap},
                            {kServiceX, job.service, columns.price - kServiceX - kColumnGap}};
      AddMoney(row, job.shown, columns);
      pages.AddRow(row);
    }
  }
  pages.AddLine(kRuleGap, kTableX);
  AddTotalRow(pages, section.total, 12, columns);
  pages.EndTable();
}

void AddInvoiceRows(BillingPages& pages, const BillingFrame& frame,
                    const std::vector<InvoiceRow>& invoices, double x, double distance) {
  const MoneyColumns headings;
  const MoneyColumns columns = AmountColumns(frame.mode, headings);
  const double dateX = x + 2;
  const double descriptionX = x + 4;
  BillingPages::Row top{{x, QStringLiteral("Invoice No.")},
                        {dateX, QStringLiteral("Date")},
                        {descriptionX, QStringLiteral("Description")}};
  for (const auto& cell : MoneyHeadings(frame, QStringLiteral("Amount"), headings))
    top.push_back(cell);
  pages.BeginTable(top, distance, std::min(x, kTableX));
  for (const InvoiceRow& invoice : invoices) {
    BillingPages::Row row{
        {x, invoice.number, kNumberWidth},
        {dateX, ReportDateText(invoice.date), kNumberWidth},
        {descriptionX, invoice.description, columns.price - descriptionX - kColumnGap}};
    AddMoney(row, invoice.shown, columns);
    pages.AddRow(row);
  }
}

void AddNotes(BillingPages& pages, const BillingFrame& frame, const QStringList& lines) {
  constexpr double kLinesApart = 1.25 * 2.54 / 72;  // of a font of one point
  const BillingStyle style = NotesStyle(frame);
  const double pitch = std::max(kRow, style.size * kLinesApart);
  bool isFirst = true;  // which stands where a row of a table would
  for (const QString& line : lines) {
    for (const QString& part : pages.Wrap(line, pages.Design().right - 1, style))
      pages.AddRow({{1, part}}, style, std::exchange(isFirst, false) ? kRow : pitch);
  }
}

}  // namespace quillary::documents
