#pragma once

#include "accounts/purchases/PurchasesList.h"
#include "kit/Screen.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class DateField;
class Grid;
}  // namespace quillary

namespace quillary::accounts {

/// The purchases of a period, set against the accounts that they are booked to.
class frmPurchasesList : public Screen {
  Q_OBJECT

 public:
  frmPurchasesList(Business& business, const ScreenTools& tools);

  /// This month.
  void ShowYourself();
  void LoadPurchases();
  void Reload() override { LoadPurchases(); }
  Tables Shows() const override {
    return {"Purchases", "Suppliers", "General_Ledger_Entries", "General_Ledger_Accounts"};
  }

 private:
  void MakeControls();
  void LayOut();
  QLayout* ChoiceLine();
  QLayout* TotalsLine();
  QLayout* CommandLine();
  void ConnectControls();
  void Show(PurchasesList list);
  const PurchaseRow* Selected() const;
  void Add();
  void View();
  void DeleteSelected();

  Business& business_;
  ScreenTools tools_;
  PurchasesList list_;
  DateField* dtpFrom;
  DateField* dtpTo;
  QPushButton* cmdShow;
  QLineEdit* txtFilter;
  Grid* grdPurchases;
  QLabel* txtTotalAmount;
  QLabel* txtTotalGST;
  QPushButton* cmdDeletePurchase;
  QPushButton* cmdPrintPurchases;
  QPushButton* cmdClose;
  QPushButton* cmdAddPurchase;
  QPushButton* cmdViewPurchase;
};

}  // namespace quillary::accounts
