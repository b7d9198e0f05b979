#include "billing/screens/frmPaymentsByAClient.h"

#include "billing/payments/PaymentJobs.h"
#include "billing/screens/PaymentGrids.h"
#include "kit/Grid.h"
#include "kit/Layouts.h"

namespace quillary::billing {

frmPaymentsByAClient::frmPaymentsByAClient(Business& business, const ScreenTools& tools,
                                           Id<Client> clientId, Id<Entry> diaryId)
    : Dialog("frmPaymentsByAClient", tr("Payments of this client"), business.World().prompter),
      business_(business),
      tools_(tools) {
  MakeControls();
  LayOut();
  tools_.runner.OnClick(cmdAttachJob, objectName(), [this, diaryId] { AttachJob(diaryId); });
  connect(grdPayments, &Grid::rowOpened, cmdAttachJob, &QPushButton::click);
  connect(cmdClose, &QPushButton::clicked, this, &Dialog::reject);
  tools_.runner.Run(objectName(), QStringLiteral("LoadPayments"), [&] { Load(clientId); });
  grdPayments->setFocus();
}

void frmPaymentsByAClient::MakeControls() {
  txtFilter = MakeFilterBox(this);
  txtFilter->setFixedWidth(240);
  grdPayments = new Grid(QStringLiteral("grdPayments"));
  grdPayments->SetColumns(PaymentListColumns());
  grdPayments->SetEmptyText(tr("No payment of this client is recorded."),
                            tr("Close this list and create a new payment."));
  grdPayments->FilterBy(txtFilter);
  grdPayments->setMinimumHeight(200);
  cmdAttachJob = MakeButton("cmdAttachJob", tr("&Attach job to this payment"), ButtonKind::Main);
  cmdClose = MakeButton("cmdClose", tr("&Close"));
}

void frmPaymentsByAClient::LayOut() {
  auto* head = new QHBoxLayout;
  head->setSpacing(8);
  head->addWidget(MakeLabelFor(grdPayments, tr("The &payment that covers the job")));
  head->addStretch(1);
  head->addWidget(txtFilter);
  auto* column = new QVBoxLayout;
  column->setSpacing(12);
  column->addLayout(head);
  column->addWidget(grdPayments, 1);
  column->addWidget(MakeLabel("lblLegend", QString::fromLatin1(kMismatchLegend), LabelRole::Hint));
  SetContent(column);
  SetRoom({1000, 480});
  AddActions({cmdClose, cmdAttachJob});
}

void frmPaymentsByAClient::Load(Id<Client> clientId) {
  grdPayments->SetRows(PaymentListRows(LoadPaymentsByAClient(business_, clientId).rows));
}

void frmPaymentsByAClient::AttachJob(Id<Entry> diaryId) {
  const auto payment = grdPayments->SelectedId<Payment>();
  if (IsAccepted(quillary::billing::AttachJob(business_, payment, diaryId)))
    Close(Accepted);
  else
    grdPayments->setFocus();
}

}  // namespace quillary::billing
