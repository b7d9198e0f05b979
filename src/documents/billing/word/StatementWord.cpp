#include "documents/billing/BillingLayouts.h"
#include "documents/billing/Letterhead.h"
#include "documents/billing/word/BillingWord.h"

namespace quillary::documents {
namespace {

const char* const kIndented = "<+.25in|<+6.75in";

void AddTitle(Report& report, const QString& title) {
  AddWordRow(report, QString::fromLatin1(kWhole), {title}, true);
}

void AddMadeOutTo(Report& report, const QStringList& lines) {
  if (lines.isEmpty()) return;
  AddWordRow(report, QStringLiteral("<+1in|<+6in"), {{}, lines.join(u'\n')}, true);
}

void AddPayments(Report& report, const StatementContent& statement) {
  AddTitle(report, QStringLiteral("PAYMENTS RECEIVED"));
  Table& table = report.StartTable(QStringLiteral("<+1.5in|>+1.5in"));
  table.AddHeader({"Payment date", "Amount"});
  for (const PaymentRow& payment : *statement.payments)
    table.AddRow({ReportDateText(payment.date), payment.amount.ToCurrencyText()});
  table.AddRow({"Total", statement.paymentsTotal.ToCurrencyText()}).Bold().RuleAbove();
  report.EndTable();
}

void AddClosing(Report& report, const BillingFrame& frame, const StatementContent& statement) {
  if (statement.pastJobs) {
    AddTitle(report, QStringLiteral("UNPAID PAST JOBS "));
    AddWordJobs(report, frame, *statement.pastJobs, JobTable::Past);
  }
  if (statement.payments) AddPayments(report, statement);
  if (!frame.generalNotes.isEmpty())
    AddWordNotes(report, QStringLiteral("<+.75in|<+6.25in"),
                 {QStringLiteral("NOTES: "), frame.generalNotes.join(u'\n')});
}

}  // namespace

void LayStatementWord(Report& report, const BillingFrame& frame, const StatementDays& days,
                      const StatementContent& statement) {
  report.SetVSPrinterFontDefault();
  PrintHeaderWord(report, frame.header, QStringLiteral("Statement"));
  AddTitle(report, QStringLiteral("STATEMENT FROM ") + ReportDateText(days.from) +
                       QStringLiteral(" TO ") + ReportDateText(days.to));
  AddMadeOutTo(report, statement.madeOutTo);
  AddTitle(report, QStringLiteral("INVOICES ISSUED"));
  AddWordInvoices(report, frame, statement.invoices, statement.total);
  if (statement.HasClosing()) AddClosing(report, frame, statement);
}

void LayReminderWord(Report& report, const BillingFrame& frame, const ReminderContent& reminder) {
  report.SetVSPrinterFontDefault();
  PrintHeaderWord(report, frame.header, QStringLiteral("Reminder"));
  AddMadeOutTo(report, reminder.madeOutTo);
  AddWordRow(report, QString::fromLatin1(kIndented),
             {{}, QStringLiteral("Date: ") + ReportDateText(frame.today)}, true);
  AddTitle(report, QStringLiteral("REMINDER: Invoice(s) issued but not paid"));
  AddWordInvoices(report, frame, reminder.invoices, reminder.total);
  if (!frame.generalNotes.isEmpty())
    AddWordNotes(report, QStringLiteral("<+.25in|+.75in|<+6in"),
                 {{}, QStringLiteral("NOTES:"), frame.generalNotes.join(u'\n')});
}

}  // namespace quillary::documents
