#pragma once

#include "kit/Screen.h"

class QPushButton;

namespace quillary {
class Business;
class PageTabs;
}  // namespace quillary

namespace quillary::accounts {

class LedgerAccountsPage;

/// The chart of accounts: those of revenue and those of expense. It closes at once, whatever stands
/// in the fields.
class frmGeneralLedgerAccounts : public Screen {
  Q_OBJECT

 public:
  frmGeneralLedgerAccounts(Business& business, const ScreenTools& tools);

  void Reload() override;
  Tables Shows() const override { return {"General_Ledger_Accounts"}; }

 private:
  PageTabs* pages_;
  LedgerAccountsPage* revenue_;
  LedgerAccountsPage* expense_;
  QPushButton* cmdClose;
  ScreenTools tools_;
};

}  // namespace quillary::accounts
