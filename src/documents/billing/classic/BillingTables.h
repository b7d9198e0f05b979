#pragma once

#include "documents/billing/BillingContent.h"
#include "documents/billing/BillingPages.h"

/// The tables that the billing documents share, in the PDF form.
namespace quillary::documents {

/// Where the two columns of money stand.
struct MoneyColumns {
  double price = 14;
  double tax = 16;
};

/// Amounts less tax stand in places of their own, whatever the headings; so do their totals, which
/// belong below them.
MoneyColumns AmountColumns(TaxMode mode, const MoneyColumns& headings);

BillingPages::Row MoneyHeadings(const BillingFrame& frame, const QString& word,
                                const MoneyColumns& columns);
void AddMoney(BillingPages::Row& row, const Amounts& amounts, const MoneyColumns& columns);

/// The word "Total" at `x` and the two sums, below the rows.
void AddTotalRow(BillingPages& pages, const Amounts& total, double x, const MoneyColumns& columns);

/// Name, address and number of a client, and a rule.
void AddClientHeading(BillingPages& pages, const ClientJobs& client, double distance);

/// The section of jobs that were never paid, with its total.
void AddPastJobs(BillingPages& pages, const BillingFrame& frame, const JobSection& section,
                 const QString& heading);

/// The invoices of a statement or a reminder. The first column stands at `x`.
void AddInvoiceRows(BillingPages& pages, const BillingFrame& frame,
                    const std::vector<InvoiceRow>& invoices, double x, double distance);

/// Lines in the font that the user chose for notes, with air between them; none for no lines.
void AddNotes(BillingPages& pages, const BillingFrame& frame, const QStringList& lines);

}  // namespace quillary::documents
