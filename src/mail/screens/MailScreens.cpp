#include "mail/screens/MailScreens.h"

#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Mail.h"
#include "mail/Sending.h"
#include "mail/SentDocuments.h"
#include "mail/screens/dlgEmailDocuments.h"
#include "mail/screens/dlgSentDocuments.h"
#include "mail/screens/frmEmailList.h"
#include "mail/screens/frmEmailingServices.h"
#include "mail/screens/frmMailMerge.h"

namespace quillary::mail {
namespace {

bool Mail(Business& business, const ScreenTools& tools, const EmailFile& request) {
  frmEmailList list(
      business, tools,
      request.clients.empty() ? ClientsOfInvoices(business, request.invoices) : request.clients);
  const auto selected = list.SelectAnEmail();
  if (!selected) return false;
  const BusyWhile busy(business.World().busy);
  return SendNow(business, {.route = selected->route,
                            .contents = Contents::File,
                            .client = selected->client,
                            .invoices = request.invoices,
                            .to = selected->address,
                            .toName = selected->name,
                            .subject = request.subject,
                            .text = selected->text,
                            .document = request.file});
}

std::vector<MailToClient> MailsTo(Business& business, Id<Client> client) {
  std::vector<MailToClient> rows;
  for (const StoredMail& mail : LoadSent(business, client))
    rows.push_back({.number = mail.number,
                    .state = WordOf(mail.state),
                    .hue = static_cast<int>(HueOf(mail.state)),
                    .when = mail.ended.IsValid() ? mail.ended : mail.queued,
                    .to = mail.to,
                    .subject = mail.subject,
                    .route = WordOf(mail.route),
                    .document = mail.document});
  return rows;
}

}  // namespace

void RegisterMailScreens(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<SendMail>([&business](const SendMail& request) {
    return SendMailDirectly(business, request.to, request.subject, request.body);
  });
  navigator.Register<EmailFile>(
      [&business, tools](const EmailFile& request) { return Mail(business, tools, request); });
  navigator.Register<OpenOutbox>([&business, tools](const OpenOutbox&) {
    ShowTab(tools, "frmEmailingServices", [&] { return new frmEmailingServices(business, tools); });
  });
  navigator.Register<EmailDocuments>([&business, tools](const EmailDocuments& request) {
    dlgEmailDocuments dialog(business, request);
    if (dialog.exec() != QDialog::Accepted) return;
    tools.navigator.Open(OpenOutbox{});
    frmEmailingServices::SendAll(business);
  });
  navigator.Register<OpenSentDocuments>(
      [&business, tools](const OpenSentDocuments&) { dlgSentDocuments(business, tools).exec(); });
  navigator.Register<OpenMailMerge>(
      [&business, tools](const OpenMailMerge&) { frmMailMerge(business, tools).exec(); });
  navigator.Register<ListMailsTo>(
      [&business](const ListMailsTo& request) { return MailsTo(business, request.client); });
  navigator.Register<OpenMailedDocument>(
      [&business](const OpenMailedDocument& request) { OpenDocument(business, request.file); });
}

}  // namespace quillary::mail
