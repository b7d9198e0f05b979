#include "balances/screens/frmDebtors.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "clients/screens/dlgClients.h"
#include "clients/screens/dlgDateWithClients.h"
#include "clients/screens/frmGeneralNotes.h"
#include "clients/screens/frmNewBillingAddress.h"
#include "clients/screens/frmSetJobPricesForMonthly.h"
#include "kit/Grid.h"
#include "shell/Hands.h"
#include "shell/shots/Shots.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTabWidget>

/// The pictures of the client screens.
namespace quillary::shell {

namespace {

Id<Client> First(Business& business, const Sql& statement) {
  return Id<Client>(business.FirstField(statement).ToLong());
}

}  // namespace

void Shots::Clients() {
  MainMenuMDI* window = program_.MainMenu();
  Business& business = program_.OpenBusiness();
  const Navigator& to = window->Tools().navigator;
  to.Open(OpenClientList{});
  Save(window, QStringLiteral("frmClientList"));
  auto* search = window->findChild<QLineEdit*>(QStringLiteral("txtSearch"));
  search->setText(QStringLiteral("kew a"));
  Save(window, QStringLiteral("frmClientList-searched"));
  search->clear();

  const Id<Client> busy =
      First(business, Sql("SELECT TOP 1 Client_ID FROM Client_Services WHERE Client_ID IN "
                          "(SELECT Client_ID FROM Clients WHERE Status = {} AND "
                          "Account_Balance < 0 AND Is_Billed_To = Yes) GROUP BY Client_ID "
                          "ORDER BY Count(*) DESC, Client_ID",
                          ClientStatus::Active));
  to.Open(OpenClient{busy});
  auto* pages = window->findChild<QTabWidget*>(QStringLiteral("pages"));
  for (int page = 0; page < pages->count(); ++page) {
    pages->setCurrentIndex(page);
    Save(window, QStringLiteral("frmClients-") + pages->tabText(page).section(u' ', 0, 0));
  }
  window->resize(853, 480);
  for (const int page : {0, 1, 2}) {
    pages->setCurrentIndex(page);
    Save(window, QStringLiteral("frmClients-at-150-percent"));
  }
  window->resize(1280, 720);
  CloseScreen();

  to.Open(
      OpenClient{First(business, Sql("SELECT TOP 1 Client_ID FROM Clients WHERE Status = {} AND "
                                     "Is_Billed_To = No ORDER BY Client_ID",
                                     ClientStatus::Active))});
  pages = window->findChild<QTabWidget*>(QStringLiteral("pages"));
  pages->setCurrentIndex(2);
  Save(window, QStringLiteral("frmClients-billed-elsewhere"));
  pages->setCurrentIndex(6);
  Save(window, QStringLiteral("frmClients-billed-elsewhere-payments"));
  CloseScreen();
  to.Open(AddClient{});
  Save(window, QStringLiteral("frmClients-new"));
  CloseScreen();
  CloseScreen();
  ClientDialogs(busy);

  to.Open(OpenDebtors{});
  Save(window, QStringLiteral("frmDebtors"));
  window->findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentIndex(1);
  Save(window, QStringLiteral("frmDebtors-creditors"));
  window->findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentIndex(0);
  window->resize(853, 480);
  Save(window, QStringLiteral("frmDebtors-at-150-percent"));
  window->resize(1280, 720);
  CloseScreen();
}

void Shots::ClientDialogs(Id<Client> client) {
  Business& business = program_.OpenBusiness();
  const ScreenTools tools = program_.MainMenu()->Tools();
  const auto shoot = [this](QDialog& dialog) {
    dialog.show();
    Save(&dialog, dialog.objectName());
  };
  clients::frmNewBillingAddress address(business, tools,
                                        First(business, Sql("SELECT TOP 1 Client_ID FROM Clients "
                                                            "WHERE Status = {} ORDER BY Client_ID",
                                                            ClientStatus::BillingAddress)));
  shoot(address);
  clients::frmSetJobPricesForMonthly prices(business, tools, client);
  shoot(prices);
  clients::frmGeneralNotes notes(business, tools);
  shoot(notes);
  clients::dlgClients which(ports_.prompter, tools);
  shoot(which);
  clients::dlgDateWithClients dates(business, tools);
  shoot(dates);
}

void Shots::CloseScreen() {
  auto* tabs = program_.MainMenu()->findChild<QTabWidget*>(QStringLiteral("tabs"));
  emit tabs->tabCloseRequested(tabs->currentIndex());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace quillary::shell
