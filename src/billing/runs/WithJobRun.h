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

/// The jobs of those clients that are done by today and neither billed by an invoice nor paid.
struct WaitingJobs {
  int jobs = 0;
  int clients = 0;   // who pay for them
  Money total = {};  // tax included
  DateRange days;    // from the oldest of them to today; today alone when there are none
};
WaitingJobs CountWaitingJobs(Business& business);
/// All jobs whose invoice is due (see IsDueForInvoice), by how their payers are billed.
struct DueJobs {
  WaitingJobs withJob;
  WaitingJobs byMonth;
};
DueJobs CountDueJobs(Business& business);
/// Makes an invoice for each of the waiting jobs, and makes these the selection for printing. A
/// second run finds nothing that the first one has billed.
InvoiceRunCount InvoiceWaitingJobs(Business& business, const RunProgress& progress = {});

}  // namespace quillary::billing
