#include "accounts/screens/frmGeneralLedgerAccounts.h"

#include "accounts/screens/LedgerAccountsPage.h"
#include "kit/Layouts.h"
#include "kit/PageTabs.h"

namespace quillary::accounts {

frmGeneralLedgerAccounts::frmGeneralLedgerAccounts(Business& business, const ScreenTools& tools)
    : Screen(QStringLiteral("frmGeneralLedgerAccounts"), tr("General Ledger Accounts")),
      tools_(tools) {
  pages_ = new PageTabs("pages", tr("Types of account"));
  const auto add = [&](LedgerAccountType type, const QString& title) {
    auto* page = new LedgerAccountsPage(business, tools, type);
    pages_->AddPage(page, title);
    connect(page, &LedgerAccountsPage::counted, this,
            [this, page](size_t accounts) { pages_->SetCount(page, accounts); });
    return page;
  };
  revenue_ = add(LedgerAccountType::Revenue, tr("Revenue"));
  expense_ = add(LedgerAccountType::Expense, tr("Expense"));
  cmdClose = MakeButton("cmdClose", tr("Cl&ose"));
  connect(cmdClose, &QPushButton::clicked, this, &Screen::closeRequested);
  auto* commands = new QHBoxLayout;
  commands->addStretch(1);
  commands->addWidget(cmdClose);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(16);
  column->addWidget(
      MakeParagraph("lblAbout", tr("Money received is booked to revenue accounts, through the "
                                   "services of your jobs; purchases are booked to expense "
                                   "accounts. A number may stand once in each.")));
  column->addWidget(pages_, 1);
  column->addLayout(commands);
  setFocusProxy(revenue_);
}

void frmGeneralLedgerAccounts::Reload() {
  tools_.runner.Run(objectName(), QStringLiteral("Reload"), [this] {
    for (LedgerAccountsPage* page : {revenue_, expense_})
      if (!page->IsDataChanged()) page->Load();  // what is being typed is not taken away
  });
}

}  // namespace quillary::accounts
