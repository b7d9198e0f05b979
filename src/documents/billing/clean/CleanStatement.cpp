#include "documents/billing/BillingLayouts.h"
#include "documents/billing/clean/CleanParts.h"

namespace quillary::documents {
namespace clean {
namespace {

void AddSumOf(BillingPages& pages, const Amounts& total) {
  AddSumRow(pages, QStringLiteral("Total"), total.price.ToCurrencyText(),
            total.tax.ToCurrencyText(), kStrong, 0.75);
}

void AddPayments(BillingPages& pages, const StatementContent& statement) {
  const double left = pages.Design().left;
  pages.KeepTogether(1 + 0.62 + 0.24 + 3 * kRow);
  AddLabel(pages, QStringLiteral("PAYMENTS RECEIVED"), 1);
  pages.BeginTable(
      {{left, QStringLiteral("Payment date")}, MoneyTo(PriceEdge(pages), QStringLiteral("Amount"))},
      0.62, left);
  for (const PaymentRow& payment : *statement.payments) {
    AddRuledRow(pages, {{left, ReportDateText(payment.date)},
                        MoneyTo(PriceEdge(pages), payment.amount.ToCurrencyText())});
  }
  pages.EndTable();
  AddSumRow(pages, QStringLiteral("Total"), statement.paymentsTotal.ToCurrencyText(), {}, kStrong,
            0.75);
}

}  // namespace
}  // namespace clean

void LayStatementClean(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                       const StatementDays& days, const StatementContent& statement) {
  pages.BeginDocument(QStringLiteral("Statement (continued)"), statement.madeOutTo.value(0));
  clean::AddHead(pages, frame, logo,
                 {.title = QStringLiteral("STATEMENT"),
                  .facts = {{QStringLiteral("FROM"), ReportDateText(days.from)},
                            {QStringLiteral("TO"), ReportDateText(days.to)}},
                  .toLabel = QStringLiteral("STATEMENT FOR"),
                  .to = statement.madeOutTo,
                  .amountLabel = QStringLiteral("TOTAL OF INVOICES"),
                  .amount = statement.total.price});
  pages.AdvanceY(0.5);
  clean::AddLabel(pages, QStringLiteral("INVOICES ISSUED"), 0.4);
  clean::AddInvoices(pages, frame, statement.invoices,
                     statement.HasClosing() ? statement.total : Amounts());
  if (!statement.HasClosing()) return;
  if (statement.pastJobs) {
    pages.KeepTogether(1 + 0.62 + 0.75 + 0.84 + 2 * clean::kRow);
    clean::AddLabel(pages, QStringLiteral("UNPAID PAST JOBS"), 1);
    clean::AddJobs(pages, frame, *statement.pastJobs, clean::JobColumns::Past);
    clean::AddSumOf(pages, statement.pastJobs->total);
  }
  if (statement.payments) clean::AddPayments(pages, statement);
  clean::AddNotes(pages, frame, {});
}

void LayReminderClean(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                      const ReminderContent& reminder) {
  pages.BeginDocument(QStringLiteral("Reminder (continued)"), reminder.madeOutTo.value(0));
  clean::AddHead(pages, frame, logo,
                 {.title = QStringLiteral("REMINDER"),
                  .facts = {{QStringLiteral("DATE:"), ReportDateText(frame.today)}},
                  .toLabel = QStringLiteral("REMINDER FOR"),
                  .to = reminder.madeOutTo,
                  .amountLabel = QStringLiteral("TOTAL"),
                  .amount = reminder.total.price});
  pages.AdvanceY(0.5);
  pages.AddRow({{pages.Design().left, QStringLiteral("REMINDER: Invoice(s) issued but not paid")}},
               {.size = 10, .bold = true, .colour = clean::kInk}, 0.4);
  pages.AdvanceY(0.1);
  clean::AddInvoices(pages, frame, reminder.invoices, reminder.total);
  clean::AddNotes(pages, frame, {});
}

}  // namespace quillary::documents
