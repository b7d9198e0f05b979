#pragma once

#include "balances/Debtors.h"
#include "kit/Screen.h"

#include <functional>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillary {
class Grid;
class PageTabs;
class RowTicks;
}  // namespace quillary

namespace quillary::balances {

/// Who owes, and who has paid too much, from balances computed as the screen opens.
class frmDebtors : public Screen {
  Q_OBJECT

 public:
  frmDebtors(Business& business, const ScreenTools& tools);

  /// All debtors, or those who owe something of that age.
  void ShowYourself(std::optional<DebtAge> age = {});
  void LoadDebtorsIntoGrid();
  void LoadCreditorsIntoGrid();
  void Reload() override;
  Tables Shows() const override { return {"Clients", "Diary", "Payments"}; }

 private:
  void MakeControls();
  Grid* MakeGrid(const char* name, const QString& heardAs, QLineEdit* filter);
  QWidget* DebtorPage();
  QWidget* CreditorPage();
  QWidget* ReminderFrame();
  QLayout* CommandLine();
  void LayOut();
  void ConnectControls();
  DebtorFilter Filter() const;
  /// Nothing: of any age.
  std::optional<DebtAge> Age() const;
  size_t Fill(Grid* grid, const std::vector<DebtorRow>& debtors);
  void OpenClientOf(const Grid* grid);
  void Recalculate();

  Business& business_;
  ScreenTools tools_;

  QCheckBox* chkActiveClients;
  PageTabs* pages_;
  QWidget* debtors_;
  QLineEdit* txtDebtorFilter;
  QComboBox* cboAge;
  Grid* grdDebtors;
  QLabel* lblOwing;
  RowTicks* ticks_;
  QCheckBox* chkTickUntickAll;
  QPushButton* cmdRefreshDebtor;
  QPushButton* cmdPrintGrid;
  QLineEdit* txtNotes;
  QCheckBox* chkShowPayment;
  QPushButton* cmdPreview;
  QWidget* creditors_;
  QLineEdit* txtCreditorFilter;
  Grid* grdCreditors;
  QPushButton* cmdRefreshCreditor;
  QPushButton* cmdPrintGrid2;
  QPushButton* cmdClientsJobsAndPayments;
  QPushButton* cmdAccountOfClient;
  QPushButton* cmdRecalculateAmountOwing;
  QPushButton* cmdViewClient;
  QPushButton* cmdClose;
};

}  // namespace quillary::balances
