#pragma once

#include "accounts/yearend/RepairCount.h"
#include "kit/Screen.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace quillary {
class Business;
class Grid;
}  // namespace quillary

namespace quillary::accounts {

/// The repair of all records, step by step: what each found, and what is left for it.
class frmSortOut : public Screen {
  Q_OBJECT

 public:
  frmSortOut(Business& business, const ScreenTools& tools);

  /// Shows what the steps are about to do.
  void Begin(const std::vector<RepairCount>& before);
  /// Shows that a step begins, its number from 1.
  void ShowStep(int step);
  /// Shows what is left for another run.
  void End(const std::vector<RepairCount>& after);

  /// Counts anew what is left, also after the repair was taken back.
  void Reload() override;
  Tables Shows() const override {
    return {"Clients", "Payments",       "Purchases", "General_Ledger_Entries",
            "Diary",   "Diary_Services", "Invoices"};
  }

 private:
  void MakeControls(const ScreenTools& tools);
  void LayOut();
  void ShowRows();

  Business& business_;
  std::vector<RepairCount> before_;
  std::vector<RepairCount> after_;  // empty until the steps are done
  QProgressBar* pb;
  Grid* grdSteps;
  QLabel* lblTotals;
  QPushButton* cmdPrintGrid;
  QPushButton* cmdClose;
};

}  // namespace quillary::accounts
