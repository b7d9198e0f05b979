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
  frmPaymentsByAClient(Business& business, const ScreenTools& tools, qint64 clientId,
                       qint64 diaryId);

 private:
  void MakeControls();
  void LayOut();
  void Load(qint64 clientId);
  void AttachJob(qint64 diaryId);

  Business& business_;
  ScreenTools tools_;
  QLineEdit* txtFilter;
  Grid* grdPayments;
  QPushButton* cmdAttachJob;
  QPushButton* cmdClose;
};

}  // namespace quillary::billing
