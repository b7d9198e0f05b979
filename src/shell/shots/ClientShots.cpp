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

/// The key that a statement finds first.
qint64 First(Business& business, const char* statement) {
  return business.RunSQL(QString::fromLatin1(statement)).Field(size_t{0}).ToLong();
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

  const qint64 busy = First(business,
                            "SELECT TOP 1 Client_ID FROM Client_Services WHERE Client_ID IN "
                            "(SELECT Client_ID FROM Clients WHERE Status = 'Active' AND "
                            "Account_Balance < 0 AND Is_Billed_To = Yes) GROUP BY Client_ID "
                            "ORDER BY Count(*) DESC, Client_ID");
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

  to.Open(OpenClient{First(business,
                           "SELECT TOP 1 Client_ID FROM Clients WHERE Status = 'Active' AND "
                           "Is_Billed_To = No ORDER BY Client_ID")});
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

void Shots::ClientDialogs(qint64 clientId) {
  Business& business = program_.OpenBusiness();
  const ScreenTools tools = program_.MainMenu()->Tools();
  const auto shoot = [this](QDialog& dialog) {
    dialog.show();
    Save(&dialog, dialog.objectName());
  };
  clients::frmNewBillingAddress address(business, tools,
                                        First(business,
                                              "SELECT TOP 1 Client_ID FROM Clients WHERE Status = "
                                              "'Billing address' ORDER BY Client_ID"));
  shoot(address);
  clients::frmSetJobPricesForMonthly prices(business, tools, clientId);
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
