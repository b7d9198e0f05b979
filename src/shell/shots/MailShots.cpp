#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Mail.h"
#include "kit/PageTabs.h"
#include "mail/Outbox.h"
#include "session/ProgramFolder.h"
#include "shell/shots/Shots.h"

#include <QCheckBox>
#include <QTabWidget>

/// The pictures of mails.
namespace quillary::shell {

namespace {

/// Mails in every state, and the client whose they are.
Id<Client> FillOutbox(Business& business) {
  const Id<Client> client(
      business
          .FirstField(Sql("SELECT TOP 1 Client_ID FROM Clients WHERE Email IS NOT NULL ORDER BY "
                          "Client_ID"))
          .ToLong());
  const QString docs = QDir(session::ProgramFolder()).filePath(QStringLiteral("Report Doc"));
  QDir().mkpath(docs);
  mail::Outbox outbox(business);
  const std::pair<mail::State, const char*> states[] = {
      {mail::State::Sent, ""},
      {mail::State::Failed, "RCPT failed: 550 (the server's answer was 550)"},
      {mail::State::InDoubt, "Connection died, so nobody knows whether it arrived"},
      {mail::State::Waiting, ""}};
  int number = 1041;
  for (const auto& [state, reason] : states) {
    QFile file(QDir(docs).filePath(QStringLiteral("Invoice - %1.pdf").arg(++number)));
    if (file.open(QIODevice::WriteOnly)) file.write("%PDF");
    file.close();
    const qint64 mail = outbox
                            .Put({{.route = mail::Route::Smtp,
                                   .contents = mail::Contents::Invoice,
                                   .client = client,
                                   .invoices = {},
                                   .to = QStringLiteral("ann@example.org"),
                                   .toName = QStringLiteral("Ann Able"),
                                   .subject = QStringLiteral("Invoice"),
                                   .text = QStringLiteral("Dear client"),
                                   .document = file.fileName()}})
                            .front();
    if (state == mail::State::Waiting) continue;
    outbox.MarkSending(*outbox.Find(mail));
    outbox.MarkEnded(*outbox.Find(mail), state, QString::fromLatin1(reason));
  }
  return client;
}

}  // namespace

void Shots::Mails() {
  MainMenuMDI* window = program_.MainMenu();
  Business& business = program_.OpenBusiness();
  const Navigator& navigator = window->Tools().navigator;
  navigator.Open(OpenOutbox{});
  Save(window, QStringLiteral("frmEmailingServices-empty"));
  CloseScreen();
  const Id<Client> client = FillOutbox(business);
  navigator.Open(OpenOutbox{});
  auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("tabs"));
  tabs->currentWidget()->findChild<QCheckBox*>(QStringLiteral("chkShowSent"))->click();
  Save(window, QStringLiteral("frmEmailingServices"));
  window->resize(853, 480);
  Save(window, QStringLiteral("frmEmailingServices-at-150-percent"));
  window->resize(1280, 720);
  CloseScreen();
  SaveRequest(OpenSentDocuments{});
  SaveRequest(OpenMailMerge{});
  SaveDialog([&] { navigator.Open(EmailFile{QStringLiteral("Invoice"), {}, {client}}); });
  std::vector<Id<Invoice>> invoices;
  for (const Record row : business.RunSQL(Sql("SELECT TOP 12 Invoice_ID FROM Invoices")))
    invoices.emplace_back(row[u"Invoice_ID"].ToLong());
  SaveRequest(EmailDocuments{.invoices = invoices, .days = {}, .priceIncludesGST = true});
  navigator.Open(OpenClient{client});
  auto* pages = tabs->currentWidget()->findChild<QTabWidget*>(QStringLiteral("pages"));
  pages->setCurrentIndex(pages->count() - 1);
  Save(window, QStringLiteral("frmClients-mails"));
  CloseScreen();
}

}  // namespace quillary::shell
