#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"

class QPushButton;

namespace quillary {
class DateField;
}  // namespace quillary

namespace quillary::billing {

/// Asks for one date.
class dlgFromDate : public Dialog {
  Q_OBJECT

 public:
  dlgFromDate(Business& business, const QString& label, QDate proposed);

  QDate Date() const;

 private:
  DateField* dtFromDate;
  QPushButton* cmdCancel;
  QPushButton* cmdOK;
};

}  // namespace quillary::billing
