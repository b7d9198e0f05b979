#include "accounts/purchases/PurchaseRecord.h"
#include "accounts/screens/dlgCountCash.h"
#include "accounts/screens/frmPurchase.h"
#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Setup.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "shell/shots/Shots.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTabWidget>

/// The pictures of purchases, suppliers, banking and cheques.
namespace quillary::shell {

namespace {

/// The demo's owner banks at once; for the pictures some takings wait, and some cheques.
void LeaveSomethingToBank(Business& business) {
  business.Write(Sql("INSERT INTO lstBanks (Bank) VALUES ('Harbour Bank')"));
  int at = 0;
  for (const Record row :
       business.RunSQL(Sql("SELECT TOP 40 Payment_ID FROM Payments ORDER BY Payment_Date DESC"))) {
    constexpr const char* kMethods[] = {"CASH", "CHEQUE", "EFT", "Cash", "DIRECT DEBIT"};
    business.Write(
        Sql("UPDATE Payments SET Banking_ID = NULL, Payment_Method = {} "
            "WHERE Payment_ID = {}",
            kMethods[at++ % 5], row[size_t{0}]));
  }
  for (int week = 1; week <= 5; ++week)
    business.Write(
        Sql("INSERT INTO Bankings (Bank_Account_ID, Banking_Date, Cash_Banked, Cash_Unbanked, "
            "Total_Banked) VALUES (1, {}, {}, 0, {})",
            business.Today().addDays(-7 * week), 240 + 37 * week, 600 + 71 * week));
  for (const Record row :
       business.RunSQL(Sql("SELECT TOP 9 Purchase_ID FROM Purchases ORDER BY Purchase_Date DESC")))
    business.Write(
        Sql("UPDATE Purchases SET Payment_Method = 'CHEQUE', Cheque_Number = {}, "
            "Cheque_Reconciled = 0 WHERE Purchase_ID = {}",
            row[size_t{0}].ToLong() + 100200, row[size_t{0}]));
}

}  // namespace

void Shots::Accounts() {
  MainMenuMDI* window = program_.MainMenu();
  LeaveSomethingToBank(program_.OpenBusiness());
  const Navigator& to = window->Tools().navigator;
  auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("tabs"));
  const auto shown = [&] { return tabs->currentWidget()->findChild<Screen*>(); };
  const auto save = [&](const auto& request) {
    to.Open(request);
    shown()->template findChild<Grid*>()->SelectFirst();
    Save(window, shown()->objectName());
  };
  save(OpenBanking{});
  shown()->findChild<QCheckBox*>(QStringLiteral("chkTickUntickAll"))->click();
  shown()->findChild<QComboBox*>(QStringLiteral("cmbBankAccount"))->setCurrentIndex(0);
  Save(window, QStringLiteral("frmBanking-ticked"));
  shown()->findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentIndex(1);
  Save(window, QStringLiteral("frmBanking-cheques"));
  window->resize(853, 480);
  Save(window, QStringLiteral("frmBanking-at-150-percent"));
  window->resize(1280, 720);
  shown()->findChild<QCheckBox*>(QStringLiteral("chkTickUntickAll"))->click();
  CloseScreen();
  save(OpenChequeReconciliation{});
  CloseScreen();
  save(OpenSuppliers{});
  shown()->findChild<QPushButton*>(QStringLiteral("cmdMore"))->click();
  Save(window, QStringLiteral("frmSuppliers-more"));
  window->resize(853, 480);
  Save(window, QStringLiteral("frmSuppliers-at-150-percent"));
  window->resize(1280, 720);
  CloseScreen();
  save(OpenBankAccounts{});
  CloseScreen();
  save(OpenBanks{});
  CloseScreen();
  to.Open(OpenPurchasesList{});
  auto* from = shown()->findChild<DateField*>(QStringLiteral("dtpFrom"));
  from->SetDate(from->Date().addMonths(-2));
  emit from->dateChosen(from->Date());
  Save(window, QStringLiteral("frmPurchasesList"));
  CloseScreen();
  PurchaseDialogs();
}

void Shots::PurchaseDialogs() {
  Business& business = program_.OpenBusiness();
  const ScreenTools tools = program_.MainMenu()->Tools();
  const auto shoot = [this](QDialog& dialog, const char* name) {
    dialog.show();
    Save(&dialog, QString::fromLatin1(name));
    dialog.hide();
  };
  const Id<Purchase> asset(
      business.FirstField(Sql("SELECT MAX(Purchase_ID) FROM Purchases WHERE Capital = True"))
          .ToLong());
  accounts::PurchaseForm form = *accounts::LoadPurchase(business, asset);
  form.paymentMethod = QStringLiteral("CHEQUE");
  form.amount += Money::FromWhole(40);
  accounts::frmPurchase stored(business, tools, form);
  shoot(stored, "frmPurchase");
  stored.resize(853, 424);
  shoot(stored, "frmPurchase-at-150-percent");
  accounts::frmPurchase fresh(business, tools, accounts::BlankPurchase(business));
  shoot(fresh, "frmPurchase-new");
  accounts::dlgCountCash count(business.World().prompter);
  shoot(count, "dlgCountCash");
}

}  // namespace quillary::shell
