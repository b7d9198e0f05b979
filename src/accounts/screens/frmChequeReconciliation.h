#pragma once

#include "accounts/banking/Cheques.h"
#include "kit/Screen.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class CurrencyField;
class Grid;
class RowTicks;
}  // namespace quillary

namespace quillary::accounts {

/// The cheques to suppliers that the bank has not shown yet, to be ticked off against its
/// statement.
class frmChequeReconciliation : public Screen {
  Q_OBJECT

 public:
  frmChequeReconciliation(Business& business, const ScreenTools& tools);

  void Reload() override;
  Tables Shows() const override { return {"Purchases", "Suppliers"}; }
  bool MayClose() override;

 private:
  void MakeControls();
  void LayOut();
  QLayout* SumsLine();
  QLayout* CommandLine();
  void ConnectControls();
  void Load();
  void ShowSums();
  void ClearTicked();

  Business& business_;
  ScreenTools tools_;
  std::vector<UnpresentedCheque> cheques_;
  QCheckBox* chkTickUntickAll;
  QLineEdit* txtFilter;
  Grid* grdCheques;
  RowTicks* ticks_;
  QLabel* lblTicked;
  CurrencyField* txtStatement;
  QLabel* lblDifference;
  QPushButton* cmdPrintGrid;
  QPushButton* cmdClose;
  QPushButton* cmdBank;
};

}  // namespace quillary::accounts
