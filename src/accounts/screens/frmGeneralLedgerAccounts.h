#pragma once

#include "kit/Screen.h"

class QPushButton;

namespace quillary {

class Business;
class LedgerAccountsPage;
class PageTabs;

/// The chart of accounts: those of revenue and those of expense. It closes at once, whatever stands
/// in the fields.
class frmGeneralLedgerAccounts : public Screen {
  Q_OBJECT

 public:
  frmGeneralLedgerAccounts(Business& business, const ScreenTools& tools);

  void Reload() override;

 private:
  PageTabs* pages_;
  LedgerAccountsPage* revenue_;
  LedgerAccountsPage* expense_;
  QPushButton* cmdClose;
  ScreenTools tools_;
};

}  // namespace quillary
