#pragma once

#include "accounts/banking/Deposits.h"
#include "kit/Screen.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace quillary {
class CurrencyField;
class DateField;
class Grid;
class PageTabs;
}  // namespace quillary

namespace quillary::accounts {

class BankingPage;

/// Takings on their way to the bank: ticked on three tabs, they become a deposit. A deposit made
/// before can be loaded, changed and stored again.
class frmBanking : public Screen {
  Q_OBJECT

 public:
  frmBanking(Business& business, const ScreenTools& tools);

  /// What no deposit holds, on the first tab; ticks and fields begin anew.
  void LoadCurrent();
  void Reload() override;
  Tables Shows() const override { return {"Payments", "Bankings", "Bank_Accounts", "Clients"}; }
  bool MayClose() override;

 private:
  void MakeControls();
  void MakeDepositControls();
  void MakeSaveControls();
  void LayOut();
  QWidget* PaymentsSide();
  QWidget* DepositsSide();
  QLayout* SaveLine();
  void ConnectControls();

  void LoadPages(bool keepTicks);
  void LoadDeposits();
  void FillBankAccounts();
  void ShowMode();
  void ShowPaymentsOnNoTab();
  void TakeCashTicks();
  void ShowTotal();
  Money CashBanked() const;
  DepositForm Typed() const;
  const Deposit* Selected() const;
  void Save();
  void LoadSelected();
  void PrintSelected();
  void DeleteSelected();
  void CountNotesAndCoins();

  Business& business_;
  ScreenTools tools_;
  std::vector<Deposit> deposits_;
  std::optional<Deposit> loaded_;
  PageTabs* pages_;
  BankingPage* cash_;
  BankingPage* cheques_;
  BankingPage* cards_;
  QLabel* lblMode;
  QLabel* lblOnNoTab;
  QPushButton* cmdCountCash;
  CurrencyField* txtCashAmountDeposited;
  QComboBox* cmbBankAccount;
  DateField* dtDateBanked;
  QLabel* lblSum;
  QLabel* lblTotalBanked;
  QPushButton* cmdLoadCurrent;
  QPushButton* cmdSave;
  Grid* grdBanking;
  QPushButton* cmdLoad;
  QPushButton* cmdPrint;
  QPushButton* cmdDelete;
  QPushButton* cmdReload;
  QPushButton* cmdClose;
};

}  // namespace quillary::accounts
