#include "billing/screens/InvoiceScreens.h"

namespace quillary {

void RegisterInvoiceScreens(Business&, const ScreenTools&) {}

}  // namespace quillary
