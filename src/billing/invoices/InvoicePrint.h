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

/// Selects the invoices for printing and, where the business is set up so, recomputes every balance
/// first, since the invoice may show what is outstanding.
void PrepareInvoicePrint(Business& business, const std::vector<Id<Invoice>>& invoiceIds);

}  // namespace quillary::billing
