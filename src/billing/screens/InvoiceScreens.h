#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::billing {

/// Lets the navigator open the screens of invoices.
void RegisterInvoiceScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::billing
