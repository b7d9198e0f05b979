#include "base/ports/requests/Accounts.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Setup.h"
#include "billing/screens/dlgPaymentJobs.h"
#include "billing/screens/dlgPaymentOptions.h"
#include "billing/screens/frmPayments.h"
#include "billing/screens/frmPaymentsByAClient.h"
#include "kit/DateField.h"
#include "kit/Grid.h"
#include "shell/shots/Shots.h"

#include <QComboBox>
#include <QTabWidget>

/// The pictures of payments, the chart of accounts and the countries.
namespace quillary::shell {

void Shots::Payments() {
  MainMenuMDI* window = program_.MainMenu();
  const Navigator& to = window->Tools().navigator;
  auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("tabs"));
  to.Open(OpenPaymentsList{});
  auto* from = tabs->currentWidget()->findChild<DateField*>(QStringLiteral("dtpFrom"));
  from->SetDate(from->Date().addMonths(-2));
  emit from->dateChosen(from->Date());
  Save(window, QStringLiteral("frmPaymentsList"));
  window->resize(853, 480);
  Save(window, QStringLiteral("frmPaymentsList-at-150-percent"));
  window->resize(1280, 720);
  CloseScreen();
  const auto save = [&](const auto& request) {
    to.Open(request);
    tabs->currentWidget()->findChild<Grid*>()->SelectFirst();
    Save(window, tabs->currentWidget()->findChild<Screen*>()->objectName());
    CloseScreen();
  };
  save(OpenPaymentMethods{});
  save(OpenGeneralLedgerAccounts{});
  save(OpenCountries{});
  PaymentDialogs();
}

void Shots::PaymentDialogs() {
  Business& business = program_.OpenBusiness();
  const ScreenTools tools = program_.MainMenu()->Tools();
  const auto first = [&](const Sql& statement) { return business.FirstField(statement).ToLong(); };
  const auto shoot = [this](QDialog& dialog, const char* name = nullptr) {
    dialog.show();
    if (auto* grid = dialog.findChild<Grid*>()) grid->SelectFirst();
    Save(&dialog, name ? QString(name) : dialog.objectName());
    dialog.hide();
  };
  const Id<Payment> payment(
      first(Sql("SELECT TOP 1 Payment_ID FROM Diary WHERE Payment_ID IS NOT NULL "
                "GROUP BY Payment_ID ORDER BY Count(*) DESC, Payment_ID")));
  billing::frmPayments stored(business, tools, billing::LoadPayment(business, payment));
  shoot(stored);
  stored.resize(853, 424);
  shoot(stored, "frmPayments-at-150-percent");
  const Id<Entry> job(
      first(Sql("SELECT TOP 1 Diary_ID FROM Diary WHERE Status = {} "
                "AND Payment_ID IS NULL ORDER BY Diary_ID DESC",
                EntryStatus::JobDone)));
  const Id<Client> client(first(Sql("SELECT Client_ID FROM Diary WHERE Diary_ID = {}", job)));
  billing::PaymentForm form = billing::NewPayment(business, client, Money::FromWhole(55), job);
  form.paymentMethod = QStringLiteral("CHEQUE");
  billing::frmPayments forJob(business, tools, form);
  shoot(forJob, "frmPayments-cheque-for-a-job");
  billing::frmPayments missing(business, tools, std::nullopt);
  shoot(missing, "frmPayments-missing");
  billing::dlgPaymentJobs jobs(business, tools, payment);
  shoot(jobs);
  billing::dlgPaymentOptions options(business, tools, {client, job, Money::FromWhole(55)});
  shoot(options);
  billing::frmPaymentsByAClient ofClient(
      business, tools,
      Id<Client>(first(Sql("SELECT Client_ID FROM Payments WHERE Payment_ID = {}", payment))), job);
  shoot(ofClient);
}

}  // namespace quillary::shell
