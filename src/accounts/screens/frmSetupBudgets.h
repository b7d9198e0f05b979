#pragma once

#include "accounts/budgets/YearlyBudgets.h"
#include "kit/Screen.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::accounts {

/// The budget of each account in a financial year, typed into its row or filled from the year
/// before.
class frmSetupBudgets : public Screen {
  Q_OBJECT

 public:
  frmSetupBudgets(Business& business, const ScreenTools& tools);

  void Reload() override;
  Tables Shows() const override {
    return {"Budgets", "Budget_Periods", "General_Ledger_Entries", "General_Ledger_Accounts"};
  }

 private:
  void MakeControls();
  void LayOut();
  void ConnectControls();
  void Load();
  const BudgetYear* Year() const;
  void TakeAmount(int row, const Value& value);
  void Fill(BudgetSource source);

  Business& business_;
  ScreenTools tools_;
  std::vector<BudgetYear> years_;
  std::vector<BudgetLine> lines_;
  QComboBox* cmbYear;
  Grid* grdBudgets;
  QLabel* lblTotals;
  QLineEdit* txtPercent;
  QPushButton* cmdCopyLastYear;
  QPushButton* cmdFromActuals;
  QPushButton* cmdClose;
};

}  // namespace quillary::accounts
