#include "documents/billing/BillingLayouts.h"
#include "documents/billing/Letterhead.h"
#include "documents/billing/word/BillingWord.h"
#include "documents/pages/TableLayout.h"

#include <algorithm>

namespace quillary::documents {
namespace {

const char* const kHalves = "<+3.5in|>+3.5in";
// The second width without its sign: the left is then the side by default.
const char* const kSlipBlock = "<+.75in|6.25in";
constexpr double kSlipRule = 78;  // twips above and below the rule

void AddDescriptionAndNumber(Report& report, const InvoiceContent& invoice) {
  AddWordRow(report, QString::fromLatin1(kHalves),
             {invoice.description, QStringLiteral("Invoice No: ") + invoice.number}, true);
}

void AddHead(Report& report, const InvoiceContent& invoice) {
  AddDescriptionAndNumber(report, invoice);
  AddWordRow(
      report, QString::fromLatin1(kHalves),
      {QStringLiteral("INVOICE TO: "), QStringLiteral("DATE: ") + ReportDateText(invoice.date)},
      true);
  if (!invoice.madeOutTo.isEmpty())
    AddWordRow(report, QStringLiteral("<+1in|<+6in"), {{}, invoice.madeOutTo.join(u'\n')}, true);
}

void AddJobs(Report& report, const BillingFrame& frame, const InvoiceContent& invoice) {
  if (!invoice.jobs.clients.empty()) {
    AddWordRow(report, QString::fromLatin1(kWhole), {QStringLiteral("WORK DONE: ")}, true);
    AddWordJobs(report, frame, invoice.jobs,
                invoice.withNextJob ? JobTable::WithNextJob : JobTable::Plain);
  }
  if (!invoice.pastJobs) return;
  AddWordRow(report, QString::fromLatin1(kWhole), {QStringLiteral("UNPAID PAST JOBS")}, true);
  AddWordJobs(report, frame, *invoice.pastJobs, JobTable::Past);
}

void AddClosing(Report& report, const BillingFrame& frame, const InvoiceContent& invoice) {
  Table& table = report.StartTable(QStringLiteral(">+7in"));
  table.AddRow({invoice.totalLine}).Bold().KeepWithNext();
  table.AddRow({invoice.payableLine}).Bold();
  report.EndTable();
  if (!invoice.notes.isEmpty())
    AddWordNotes(report, QStringLiteral("<+.75in|<+6.25in"),
                 {QStringLiteral("NOTES: "), invoice.notes.join(u'\n')});
  if (!frame.generalNotes.isEmpty())
    AddWordNotes(report, QString::fromLatin1(kWhole), {frame.generalNotes.join(u'\n')});
}

/// The rows of the slip below its heading, of which the last is not.
struct SlipRow {
  QString format;
  QStringList cells;
  bool bold = false;
};

std::vector<SlipRow> SlipRows(const BillingFrame& frame, const InvoiceContent& invoice) {
  std::vector<SlipRow> rows{{QString::fromLatin1(kHalves),
                             {invoice.description, QStringLiteral("Invoice No: ") + invoice.number},
                             true}};
  if (!invoice.terms.isEmpty())
    rows.push_back({QString::fromLatin1(kWhole), {invoice.terms.join(u'\n')}, true});
  QStringList account = EftLines(frame.header);
  if (!account.isEmpty()) {
    const QString word = account.takeFirst();
    rows.push_back({QString::fromLatin1(kSlipBlock), {word, account.join(u'\n')}});
  }
  const QStringList sender = SenderLines(frame.header);
  if (!sender.isEmpty())
    rows.push_back(
        {QString::fromLatin1(kSlipBlock), {QStringLiteral("From : "), sender.join(u'\n')}});
  return rows;
}

/// What the rows and the lines around them take, in the font that is set.
double HeightOfSlip(const Composer& page, const std::vector<SlipRow>& rows) {
  constexpr double kBelowTable = 150;
  constexpr double kLinesAround = 3;  // the cut, the heading and the date
  double height = kLinesAround * PageFonts::LineHeight(page.Font()) + 2 * kSlipRule;
  for (const SlipRow& each : rows) {
    Table table(each.format);
    TableRow& row = table.AddRow(each.cells);
    row.bold = each.bold;
    const auto widths = FitColumns(table, page.RightEdge() - page.LeftEdge() + kCellGap);
    height += LayRow(table, row, widths, page.Font(), page.Fonts()).Height() + kBelowTable;
  }
  return height;
}

/// The slip stands at the foot of a page, to be cut off there; one that is higher than the foot
/// begins so far above that it stays in one piece.
void MoveToSlip(Composer& page, double height) {
  const double foot = page.Setup().paper == Paper::Letter ? 11000 : 12000;  // twips
  const double place =
      std::max(page.Setup().margins.top, std::min(foot, page.BottomEdge() - height));
  if (page.CurrentY() >= place) page.NewPage();
  page.SetCurrentY(std::max(place, page.CurrentY()));
}

void AddSlip(Report& report, const BillingFrame& frame, const InvoiceContent& invoice) {
  report.SetVSPrinterFontDefault();
  const std::vector<SlipRow> rows = SlipRows(frame, invoice);
  MoveToSlip(report.Page(), HeightOfSlip(report.Page(), rows));
  report.Page().AddText(QStringLiteral("[Please cut here]"), Align::Centre);
  report.Page().AddRule(kSlipRule);
  report.Page().AdvanceY(kSlipRule);
  report.Page().SetBold(true);
  report.Page().AddText(QStringLiteral("REMITTANCE SLIP: "));
  report.Page().SetBold(false);
  for (const SlipRow& each : rows) {
    TableRow& row = report.StartTable(each.format).AddRow(each.cells).KeepWithNext();
    row.bold = each.bold;
    report.EndTable();
  }
  report.Page().SetFontSize(6);
  report.Page().AddText(ReportDateText(frame.today));
  report.SetVSPrinterFontDefault();
}

}  // namespace

void LayInvoiceWord(Report& report, const BillingFrame& frame, const InvoiceContent& invoice) {
  report.SetVSPrinterFontDefault();
  PrintHeaderWord(report, frame.header, QStringLiteral("Invoice"));
  AddHead(report, invoice);
  AddJobs(report, frame, invoice);
  AddClosing(report, frame, invoice);
  AddSlip(report, frame, invoice);
}

}  // namespace quillary::documents
