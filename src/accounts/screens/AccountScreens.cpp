#include "accounts/screens/AccountScreens.h"

#include "accounts/TaxRepair.h"
#include "accounts/budgets/BudgetPeriods.h"
#include "accounts/screens/dlgCountCash.h"
#include "accounts/screens/frmBanking.h"
#include "accounts/screens/frmBanks.h"
#include "accounts/screens/frmBudgets.h"
#include "accounts/screens/frmChequeReconciliation.h"
#include "accounts/screens/frmGeneralLedgerAccounts.h"
#include "accounts/screens/frmPurchase.h"
#include "accounts/screens/frmPurchasesList.h"
#include "accounts/screens/frmSetupBudgets.h"
#include "accounts/screens/frmSortOut.h"
#include "accounts/screens/frmSuppliers.h"
#include "accounts/yearend/PreviousRecords.h"
#include "accounts/yearend/RevenueAccounts.h"
#include "accounts/yearend/SortOut.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Maintenance.h"
#include "base/ports/requests/Screens.h"
#include "base/ports/requests/Setup.h"
#include "data/ActivityLog.h"

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

/// Asks twice, offers a backup between, and a recomputation of the balances at the end.
void DeletePrevious(Business& business, const Navigator& navigator) {
  Prompter& prompter = business.World().prompter;
  if (!MayDeletePreviousRecords(prompter)) return;
  LogActivity(business, QStringLiteral("Delete Previous Financial Records"));
  const auto days = navigator.Open(AskForDays{QObject::tr("Delete previous financial records")});
  if (!days) return;
  if (prompter.Ask(QObject::tr("Create a backup now, before anything is deleted?")) == Answer::Yes)
    navigator.Open(OpenCreateCustomBackup{});
  if (DeletePreviousRecordsAfterAsking(business, prompter, *days))
    navigator.Open(RecomputeAmountOwing{});
}

/// The steps of the repair show in a tab of their own, and stay there to be read or printed.
void SortOut(Business& business, const ScreenTools& tools) {
  frmSortOut* steps = nullptr;
  SortOutListener listener;
  listener.begins = [&](const std::vector<RepairCount>& before) {
    ShowTab(tools, "frmSortOut", [&] { return new frmSortOut(business, tools); });
    steps = qobject_cast<frmSortOut*>(tools.host.BringToFront(QStringLiteral("frmSortOut")));
    if (steps) steps->Begin(before);
  };
  listener.step = [&](int step, int) {
    if (steps) steps->ShowStep(step);
  };
  listener.ended = [&](const std::vector<RepairCount>& after) {
    if (steps) steps->End(after);
  };
  SortOutAfterAsking(business, business.World().prompter, listener);
}

void RegisterRepairs(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  const auto run = [tools](const char* command, const std::function<void()>& repair) {
    tools.runner.Run(QStringLiteral("MainMenuMDI"), QString::fromLatin1(command), repair);
  };
  navigator.Register<RecalculateGSTComponent>([&business, run](const RecalculateGSTComponent&) {
    run("mnuRecalculateGSTComponent_Click",
        [&] { RecalculateGSTAfterAsking(business, business.World().prompter); });
  });
  navigator.Register<quillary::RecalculateBudgets>(
      [&business, run](const quillary::RecalculateBudgets&) {
        run("mnuFunctionsRecalculateBudgets_Click", [&] {
          int corrections = 0;
          {
            const BusyWhile busy(business.World().busy);
            corrections = accounts::RecalculateBudgets(business);
          }
          business.World().prompter.Tell(Tone::Information, BudgetsVerifiedWords(corrections));
        });
      });
  navigator.Register<DeletePreviousFinancialRecords>([&business, &navigator,
                                                      run](const DeletePreviousFinancialRecords&) {
    run("mnuDeletePreviousFinancialRecords_Click", [&] { DeletePrevious(business, navigator); });
  });
  navigator.Register<SortOutDatabaseRecords>(
      [&business, run, tools](const SortOutDatabaseRecords&) {
        run("mnuSortoutDatabaseRecords_Click", [&] { SortOut(business, tools); });
      });
  navigator.Register<UpdateRevenueAccountIntoDefault>(
      [&business, run](const UpdateRevenueAccountIntoDefault&) {
        run("mnuUpdateRevenueAccountIntoDefault_Click",
            [&] { UpdateRevenueAccountsAfterAsking(business, business.World().prompter); });
      });
}

}  // namespace

void RegisterAccountScreens(Business& business, const ScreenTools& tools) {
  RegisterPurchaseScreens(business, tools);
  RegisterBankingScreens(business, tools);
  RegisterRepairs(business, tools);
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenBudgets>([&business, tools](const OpenBudgets&) {
    ShowTab(tools, "frmBudgets", [&] { return new frmBudgets(business, tools); });
  });
  navigator.Register<OpenSetupBudgets>([&business, tools](const OpenSetupBudgets&) {
    ShowTab(tools, "frmSetupBudgets", [&] { return new frmSetupBudgets(business, tools); });
  });
  navigator.Register<OpenGeneralLedgerAccounts>(
      [&business, tools](const OpenGeneralLedgerAccounts&) {
        ShowTab(tools, "frmGeneralLedgerAccounts",
                [&] { return new frmGeneralLedgerAccounts(business, tools); });
      });
}

}  // namespace quillary::accounts
