#pragma once

#include "data/Business.h"

namespace quillary::billing {

/// Moves the counter of the business on by one and returns the new number as text. Every call
/// spends a number, whether or not an invoice is ever saved with it; numbers are never given back.
QString GetNextInvoiceNumber(Business& business);

/// The number as the invoice screen shows it: the leading digits of what is stored, "12" for "12A"
/// and "0" for a text that does not begin with a digit. Old numbers may hold letters.
QString ShownInvoiceNumber(const Value& stored);

}  // namespace quillary::billing
