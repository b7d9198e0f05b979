#include "documents/billing/word/BillingWord.h"

#include "documents/pages/TableLayout.h"

#include <cmath>

namespace quillary::documents {
namespace {

struct JobLayout {
  const char* format;
  QStringList headings;  // the tax column follows
};

JobLayout LayoutOf(JobTable kind) {
  switch (kind) {
    case JobTable::WithNextJob:
      return {"<+1in|<+2in|<+1in|>+1in|>+1in", {"Date", "Service", "Next Job", "Price"}};
    case JobTable::Past:
      return {"<+1in|^+1in|<+2in|>+1in|>+1in", {"Invoice No.", "Date", "Service", "Price"}};
    case JobTable::Plain:
      break;
  }
  return {"<+1.5in|<+2.5in|>+1in|>+1in", {"Date", "Service", "Price "}};
}

QStringList CellsOf(const JobRow& job, JobTable kind) {
  QStringList cells{ReportDateText(job.date), job.service};
  if (kind == JobTable::WithNextJob) cells += ReportDateText(job.nextVisit);
  if (kind == JobTable::Past) cells.prepend(job.invoiceNumber);
  cells += job.shown.price.ToCurrencyText();
  cells += job.shown.tax.ToCurrencyText();
  return cells;
}

/// A line over the whole table that stays with the job below it.
TableRow& AddSpanning(Table& table, const QString& text) {
  const auto columns = static_cast<int>(table.Columns().size());
  return table.AddRow({text}).Span(0, columns, Align::Left).KeepWithNext();
}

/// Below all columns but the two of money, which hold the sums.
void AddTotal(Table& table, const Amounts& total) {
  const auto ahead = static_cast<int>(table.Columns().size()) - 2;
  QStringList cells(ahead, QString());
  cells.first() = QStringLiteral("Total");
  cells += total.price.ToCurrencyText();
  cells += total.tax.ToCurrencyText();
  table.AddRow(cells).Bold().Span(0, ahead, Align::Right).RuleAbove();
}

/// A word in a narrow column is written smaller where the font of the notes would break it.
void FitLabel(TableCell& cell, double columnWidth, const Composer& page) {
  PageFont font = page.Font();
  const double taken = page.Fonts().WidthOf(cell.text.trimmed(), font);
  const double room = columnWidth - kCellGap;
  if (taken <= room) return;
  font.size = std::floor(font.size * room / taken);
  cell.font = font;
}

}  // namespace

void AddWordRow(Report& report, const QString& format, const QStringList& cells, bool bold) {
  TableRow& row = report.StartTable(format).AddRow(cells);
  if (bold) row.Bold();
  report.EndTable();
}

void AddWordJobs(Report& report, const BillingFrame& frame, const JobSection& section,
                 JobTable kind) {
  const JobLayout layout = LayoutOf(kind);
  Table& table = report.StartTable(QString::fromLatin1(layout.format));
  table.AddHeader(layout.headings + QStringList{frame.taxHeading});
  for (const ClientJobs& client : section.clients) {
    AddSpanning(table, client.displayName).Bold();
    AddSpanning(table, client.address).Bold();
    if (!client.workCover.isEmpty()) AddSpanning(table, client.workCover);
    for (const JobRow& job : client.jobs) table.AddRow(CellsOf(job, kind));
  }
  AddTotal(table, section.total);
  report.EndTable();
}

void AddWordInvoices(Report& report, const BillingFrame& frame,
                     const std::vector<InvoiceRow>& invoices, const Amounts& total) {
  Table& table = report.StartTable(QStringLiteral("<+1in|<+1.75in|<+2in|>+1in|>+1in"));
  table.AddHeader({"Invoice No.", "Date", "Description", "Amount", frame.taxHeading});
  for (const InvoiceRow& invoice : invoices) {
    table.AddRow({invoice.number, ReportDateText(invoice.date), invoice.description,
                  invoice.shown.price.ToCurrencyText(), invoice.shown.tax.ToCurrencyText()});
  }
  if (total.price != Money()) AddTotal(table, total);
  report.EndTable();
}

void AddWordNotes(Report& report, const QString& format, const QStringList& cells) {
  const PageFont font = report.Page().Font();
  report.SetNoteFontPropertiesWord();
  Table& table = report.StartTable(format);
  TableRow& row = table.AddRow(cells);
  for (size_t label = 0; label + 1 < row.cells.size(); ++label)
    FitLabel(row.cells[label], table.Columns()[label].width, report.Page());
  report.EndTable();
  report.Page().SetFont(font);
}

}  // namespace quillary::documents
