#include "billing/screens/dlgInvoiceList.h"

#include "billing/invoices/InvoiceList.h"
#include "kit/DateField.h"
#include "kit/Layouts.h"

#include <QGroupBox>
#include <QRadioButton>

namespace quillary::billing {

dlgInvoiceList::dlgInvoiceList(Business& business, const ScreenTools&)
    : Dialog("dlgInvoiceList", tr("Invoice list"), business.World().prompter) {
  const InvoiceListCriteria month = InvoiceListOfMonth(business.Today());
  dtStartDate = Named(new DateField(business.Today()), "dtStartDate");
  dtStartDate->SetDate(month.days.from);
  dtEndDate = Named(new DateField(business.Today()), "dtEndDate");
  dtEndDate->SetDate(month.days.to);
  for (DateField* field : {dtStartDate, dtEndDate}) field->setFixedWidth(184);
  const auto option = [](const char* name, const QString& caption) {
    return Named(new QRadioButton(caption), name, PlainCaption(caption));
  };
  optByName = option("optByName", tr("Client &name"));
  optInvoiceNo = option("optInvoiceNo", tr("&Invoice number"));
  optByDate = option("optByDate", tr("&Date"));
  optByName->setChecked(true);
  auto* order = new QGroupBox(tr("Sorted by"));
  auto* options = new QHBoxLayout(order);
  options->setSpacing(16);
  for (QRadioButton* button : {optByName, optInvoiceNo, optByDate}) options->addWidget(button);
  options->addStretch(1);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(InLine({{LabelOver(dtStartDate, tr("&From")), 0},
                            {LabelOver(dtEndDate, tr("&To")), 0},
                            {new QVBoxLayout, 1}}));
  column->addWidget(order);
  column->addStretch(1);
  SetContent(column);
  SetRoom({440, 0});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdPreview = MakeButton("cmdPreview", tr("&Preview"), ButtonKind::Main);
  AddActions({cmdCancel, cmdPreview});
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(cmdPreview, &QPushButton::clicked, this, [this] { Close(Accepted); });
}

InvoiceListCriteria dlgInvoiceList::Criteria() const {
  using Order = InvoiceListCriteria::Order;
  const Order order = optInvoiceNo->isChecked() ? Order::Number
                      : optByDate->isChecked()  ? Order::Date
                                                : Order::Name;
  return {.days = {dtStartDate->Date(), dtEndDate->Date()}, .order = order};
}

}  // namespace quillary::billing
