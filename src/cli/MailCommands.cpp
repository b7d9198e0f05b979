#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "data/settings/PerUserSettings.h"
#include "mail/DocumentMails.h"
#include "mail/Sending.h"
#include "mail/SentDocuments.h"
#include "mail/SmtpCourier.h"
#include "pdf/PDFTypes.h"
#include "session/ProgramFolder.h"

#include <QFileInfo>

/// Mails: one, documents to their clients, the outbox, and what was sent.
namespace quillary::cli {
namespace {

QString WordsOf(const Call& call, const char* option) {
  return call.arguments.options.value(QLatin1StringView(option));
}

QString NeededWords(const Call& call, const char* option) {
  const QString words = WordsOf(call, option);
  if (words.isEmpty())
    throw WrongUsage(QStringLiteral("--%1 is missing").arg(QLatin1StringView(option)));
  return words;
}

/// The business with the user's own settings of mail, which a script would not see otherwise.
struct MailBusiness {
  explicit MailBusiness(const Call& call) {
    const Outside ports = call.world.Ports();
    business =
        std::make_unique<Business>(Outside{ports.clock, ports.prompter, ports.errors, ports.busy,
                                           user, ports.headOffice, ports.desktop},
                                   call.File());
    business->ConnectToDatabase();
    LoadSharedValues(*business);
    mail::GetSMTPDetails(*business);
  }
  PerUserSettings user;
  std::unique_ptr<Business> business;
};

mail::Route RouteOf(const Call& call) {
  const QString word = NeededWords(call, "route");
  const auto route = mail::RouteFromCode(word);
  if (!route || *route == mail::Route::LocalMailClient)
    throw WrongUsage(QStringLiteral("--route takes headoffice or smtp, not \"%1\"").arg(word));
  return *route;
}

/// The server of the settings, or the one that the command line names.
mail::SmtpServer ServerOf(const Call& call, const Business& business) {
  mail::SmtpServer server = mail::SmtpServerOf(business);
  if (call.arguments.Has("smtp")) {
    const auto named = mail::ParseSmtpServer(WordsOf(call, "smtp"));
    if (!named) throw WrongUsage(QStringLiteral("--smtp takes HOST or HOST:PORT"));
    server = *named;
  }
  if (call.arguments.Has("tls")) {
    const auto security = mail::LineSecurityFromCode(WordsOf(call, "tls"));
    if (!security) throw WrongUsage(QStringLiteral("--tls takes none, starttls or tls"));
    server.security = *security;
  }
  if (call.arguments.Has("ca")) server.authorities = WordsOf(call, "ca");
  if (call.arguments.Has("smtp-user")) server.userName = WordsOf(call, "smtp-user");
  // Never on the command line, which every user of the machine can read.
  const QString password = qEnvironmentVariable("QUILLARY_SMTP_PASSWORD");
  if (!password.isEmpty()) server.password = password;
  return server;
}

std::unique_ptr<mail::Courier> CourierOf(const Call& call, Business& business, mail::Route route) {
  if (route != mail::Route::Smtp) return mail::MakeCourier(business, route);
  const mail::SmtpServer server = ServerOf(call, business);
  ThrowIf(mail::CheckSmtpServer(server));
  return std::make_unique<mail::SmtpCourier>(server);
}

ResultTable TableOf(const std::vector<mail::StoredMail>& mails) {
  ResultTable table({"Mail_ID", "State", "Route", "Contents", "Client_ID", "To_Address", "Subject",
                     "Document", "Queued", "Ended", "Attempts", "Message_ID", "Reason"});
  for (const mail::StoredMail& mail : mails)
    table.AddRow({mail.number, CodeOf(mail.state), CodeOf(mail.route), CodeOf(mail.contents),
                  mail.client ? Value(mail.client->Number()) : Value(), mail.to, mail.subject,
                  mail.document, ToIsoText(mail.queued),
                  mail.ended.IsValid() ? ToIsoText(mail.ended) : QString(),
                  static_cast<qint64>(mail.attempts), mail.messageId, mail.reason.simplified()});
  return table;
}

/// Sends what waits, and fails when not all of it has left.
void SendAndTell(const Call& call, Business& business, mail::Outbox& outbox, mail::Route route) {
  const auto courier = CourierOf(call, business, route);
  const mail::RunResult result = mail::SendWaiting(business, outbox, *courier);
  call.world.prompter.Tell(
      result.left + result.failed + result.inDoubt > 0 ? Tone::Exclamation : Tone::Information,
      result.InWords(), SystemTitle());
}

void RunMail(const Call& call) {
  const mail::Route route = RouteOf(call);
  mail::NewMail mail;
  mail.route = route;
  mail.to = NeededWords(call, "to");
  mail.toName = WordsOf(call, "name");
  mail.subject = NeededWords(call, "subject");
  mail.text = NeededWords(call, "message");
  mail.document = WordsOf(call, "attach");
  if (const auto fault = mail::FaultOfAddress(mail.to)) throw CommandFailure(*fault);
  if (!mail.document.isEmpty()) {
    if (!QFileInfo(mail.document).isFile())
      throw CommandFailure(QStringLiteral("there is no file %1").arg(mail.document));
    mail.document = QFileInfo(mail.document).absoluteFilePath();
    mail.contents = mail::Contents::File;
  }
  MailBusiness open(call);
  mail::Outbox outbox(*open.business);
  const auto courier = CourierOf(call, *open.business, route);
  const qint64 number = outbox.Put({mail}).front();
  mail::SendWaiting(*open.business, outbox, *courier);
  const auto stored = outbox.Find(number);
  PrintTable(call, TableOf({*stored}));
  if (stored->state != mail::State::Sent) throw CommandFailure(stored->reason);
}

void RunMailDocuments(const Call& call) {
  const QString kind = call.arguments.positional.at(1);
  const auto contents = mail::ContentsFromCode(kind);
  if (!contents || *contents == mail::Contents::Text || *contents == mail::Contents::File)
    throw WrongUsage(QStringLiteral("there is no document \"%1\"").arg(kind));
  mail::DocumentRun run;
  run.contents = *contents;
  run.route = RouteOf(call);
  run.invoices = ParseIds<Invoice>(NeededWords(call, "invoices").split(u',', Qt::SkipEmptyParts));
  run.days = {call.arguments.Date("from").value_or(QDate()),
              call.arguments.Date("to").value_or(QDate())};
  run.again = call.arguments.Has("again");
  MailBusiness open(call);
  Business& business = *open.business;
  run.text = call.arguments.Has("message") ? WordsOf(call, "message") : mail::DefaultText(business);
  mail::Outbox outbox(business);
  const documents::ReportPlaces places = documents::ReportPlacesUnder(session::ProgramFolder());
  const documents::BillingPlaces billing{
      .report = places, .fonts = std::make_shared<const documents::PageFonts>(places.fontFolder)};
  try {
    const mail::QueuedDocuments queued = mail::QueueDocuments(business, outbox, billing, run);
    call.world.prompter.Tell(
        queued.withoutAddress.isEmpty() ? Tone::Information : Tone::Exclamation, queued.InWords(),
        SystemTitle());
  } catch (const PDFError& error) {
    throw CommandFailure(QString::fromUtf8(error.what()));
  }
  if (!call.arguments.Has("hold")) SendAndTell(call, business, outbox, run.route);
  if (call.json) PrintTable(call, TableOf(outbox.All()));
}

void RunOutbox(const Call& call) {
  MailBusiness open(call);
  if (!mail::Outbox::Exists(*open.business)) {
    PrintTable(call, TableOf({}));
    return;
  }
  mail::Outbox outbox(*open.business);
  for (const QString& number : call.arguments.All("arrived")) outbox.SettleAsSent(ParseKey(number));
  for (const QString& number : call.arguments.All("again")) outbox.SettleAsUnsent(ParseKey(number));
  if (call.arguments.Has("retry")) {
    for (const mail::StoredMail& mail : outbox.In(mail::State::Failed)) outbox.Retry(mail.number);
    for (const mail::Route route : {mail::Route::HeadOffice, mail::Route::Smtp}) {
      const auto waiting = outbox.In(mail::State::Waiting);
      if (std::ranges::find(waiting, route, &mail::StoredMail::route) != waiting.end())
        SendAndTell(call, *open.business, outbox, route);
    }
  }
  std::vector<mail::StoredMail> mails = outbox.All();
  std::erase_if(mails, [](const mail::StoredMail& mail) { return !mail.IsOpen(); });
  PrintTable(call, TableOf(mails));
}

void RunSent(const Call& call) {
  MailBusiness open(call);
  std::vector<mail::StoredMail> mails =
      mail::LoadSent(*open.business, call.arguments.Key<Client>("client"));
  std::erase_if(mails, [](const mail::StoredMail& mail) { return mail.IsOpen(); });
  PrintTable(call, TableOf(mails));
}

std::vector<Option> WithServer(std::vector<Option> options) {
  const std::initializer_list<Option> server = {
      {"smtp", "HOST:PORT", "the mail server; that of the settings when missing"},
      {"tls", "HOW", "none, starttls or tls; starttls unless told"},
      {"smtp-user", "NAME", "the login; its password comes from QUILLARY_SMTP_PASSWORD"},
      {"ca", "FILE", "certificates to trust instead of the system's"}};
  options.insert(options.end(), server);
  return options;
}

}  // namespace

std::vector<Command> MailCommands() {
  return {
      {"mail",
       "FILE --to A [--name N] --subject T --message T [--attach F] --route headoffice|smtp",
       "Sends one mail through the outbox.",
       WithServer({{"to", "A", "the address"},
                   {"name", "N", "the receiver's name"},
                   {"subject", "T", "what it is about"},
                   {"message", "T", "the text"},
                   {"attach", "F", "a file that goes with it"},
                   {"route", "R", "headoffice or smtp"}}),
       1, 1, RunMail},
      {"mail-documents",
       "FILE invoice|statement|reminder --invoices ID,... --route headoffice|smtp",
       "Sends documents to their clients. One that the outbox has already is not sent again, so a "
       "run that ended early is simply begun anew.",
       WithServer({{"invoices", "ID,...", "the invoices that they are about"},
                   {"route", "R", "headoffice or smtp"},
                   {"message", "T", "the text; that of the settings when missing"},
                   {"from", "DATE", "first day of a statement; else that of its oldest invoice"},
                   {"to", "DATE", "last day of a statement; else today"},
                   {"again", nullptr, "also those that the outbox has already"},
                   {"hold", nullptr, "only put them into the outbox"}}),
       2, 2, RunMailDocuments},
      {"outbox", "FILE [--retry] [--arrived MAIL_ID]... [--again MAIL_ID]...",
       "Lists the mails that have not been sent, or not for certain.",
       WithServer({{"retry", nullptr, "send what waits or has failed"},
                   {"arrived", "MAIL_ID", "one in doubt has arrived"},
                   {"again", "MAIL_ID", "one in doubt is to be sent once more"}}),
       1, 1, RunOutbox},
      {"sent",
       "FILE [--client ID]",
       "Lists the mails that were sent.",
       {{"client", "ID", "only those to this client"}},
       1,
       1,
       RunSent},
  };
}

}  // namespace quillary::cli
