#include "accounts/screens/AccountScreens.h"

#include "accounts/TaxRepair.h"
#include "accounts/screens/frmCountries.h"
#include "accounts/screens/frmGeneralLedgerAccounts.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Setup.h"

namespace quillary {

namespace {

/// Shows the screen of that name, making it when none is open, and loads it.
template <typename Make>
void ShowTab(const ScreenTools& tools, const char* name, const Make& make) {
  Screen* screen = tools.host.BringToFront(QLatin1StringView(name));
  if (!screen) {
    screen = make();
    tools.host.ShowScreen(screen);
  }
  screen->Reload();
  screen->setFocus();  // on the list: the arrow keys work at once
}

}  // namespace

void RegisterAccountScreens(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenGeneralLedgerAccounts>(
      [&business, tools](const OpenGeneralLedgerAccounts&) {
        ShowTab(tools, "frmGeneralLedgerAccounts",
                [&] { return new frmGeneralLedgerAccounts(business, tools); });
      });
  navigator.Register<OpenCountries>([&business, tools](const OpenCountries&) {
    ShowTab(tools, "frmCountries",
            [&] { return new RecordListScreen(CountriesList(business), tools, business.World()); });
  });
  navigator.Register<RecalculateGSTComponent>([&business, tools](const RecalculateGSTComponent&) {
    tools.runner.Run(
        QStringLiteral("MainMenuMDI"), QStringLiteral("mnuRecalculateGSTComponent_Click"),
        [&business] { RecalculateGSTAfterAsking(business, business.World().prompter); });
  });
}

}  // namespace quillary
