#pragma once

#include "base/ports/requests/Billing.h"
#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

namespace quillary::billing {

/// How a job is paid: by a payment that is entered now, or by one that was recorded before.
class dlgPaymentOptions : public Dialog {
  Q_OBJECT

 public:
  dlgPaymentOptions(Business& business, const ScreenTools& tools, const PayForJob& job);

 private:
  void CreateNewPayment();
  void SelectAnExisting();

  Business& business_;
  ScreenTools tools_;
  PayForJob job_;
  QPushButton* cmdCreateNewPayment;
  QPushButton* cmdSelectAnExisting;
  QPushButton* cmdCancel;
};

}  // namespace quillary::billing
