#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>
#include <vector>

/// What has to stand before a document of invoices is printed.
namespace quillary::billing {

/// Makes the invoices the selection of the next print run. None is an empty run.
void SelectInvoicesToPrint(Business& business, const std::vector<Id<Invoice>>& invoiceIds);

/// Refuses an invoice without jobs.
std::optional<Refusal> CheckInvoicePrint(size_t attachedJobs);

/// The selection as it stands, each invoice once.
std::vector<Id<Invoice>> SelectedInvoices(Business& business);

/// Where the business is set up so, recomputes every balance, since an invoice may show what is
/// outstanding.
void PrepareInvoicePrint(Business& business);

}  // namespace quillary::billing
