#pragma once

#include "billing/payments/JobsAndPaymentChecker.h"
#include "kit/Screen.h"

#include <vector>

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::billing {

/// What a client's balance is made of, side by side: its jobs, its payments, and the payments of
/// those who are billed to it.
class frmJobsAndPaymentChecker : public Screen {
  Q_OBJECT

 public:
  frmJobsAndPaymentChecker(Business& business, const ScreenTools& tools);

  void Reload() override;

 private:
  void MakeControls();
  Grid* MakePaymentGrid(const char* name, const QString& heardAs);
  void LayOut();
  QWidget* ClientSide();
  QWidget* MoneySide();
  QLayout* CommandLine();
  void ConnectControls();
  void EnableCommands();

  void LoadClientsIntoGrid();
  void LoadMoneyOfClient();
  void ShowJobs(const CheckedJobs& jobs);
  void ShowPayments(const CheckedPayments& own, const CheckedPayments& attached);
  std::optional<Id<Client>> SelectedClient();
  /// The key of the selected row; without one the user is told `noneSelected`.
  template <NumberedRow Row>
  std::optional<Id<Row>> Selected(const Grid* grid, const char* noneSelected);
  /// In whichever of the two lists it is.
  std::optional<Id<Payment>> SelectedPayment();

  void EditSelectedJob();
  void DeleteSelectedJob();
  void ViewSelectedPayment();
  void DeleteSelectedPayment();
  void RecalculateAmountOwing();

  Business& business_;
  ScreenTools tools_;

  QLineEdit* txtFilter;
  QPushButton* cmdRefreshList;
  Grid* grdClients;
  Grid* grdJobs;
  Grid* grdPayments;
  Grid* grdPayments2;
  QLabel* txtTotalNoOfJobs;
  QLabel* txtTotalJobAmount;
  QLabel* txtTotalNoOfPayments;
  QLabel* txtTotalPayments;
  QLabel* txtTotalNoOfPayments2;
  QLabel* txtTotalPayments2;
  QPushButton* cmdRecalculateAmountOwing;
  QPushButton* cmdViewClient;
  QPushButton* cmdAccountOfClient;
  QPushButton* cmdEditJob;
  QPushButton* cmdDeleteJob;
  QPushButton* cmdViewPayment;
  QPushButton* cmdDeletePayment;
  QPushButton* cmdClose;
};

}  // namespace quillary::billing
