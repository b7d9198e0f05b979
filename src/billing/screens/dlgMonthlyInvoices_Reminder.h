#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QCheckBox;
class QPushButton;

namespace quillary {
class DateField;
}  // namespace quillary

namespace quillary::billing {

/// Moves the day from which the start reminds of the monthly invoices, or switches that off.
class dlgMonthlyInvoices_Reminder : public Dialog {
  Q_OBJECT

 public:
  dlgMonthlyInvoices_Reminder(Business& business, const ScreenTools& tools);

 private:
  Business& business_;
  QCheckBox* chkYesPlease;
  DateField* txtDate;
  QPushButton* cmdCancel;
  QPushButton* cmdOK;
};

}  // namespace quillary::billing
