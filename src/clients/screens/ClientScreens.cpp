#include "clients/screens/ClientScreens.h"

#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Maintenance.h"
#include "clients/BillingNames.h"
#include "clients/screens/dlgClients.h"
#include "clients/screens/dlgDateWithClients.h"
#include "clients/screens/frmClientList.h"
#include "clients/screens/frmClients.h"
#include "clients/screens/frmCreateAQuote.h"
#include "clients/screens/frmGeneralNotes.h"

#include <QPointer>

#include <memory>

namespace quillary::clients {

namespace {

/// The clients that are open, each in a tab of its own.
using OpenClients = std::vector<QPointer<frmClients>>;

frmClients* Find(OpenClients& open, std::optional<Id<Client>> client) {
  std::erase_if(open, [](const QPointer<frmClients>& screen) { return screen.isNull(); });
  for (const QPointer<frmClients>& screen : open)
    if (screen->ClientId() == client) return screen;
  return nullptr;
}

/// All of them go by one name, so the one that is wanted takes another while it is looked for.
void BringToFront(const ScreenTools& tools, frmClients* screen) {
  const QString name = screen->objectName();
  const QString wanted = name + u' ' + QString::number(NumberOrZero(screen->ClientId()));
  screen->setObjectName(wanted);
  tools.host.BringToFront(wanted);
  screen->setObjectName(name);
}

void Show(Business& business, const ScreenTools& tools, OpenClients& open,
          std::optional<Id<Client>> client) {
  if (frmClients* screen = Find(open, client)) {
    BringToFront(tools, screen);
    screen->Reload();
    return;
  }
  auto screen = std::make_unique<frmClients>(business, tools);
  if (!screen->ShowYourself(client)) return;
  frmClients* shown = screen.release();
  open.emplace_back(shown);
  tools.host.ShowScreen(shown);
  shown->Enter();
}

}  // namespace

void RegisterClientScreens(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  auto open = std::make_shared<OpenClients>();
  navigator.Register<OpenClient>([&business, tools, open](const OpenClient& request) {
    Show(business, tools, *open, request.client);
  });
  navigator.Register<AddClient>(
      [&business, tools, open](const AddClient&) { Show(business, tools, *open, std::nullopt); });
  navigator.Register<OpenClientList>([&business, tools](const OpenClientList&) {
    if (Screen* list = tools.host.BringToFront(QStringLiteral("frmClientList"))) {
      list->Reload();
      return;
    }
    auto* list = new frmClientList(business, tools);
    tools.host.ShowScreen(list);
    list->ShowYourself();
  });
  navigator.Register<OpenCreateAQuote>([&business, tools](const OpenCreateAQuote& request) {
    const QString name = QStringLiteral("frmCreateAQuote");
    auto* quotes = qobject_cast<frmCreateAQuote*>(tools.host.BringToFront(name));
    const bool isNew = quotes == nullptr;
    if (isNew) {
      quotes = new frmCreateAQuote(business, tools);
      tools.host.ShowScreen(quotes);
    }
    if (isNew || request.client) quotes->ShowClient(request.client);
  });
  navigator.Register<OpenTransferOfPayments>(
      [&business, tools, open](const OpenTransferOfPayments&) {
        for (const QPointer<frmClients>& screen : *open)
          if (screen && screen->isVisible() && screen->ClientId())
            return screen->ShowTransferOfPayments();
        business.World().prompter.Tell(
            Tone::Information, QObject::tr("Open the client whose payments belong to another, then "
                                           "choose this command again."));
        tools.navigator.Open(OpenClientList{});
      });
  navigator.Register<UpdateBillingNames>([&business, tools](const UpdateBillingNames& request) {
    const NameOrder order =
        request.firstNameFirst ? NameOrder::FirstNameFirst : NameOrder::SurnameFirst;
    tools.runner.Run(
        QStringLiteral("MainMenuMDI"),
        request.firstNameFirst ? QStringLiteral("mnuFirstnameSurnameFormat_Click")
                               : QStringLiteral("mnuSurnameFirstnameFormat_Click"),
        [&] { UpdateBillingNamesAfterAsking(business, business.World().prompter, order); });
  });
  navigator.Register<EditGeneralNotes>([&business, tools](const EditGeneralNotes&) {
    return frmGeneralNotes(business, tools).exec() == QDialog::Accepted;
  });
  navigator.Register<PickClientReport>([&business, tools](const PickClientReport&) {
    dlgClients dialog(business.World().prompter, tools);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Criteria()) : std::nullopt;
  });
  navigator.Register<PickDatesWithClients>([&business, tools](const PickDatesWithClients&) {
    dlgDateWithClients dialog(business, tools);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Chosen()) : std::nullopt;
  });
}

}  // namespace quillary::clients
