#include "accounts/screens/AccountScreens.h"

#include "accounts/TaxRepair.h"
#include "accounts/screens/dlgCountCash.h"
#include "accounts/screens/frmBanking.h"
#include "accounts/screens/frmBanks.h"
#include "accounts/screens/frmChequeReconciliation.h"
#include "accounts/screens/frmGeneralLedgerAccounts.h"
#include "accounts/screens/frmPurchase.h"
#include "accounts/screens/frmPurchasesList.h"
#include "accounts/screens/frmSuppliers.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Setup.h"

namespace quillary::accounts {

namespace {

bool ShowPurchase(Business& business, const ScreenTools& tools, Id<Purchase> purchase) {
  const auto stored = LoadPurchase(business, purchase);
  if (stored) return frmPurchase(business, tools, *stored).exec() == QDialog::Accepted;
  business.World().prompter.Tell(Tone::Exclamation,
                                 QObject::tr("This purchase is no longer there."));
  return false;
}

void RegisterPurchaseScreens(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<AddPurchase>([&business, tools](const AddPurchase& request) {
    return frmPurchase(business, tools, BlankPurchase(business, request.supplier)).exec() ==
           QDialog::Accepted;
  });
  navigator.Register<ViewPurchase>([&business, tools](const ViewPurchase& request) {
    return ShowPurchase(business, tools, request.purchase);
  });
  navigator.Register<PickSupplier>(
      [&business, tools](const PickSupplier&) { return PickSupplierFromList(business, tools); });
  navigator.Register<OpenSuppliers>([&business, tools](const OpenSuppliers&) {
    ShowTab(tools, "frmSuppliers", [&] { return new frmSuppliers(business, tools); });
  });
  navigator.Register<OpenPurchasesList>([&business, tools](const OpenPurchasesList&) {
    if (Screen* open = tools.host.BringToFront(QStringLiteral("frmPurchasesList"))) {
      open->Reload();
      return;
    }
    auto* purchases = new frmPurchasesList(business, tools);
    tools.host.ShowScreen(purchases);
    purchases->ShowYourself();
  });
}

void RegisterBankingScreens(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenBanking>([&business, tools](const OpenBanking&) {
    ShowTab(tools, "frmBanking", [&] { return new frmBanking(business, tools); });
  });
  navigator.Register<CountCash>([&business](const CountCash&) -> std::optional<Money> {
    dlgCountCash count(business.World().prompter);
    if (count.exec() != QDialog::Accepted) return std::nullopt;
    return count.Counted();
  });
  navigator.Register<OpenChequeReconciliation>([&business, tools](const OpenChequeReconciliation&) {
    ShowTab(tools, "frmChequeReconciliation",
            [&] { return new frmChequeReconciliation(business, tools); });
  });
  navigator.Register<OpenBanks>([&business, tools](const OpenBanks&) {
    ShowTab(tools, "frmBanks",
            [&] { return new RecordListScreen(BanksList(business), tools, business.World()); });
  });
  navigator.Register<OpenBankAccounts>([&business, tools](const OpenBankAccounts&) {
    ShowTab(tools, "frmBankAccounts", [&] {
      return new RecordListScreen(BankAccountsList(business), tools, business.World());
    });
  });
}

}  // namespace

void RegisterAccountScreens(Business& business, const ScreenTools& tools) {
  RegisterPurchaseScreens(business, tools);
  RegisterBankingScreens(business, tools);
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
