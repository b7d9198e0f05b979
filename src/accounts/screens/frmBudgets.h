#pragma once

#include "accounts/budgets/YearlyBudgets.h"
#include "kit/Screen.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace quillary {
class Grid;
}  // namespace quillary

namespace quillary::accounts {

/// What each account came to beside its budget, for a year, the year to date or a month of it.
class frmBudgets : public Screen {
  Q_OBJECT

 public:
  frmBudgets(Business& business, const ScreenTools& tools);

  void Reload() override;
  Tables Shows() const override {
    return {"Budgets", "Budget_Periods", "General_Ledger_Entries", "General_Ledger_Accounts"};
  }

 private:
  void MakeControls();
  void LayOut();
  void ConnectControls();
  void FillYears();
  void FillDays();
  void Load();
  void ShowEntries(int row);

  Business& business_;
  ScreenTools tools_;
  std::vector<BudgetYear> years_;
  std::vector<BudgetDays> days_;
  std::vector<BudgetLine> lines_;
  QComboBox* cmbYear;
  QComboBox* cmbDays;
  Grid* grdBudgets;
  QLabel* lblTotals;
  QPushButton* cmdEntries;
  QPushButton* cmdSetup;
  QPushButton* cmdPrintGrid;
  QPushButton* cmdClose;
};

}  // namespace quillary::accounts
