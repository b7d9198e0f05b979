#include "documents/billing/BillingLayouts.h"
#include "documents/billing/Letterhead.h"
#include "documents/billing/word/BillingWord.h"

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

/// The slip stands at the foot of a page, to be cut off there.
void MoveToSlip(Composer& page) {
  const double place = page.Setup().paper == Paper::Letter ? 11000 : 12000;  // twips
  if (page.CurrentY() >= place) page.NewPage();
  page.SetCurrentY(place);
}

void AddSlip(Report& report, const BillingFrame& frame, const InvoiceContent& invoice) {
  MoveToSlip(report.Page());
  report.SetVSPrinterFontDefault();
  report.Page().AddText(QStringLiteral("[Please cut here]"), Align::Centre);
  report.Page().AddRule(kSlipRule);
  report.Page().AdvanceY(kSlipRule);
  report.Page().SetBold(true);
  report.Page().AddText(QStringLiteral("REMITTANCE SLIP: "));
  report.Page().SetBold(false);
  AddDescriptionAndNumber(report, invoice);
  if (!invoice.terms.isEmpty())
    AddWordRow(report, QString::fromLatin1(kWhole), {invoice.terms.join(u'\n')}, true);
  QStringList account = EftLines(frame.header);
  if (!account.isEmpty()) {
    const QString word = account.takeFirst();
    AddWordRow(report, QString::fromLatin1(kSlipBlock), {word, account.join(u'\n')});
  }
  const QStringList sender = SenderLines(frame.header);
  if (!sender.isEmpty())
    AddWordRow(report, QString::fromLatin1(kSlipBlock),
               {QStringLiteral("From : "), sender.join(u'\n')});
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
