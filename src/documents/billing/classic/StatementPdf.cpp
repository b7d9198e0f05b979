#include "documents/billing/BillingLayouts.h"
#include "documents/billing/Letterhead.h"
#include "documents/billing/classic/BillingTables.h"

namespace quillary::documents {
namespace {

void AddPayments(BillingPages& pages, const StatementContent& statement) {
  constexpr double kAmountX = 6;
  pages.KeepTogether(1 + 0.5 + kRuleGap + 3 * kRow);
  pages.AddRow({{1, QStringLiteral("PAYMENTS RECEIVED")}}, BillingPages::Bold(), 1);
  pages.BeginTable({{3, QStringLiteral("Payment date")},
                    BillingPages::MoneyCell(kAmountX, QStringLiteral("Amount"))},
                   0.5);
  for (const PaymentRow& payment : *statement.payments) {
    pages.AddRow({{3, ReportDateText(payment.date)},
                  BillingPages::MoneyCell(kAmountX, payment.amount.ToCurrencyText())});
  }
  pages.AddLine(kRuleGap, kTableX);
  pages.AddRow({{3, QStringLiteral("Total")},
                BillingPages::MoneyCell(kAmountX, statement.paymentsTotal.ToCurrencyText())},
               BillingPages::Bold());
  pages.EndTable();
}

void AddClosing(BillingPages& pages, const BillingFrame& frame, const StatementContent& statement) {
  pages.AddLine(kRuleGap, kTableX);
  if (statement.total.price != Money())
    AddTotalRow(pages, statement.total, 12, AmountColumns(frame.mode, {}));
  pages.EndTable();
  if (statement.pastJobs)
    AddPastJobs(pages, frame, *statement.pastJobs, QStringLiteral("UNPAID PAST JOBS "));
  if (statement.payments) AddPayments(pages, statement);
  pages.AdvanceY(0.5);
  AddNotes(pages, frame, frame.generalNotes);
}

}  // namespace

void LayStatementPdf(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                     const StatementDays& days, const StatementContent& statement) {
  pages.BeginDocument(QStringLiteral("Statement (continued)"), statement.madeOutTo.value(0));
  PrintHeaderPDF(pages, frame.header, logo, QStringLiteral("Statement"));
  pages.AddLine(1.5, 1);
  pages.AddRow({{1, QStringLiteral("STATEMENT FROM ") + ReportDateText(days.from) +
                        QStringLiteral(" TO ") + ReportDateText(days.to)}},
               BillingPages::Bold(9), 0.75);
  pages.AdvanceY(0.65);
  pages.AddLines(statement.madeOutTo, 3, BillingPages::Bold());
  pages.AddRow({{1, QStringLiteral("INVOICES ISSUED")}}, BillingPages::Bold(), 1);
  AddInvoiceRows(pages, frame, statement.invoices, 3, 0.5);
  if (statement.HasClosing()) AddClosing(pages, frame, statement);
  pages.EndTable();
}

void LayReminderPdf(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                    const ReminderContent& reminder) {
  pages.BeginDocument(QStringLiteral("Reminder (continued)"), reminder.madeOutTo.value(0));
  PrintHeaderPDF(pages, frame.header, logo, QStringLiteral("Reminder"));
  pages.AddLine(1.5, 1);
  pages.AdvanceY(0.4);
  pages.AddLines(reminder.madeOutTo, 3, BillingPages::Bold());
  pages.AddRow({{1, QStringLiteral("DATE: ") + ReportDateText(frame.today)}}, BillingPages::Bold(9),
               0.75);
  pages.AddRow({{1, QStringLiteral("REMINDER: Invoice(s) issued but not paid")}},
               BillingPages::Bold(), 0.75);
  AddInvoiceRows(pages, frame, reminder.invoices, 1, 0.5);
  pages.AddLine(kRuleGap, 1);
  if (reminder.total.price != Money())
    AddTotalRow(pages, reminder.total, 12, AmountColumns(frame.mode, {}));
  pages.EndTable();
  pages.AdvanceY(0.5);
  AddNotes(pages, frame, frame.generalNotes);
}

}  // namespace quillary::documents
