#pragma once

#include "kit/Screen.h"

namespace quillary {
class Business;
}  // namespace quillary

namespace quillary::billing {

/// Lets the navigator open the screens of invoices and payments.
void RegisterBillingScreens(Business& business, const ScreenTools& tools);

}  // namespace quillary::billing
