#pragma once

#include "documents/billing/BillingContent.h"
#include "documents/reports/Report.h"

/// The tables that the billing documents share, in the form of the word processor.
namespace quillary::documents {

/// A table of one row in the font that is set, bold if so wished.
void AddWordRow(Report& report, const QString& format, const QStringList& cells, bool bold = false);

/// Rows of jobs below the headings of the format, client by client, and their total. Past jobs
/// begin with the number of their invoice; `withNextJob` adds the next visit.
enum class JobTable { Plain, WithNextJob, Past };
void AddWordJobs(Report& report, const BillingFrame& frame, const JobSection& section,
                 JobTable kind);

/// The invoices of a statement or a reminder, with a total unless that is 0.
void AddWordInvoices(Report& report, const BillingFrame& frame,
                     const std::vector<InvoiceRow>& invoices, const Amounts& total);

/// Cells in the font that the user chose for notes, all but the last one being labels; the font
/// that was set is set again.
void AddWordNotes(Report& report, const QString& format, const QStringList& cells);

}  // namespace quillary::documents
