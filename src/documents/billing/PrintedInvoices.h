#pragma once

#include "base/DateRange.h"
#include "data/Business.h"

#include <vector>

/// Which invoices have been made into documents, whoever made them: so that a run that ended early
/// goes on with the others.
namespace quillary::documents {

/// Their table comes with the first of them. Throws WriteFailed.
void NotePrinted(Business& business, const std::vector<Id<Invoice>>& invoices);
/// The invoices of those days without a document, in the order of their numbers.
std::vector<Id<Invoice>> InvoicesNotPrinted(Business& business, const DateRange& days);

}  // namespace quillary::documents
