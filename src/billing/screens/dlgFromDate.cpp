#include "billing/screens/dlgFromDate.h"

#include "kit/DateField.h"
#include "kit/Layouts.h"

namespace quillary::billing {

dlgFromDate::dlgFromDate(Business& business, const QString& label, QDate proposed)
    : Dialog("dlgFromDate", label, business.World().prompter) {
  dtFromDate = Named(new DateField(business.Today()), "dtFromDate");
  dtFromDate->SetDate(proposed);
  auto* column = new QVBoxLayout;
  column->addLayout(LabelOver(dtFromDate, label));
  column->addStretch(1);
  SetContent(column);
  SetRoom({320, 0});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdOK = MakeButton("cmdOK", tr("&OK"), ButtonKind::Main);
  AddActions({cmdCancel, cmdOK});
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(cmdOK, &QPushButton::clicked, this, [this] { Close(Accepted); });
}

QDate dlgFromDate::Date() const {
  return dtFromDate->Date();
}

}  // namespace quillary::billing
