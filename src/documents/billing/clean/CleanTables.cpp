#include "documents/billing/clean/CleanParts.h"
#include "documents/reports/Report.h"

#include <algorithm>

namespace quillary::documents::clean {
namespace {

constexpr double kMoneyWidth = 2.2;
constexpr double kMoneyColumn = 2.4;
constexpr double kDateColumn = 2.4;
constexpr double kNumberColumn = 2.2;
constexpr double kGap = 0.2;  // that texts keep from the next column
constexpr double kRuleBelow = 0.22;

/// Where the columns of a table of jobs begin.
struct JobPlaces {
  double number = 0;  // of the invoice; past jobs only
  double date = 0;
  double service = 0;
  double next = 0;  // where the service has to end, without the column
};

JobPlaces PlacesOf(const BillingPages& pages, JobColumns columns) {
  JobPlaces places;
  places.number = pages.Design().left;
  places.date = places.number + (columns == JobColumns::Past ? kNumberColumn : 0);
  places.service = places.date + kDateColumn;
  places.next = PriceEdge(pages) - kMoneyColumn;
  if (columns == JobColumns::WithNextJob) places.next -= kDateColumn;
  return places;
}

void AddClientRow(BillingPages& pages, const ClientJobs& client) {
  const double left = pages.Design().left;
  const double room = pages.Design().right - left;
  // With the first job; a name alone at the foot of a page would head nothing.
  pages.KeepTogether(0.75 + 0.42 + 2 * kRow);
  const double nameWidth = pages.WidthOf(client.displayName, kStrong);
  const double after = nameWidth + kGap;
  if (after + pages.WidthOf(client.address, kQuiet) <= room) {
    pages.AddRow({{left, client.displayName, 0, false, kStrong},
                  {left + after, client.address, 0, false, kQuiet}},
                 kBody, 0.68);
  } else {
    pages.AddRow({{left, client.displayName}}, kStrong, 0.68);
    pages.AddRow({{left, client.address}}, kQuiet, 0.42);
  }
  if (!client.workCover.isEmpty()) pages.AddRow({{left, client.workCover}}, kQuiet, 0.42);
}

}  // namespace

double PriceEdge(const BillingPages& pages) {
  return pages.Design().right - kMoneyColumn;
}

BillingPages::Cell MoneyTo(double right, const QString& text) {
  return {right - kMoneyWidth, text, kMoneyWidth, true, {}};
}

void AddMoney(BillingPages& pages, BillingPages::Row& row, const Amounts& amounts) {
  row.push_back(MoneyTo(PriceEdge(pages), amounts.price.ToCurrencyText()));
  row.push_back(MoneyTo(pages.Design().right, amounts.tax.ToCurrencyText()));
}

void AddMoneyHeadings(BillingPages& pages, BillingPages::Row& row, const BillingFrame& frame,
                      const QString& word) {
  row.push_back(MoneyTo(PriceEdge(pages), word));
  row.push_back(MoneyTo(pages.Design().right, frame.taxHeading));
}

void AddLabel(BillingPages& pages, const QString& words, double distance) {
  pages.AddRow({{pages.Design().left, words}}, {.size = 8, .bold = true, .colour = kMuted},
               distance);
}

void AddRuledRow(BillingPages& pages, const BillingPages::Row& row) {
  constexpr double kRuleWidth = 0.015;
  pages.AddRow(row, kBody, kRow);
  const double baseline = pages.CurrentY();
  pages.MoveTo(baseline + kRuleBelow);
  pages.RuleOut(pages.Design().left, pages.Design().right, kRuleWidth, kFaint);
  pages.MoveTo(baseline);
}

void AddSumRow(BillingPages& pages, const QString& label, const QString& price, const QString& tax,
               const BillingStyle& style, double distance) {
  const double left = pages.Design().left;
  const double labelWidth = PriceEdge(pages) - kMoneyColumn - left;
  pages.AddRow({{left, label, labelWidth, true, {}},
                MoneyTo(PriceEdge(pages), price),
                MoneyTo(pages.Design().right, tax)},
               style, distance);
}

void AddJobs(BillingPages& pages, const BillingFrame& frame, const JobSection& section,
             JobColumns columns) {
  const JobPlaces at = PlacesOf(pages, columns);
  const bool isPast = columns == JobColumns::Past;
  const bool hasNext = columns == JobColumns::WithNextJob;
  BillingPages::Row headings;
  if (isPast) headings.push_back({at.number, QStringLiteral("Invoice No.")});
  headings.push_back({at.date, QStringLiteral("Date")});
  headings.push_back({at.service, QStringLiteral("Service")});
  if (hasNext) headings.push_back({at.next, QStringLiteral("Next Job")});
  AddMoneyHeadings(pages, headings, frame, QStringLiteral("Price"));
  pages.BeginTable(headings, 0.62, pages.Design().left);
  for (const ClientJobs& client : section.clients) {
    AddClientRow(pages, client);
    for (const JobRow& job : client.jobs) {
      BillingPages::Row row;
      if (isPast) row.push_back({at.number, job.invoiceNumber, kNumberColumn - kGap});
      row.push_back({at.date, ReportDateText(job.date), kDateColumn});
      row.push_back({at.service, job.service, at.next - at.service - kGap});
      if (hasNext) row.push_back({at.next, ReportDateText(job.nextVisit), kDateColumn});
      AddMoney(pages, row, job.shown);
      AddRuledRow(pages, row);
    }
  }
  pages.EndTable();
}

void AddInvoices(BillingPages& pages, const BillingFrame& frame,
                 const std::vector<InvoiceRow>& invoices, const Amounts& total) {
  const double left = pages.Design().left;
  const double dateX = left + kNumberColumn;
  const double wordsX = dateX + kDateColumn;
  BillingPages::Row headings{{left, QStringLiteral("Invoice No.")},
                             {dateX, QStringLiteral("Date")},
                             {wordsX, QStringLiteral("Description")}};
  AddMoneyHeadings(pages, headings, frame, QStringLiteral("Amount"));
  pages.BeginTable(headings, 0.62, left);
  for (const InvoiceRow& invoice : invoices) {
    BillingPages::Row row{
        {left, invoice.number, kNumberColumn - kGap},
        {dateX, ReportDateText(invoice.date), kDateColumn},
        {wordsX, invoice.description, PriceEdge(pages) - kMoneyColumn - wordsX - kGap}};
    AddMoney(pages, row, invoice.shown);
    AddRuledRow(pages, row);
  }
  pages.EndTable();
  if (total.price != Money()) {
    AddSumRow(pages, QStringLiteral("Total"), total.price.ToCurrencyText(),
              total.tax.ToCurrencyText(), {.size = 10, .bold = true, .colour = kInk}, 0.8);
  }
}

void AddNotes(BillingPages& pages, const BillingFrame& frame, const QStringList& own) {
  if (own.isEmpty() && frame.generalNotes.isEmpty()) return;
  const BillingStyle style = NotesStyle(frame);
  pages.KeepTogether(1.0 + 2 * pages.RowHeight(style));
  AddLabel(pages, QStringLiteral("NOTES"), 1.0);
  pages.AdvanceY(0.1);
  pages.AddLines(own, pages.Design().left, style);
  if (!own.isEmpty() && !frame.generalNotes.isEmpty()) pages.AdvanceY(0.2);
  pages.AddLines(frame.generalNotes, pages.Design().left, style);
}

}  // namespace quillary::documents::clean
