#pragma once

#include "billing/payments/PaymentsList.h"
#include "kit/Screen.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class DateField;
class Grid;
}  // namespace quillary

namespace quillary::billing {

/// The payments of a period, set against the jobs that they cover.
class frmPaymentsList : public Screen {
  Q_OBJECT

 public:
  frmPaymentsList(Business& business, const ScreenTools& tools);

  /// This month.
  void ShowYourself();
  void ShowDays(const DateRange& days);
  void LoadPayments();
  void Reload() override { LoadPayments(); }
  Tables Shows() const override { return {"Payments", "Clients", "Diary"}; }

 private:
  void MakeControls();
  void MakeTotals();
  void LayOut();
  QLayout* ChoiceLine();
  QLayout* TotalsLine();
  QLayout* CommandLine();
  void ConnectControls();
  void Show(PaymentsList list);
  const PaymentRow* Selected() const;
  void Add();
  void View();
  void DeleteSelected();

  Business& business_;
  ScreenTools tools_;
  PaymentsList list_;
  DateField* dtpFrom;
  DateField* dtpTo;
  QPushButton* cmdShow;
  QLineEdit* txtFilter;
  Grid* grdPayments;
  QLabel* txtTotalCount;
  QLabel* txtTotalAmount;
  QLabel* txtTotalBeingPaidFor;
  QLabel* txtTotalWithoutAccount;
  QPushButton* cmdDelete;
  QPushButton* cmdPrintGrid;
  QPushButton* cmdClose;
  QPushButton* cmdAdd;
  QPushButton* cmdOK;
};

}  // namespace quillary::billing
