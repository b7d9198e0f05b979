#pragma once

#include "kit/RecordList.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::lists {

/// The words that payments and purchases can be made by.
RecordList PaymentMethodsList(Business& business);

/// Opens the list in a tab; over a dialog that waits for it, in a dialog of its own.
void OpenPaymentMethodsList(Business& business, const ScreenTools& tools);

}  // namespace quillary::lists
