#pragma once

#include "billing/runs/InvoiceRun.h"

#include <QDate>

/// The run that bills each job by an invoice of its own.
namespace quillary::billing {

/// Makes an invoice for each entry of those days, done or not, of the clients who are billed with
/// each job, unless an invoice bills it already. The status stays. All invoices of these entries,
/// those from before too, become the selection for printing.
InvoiceRunCount GenerateWithJobInvoices(Business& business, const DateRange& days,
                                        const RunProgress& progress = {});

}  // namespace quillary::billing
