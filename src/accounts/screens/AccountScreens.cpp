#include "accounts/screens/AccountScreens.h"

#include "accounts/TaxRepair.h"
#include "accounts/screens/frmGeneralLedgerAccounts.h"
#include "base/ports/requests/Accounts.h"

namespace quillary::accounts {

void RegisterAccountScreens(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenGeneralLedgerAccounts>(
      [&business, tools](const OpenGeneralLedgerAccounts&) {
        ShowTab(tools, "frmGeneralLedgerAccounts",
                [&] { return new frmGeneralLedgerAccounts(business, tools); });
      });
  navigator.Register<RecalculateGSTComponent>([&business, tools](const RecalculateGSTComponent&) {
    tools.runner.Run(
        QStringLiteral("MainMenuMDI"), QStringLiteral("mnuRecalculateGSTComponent_Click"),
        [&business] { RecalculateGSTAfterAsking(business, business.World().prompter); });
  });
}

}  // namespace quillary::accounts
