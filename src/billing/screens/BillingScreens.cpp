#include "billing/screens/BillingScreens.h"

#include "billing/screens/InvoiceScreens.h"
#include "billing/screens/PaymentScreens.h"

namespace quillary::billing {

void RegisterBillingScreens(Business& business, const ScreenTools& tools) {
  RegisterInvoiceScreens(business, tools);
  RegisterPaymentScreens(business, tools);
}

}  // namespace quillary::billing
