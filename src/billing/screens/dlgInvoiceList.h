#pragma once

#include "base/ports/requests/Billing.h"
#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QPushButton;
class QRadioButton;

namespace quillary {
class PeriodField;
}  // namespace quillary

namespace quillary::billing {

/// Which invoices a report lists, and in which order.
class dlgInvoiceList : public Dialog {
  Q_OBJECT

 public:
  dlgInvoiceList(Business& business, const ScreenTools& tools);

  InvoiceListCriteria Criteria() const;

 private:
  PeriodField* days_;
  QRadioButton* optByName;
  QRadioButton* optInvoiceNo;
  QRadioButton* optByDate;
  QPushButton* cmdCancel;
  QPushButton* cmdPreview;
};

}  // namespace quillary::billing
