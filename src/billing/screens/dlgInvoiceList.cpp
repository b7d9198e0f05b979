#include "billing/screens/dlgInvoiceList.h"

#include "kit/Layouts.h"
#include "kit/PeriodField.h"

#include <QGroupBox>
#include <QRadioButton>

namespace quillary::billing {

dlgInvoiceList::dlgInvoiceList(Business& business, const ScreenTools&)
    : Dialog("dlgInvoiceList", tr("Invoice list"), business.World().prompter) {
  days_ = new PeriodField(
      business, {.from = "dtStartDate", .to = "dtEndDate", .remembered = "dlgInvoiceList"});
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
  column->addWidget(days_);
  column->addWidget(order);
  column->addStretch(1);
  SetContent(column);
  SetRoom({600, 0});
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  cmdPreview = MakeButton("cmdPreview", tr("&Preview"), ButtonKind::Main);
  AddActions({cmdCancel, cmdPreview});
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  connect(cmdPreview, &QPushButton::clicked, this, [this] {
    days_->Remember();
    Close(Accepted);
  });
}

InvoiceListCriteria dlgInvoiceList::Criteria() const {
  using Order = InvoiceListCriteria::Order;
  const Order order = optInvoiceNo->isChecked() ? Order::Number
                      : optByDate->isChecked()  ? Order::Date
                                                : Order::Name;
  return {.days = days_->Days(), .order = order};
}

}  // namespace quillary::billing
