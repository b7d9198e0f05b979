#pragma once

#include "documents/billing/BillingContent.h"
#include "documents/billing/BillingPages.h"
#include "documents/reports/Report.h"

/// Each document on paper: as pages of the PDF form, and in the form of the word processor.
namespace quillary::documents {

// Measures that the tables of all documents share, in centimetres.
constexpr double kRow = BillingPages::kRowHeight;
constexpr double kRuleGap = 0.25;  // between a table's last row and the rule under it
constexpr double kTableX = BillingPages::kTableX;
/// The format of a line over the whole width of the word processor's form.
constexpr const char* kWhole = "<+7in";

// One document from the top of a new page on. `logo` is a picture that can be shown, or empty.

void LayInvoicePdf(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                   const InvoiceContent& invoice);
void LayStatementPdf(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                     const StatementDays& days, const StatementContent& statement);
void LayReminderPdf(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                    const ReminderContent& reminder);

// The same in the design "Clean".

void LayInvoiceClean(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                     const InvoiceContent& invoice);
void LayStatementClean(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                       const StatementDays& days, const StatementContent& statement);
void LayReminderClean(BillingPages& pages, const BillingFrame& frame, const QString& logo,
                      const ReminderContent& reminder);

// One document from the current Y of the report on; who calls begins its page.

void LayInvoiceWord(Report& report, const BillingFrame& frame, const InvoiceContent& invoice);
void LayStatementWord(Report& report, const BillingFrame& frame, const StatementDays& days,
                      const StatementContent& statement);
void LayReminderWord(Report& report, const BillingFrame& frame, const ReminderContent& reminder);

}  // namespace quillary::documents
