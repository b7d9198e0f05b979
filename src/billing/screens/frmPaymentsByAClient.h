#pragma once

#include "billing/payments/PaymentsList.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::billing {

/// The payments of one client, to tie a job to one of them.
class frmPaymentsByAClient : public Dialog {
  Q_OBJECT

 public:
  frmPaymentsByAClient(Business& business, const ScreenTools& tools, Id<Client> clientId,
                       Id<Entry> diaryId);

 private:
  void MakeControls();
  void LayOut();
  void Load(Id<Client> clientId);
  void AttachJob(Id<Entry> diaryId);

  Business& business_;
  ScreenTools tools_;
  QLineEdit* txtFilter;
  Grid* grdPayments;
  QPushButton* cmdAttachJob;
  QPushButton* cmdClose;
};

}  // namespace quillary::billing
