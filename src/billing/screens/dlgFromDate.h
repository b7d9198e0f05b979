#pragma once

#include "data/Business.h"
#include "kit/Dialog.h"

class QPushButton;

namespace quillary {

class DateField;

/// Asks for one date.
class dlgFromDate : public Dialog {
  Q_OBJECT

 public:
  dlgFromDate(Business& business, const QString& label);

  QDate Date() const;

 private:
  DateField* dtFromDate;
  QPushButton* cmdCancel;
  QPushButton* cmdOK;
};

}  // namespace quillary
