#pragma once

#include "billing/payments/PaymentJobs.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
class RowTicks;
}  // namespace quillary

namespace quillary::billing {

/// The jobs that a payment covers, as ticks. Each takes effect at once; there is nothing to save
/// and nothing to give up.
class dlgPaymentJobs : public Dialog {
  Q_OBJECT

 public:
  dlgPaymentJobs(Business& business, const ScreenTools& tools, Id<Payment> paymentId);

 private:
  void MakeControls();
  void LayOut();
  QLayout* Head();
  QLayout* SumsLine();
  void Load();
  void ShowRows();
  void ShowSums();
  void TakeTicks();

  Business& business_;
  ScreenTools tools_;
  Id<Payment> paymentId_;
  Allocation allocation_;
  QLineEdit* txtFilter;
  Grid* grdJobs;
  RowTicks* ticks_;
  QLabel* lblJobsTicked;
  QLabel* txtJobsTotal;
  QLabel* txtPaymentAmount;
  QLabel* txtDifference;
  QPushButton* cmdPrintGrid;
  QPushButton* cmdClose;
};

}  // namespace quillary::billing
