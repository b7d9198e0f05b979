#include "billing/screens/dlgPaymentOptions.h"

#include "billing/screens/frmPaymentsByAClient.h"
#include "kit/Layouts.h"

namespace quillary::billing {

dlgPaymentOptions::dlgPaymentOptions(Business& business, const ScreenTools& tools,
                                     const PayForJob& job)
    : Dialog("dlgPaymentOptions", tr("Payment for a job"), business.World().prompter),
      business_(business),
      tools_(tools),
      job_(job) {
  cmdCreateNewPayment =
      MakeButton("cmdCreateNewPayment", tr("Create &new payment…"), ButtonKind::Main);
  cmdSelectAnExisting = MakeButton("cmdSelectAnExisting", tr("Select an &existing payment…"));
  cmdCancel = MakeButton("cmdCancel", tr("&Cancel"));
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  column->addWidget(MakeParagraph("lblWhat",
                                  tr("How is this job of %1 paid?").arg(job.price.ToCurrencyText()),
                                  LabelRole::Plain));
  column->addWidget(
      MakeParagraph("lblNew", tr("A new payment of that amount marks the job as done.")));
  column->addWidget(
      MakeParagraph("lblExisting", tr("A payment recorded before covers the job as it stands.")));
  column->addStretch(1);
  SetContent(column);
  SetRoom({520, 0});
  AddActions({cmdCancel, cmdSelectAnExisting, cmdCreateNewPayment});
  cmdCreateNewPayment->setFocus();
  connect(cmdCancel, &QPushButton::clicked, this, &Dialog::reject);
  tools_.runner.OnClick(cmdCreateNewPayment, objectName(), [this] { CreateNewPayment(); });
  tools_.runner.OnClick(cmdSelectAnExisting, objectName(), [this] { SelectAnExisting(); });
}

void dlgPaymentOptions::CreateNewPayment() {
  const AddPayment request{job_.payer, job_.price, job_.entry};
  if (tools_.navigator.Open(request)) Close(Accepted);
}

void dlgPaymentOptions::SelectAnExisting() {
  if (frmPaymentsByAClient(business_, tools_, job_.payer, job_.entry).exec() == QDialog::Accepted)
    Close(Accepted);
}

}  // namespace quillary::billing
