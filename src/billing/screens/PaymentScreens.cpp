#include "billing/screens/PaymentScreens.h"

namespace quillary {

void RegisterPaymentScreens(Business&, const ScreenTools&) {}

}  // namespace quillary
