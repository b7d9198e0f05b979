#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "link/AcquiredServices.h"
#include "link/CopyFromHeadOffice.h"
#include "link/DatabaseUpload.h"
#include "link/OstrelHeadOffice.h"
#include "session/ProgramFolder.h"

#include <QFileInfo>

/// What goes between the business and the group's server.
namespace quillary::cli {
namespace {

/// The account of qy.ini, with what the call says instead. The password comes from the environment,
/// since every user of a machine can read the command lines of others.
link::HeadOfficeAccount AccountOf(const Call& call) {
  auto account = link::ReadHeadOfficeAccount(session::ProgramFolder(), call.world.prompter);
  if (!account) throw CommandFailure(QStringLiteral("qy.ini names no head office"));
  const auto& options = call.arguments.options;
  account->url = options.value(QStringLiteral("server"), account->url);
  account->userName = options.value(QStringLiteral("user"), account->userName);
  account->password = qEnvironmentVariable("QUILLARY_PASSWORD", account->password);
  account->authorities = options.value(QStringLiteral("certificates"), account->authorities);
  return *account;
}

/// Logs in as the call says. Throws CommandFailure with the last error.
std::unique_ptr<link::Wexor> LoggedIn(const Call& call) {
  const link::HeadOfficeAccount account = AccountOf(call);
  auto session = std::make_unique<link::Wexor>(call.world.clock, account.authorities);
  session->Login(account.userName, account.password, account.url, link::ServerDatabase(),
                 link::ServerData());
  if (!session->IsLoggedOn()) throw CommandFailure(session->LastError());
  return session;
}

QString Archive() {
  return session::ArchiveUnder(session::ProgramFolder());
}

void Ping(const Call& call) {
  const auto session = LoggedIn(call);
  session->ExecuteXML(QStringLiteral("Ping"), QStringLiteral("Sessions"), {});
  ResultTable table({"Server", "Session", "Session_Key"});
  table.AddRow({session->ServerURL(), QStringLiteral("logged on"),
                session->SessionKey().left(10) + QStringLiteral("...")});
  session->LogOut();
  PrintTable(call, table);
}

void SmtpDetails(const Call& call) {
  link::OstrelHeadOffice office(call.world.clock, call.world.prompter, session::ProgramFolder());
  office.Use(AccountOf(call));
  if (!office.LogIn()) throw CommandFailure(office.LastError());
  const MailServer server = office.GetSMTPDetails();
  ResultTable table(
      {"SMTP_Server", "SMTP_User_Name", "SMTP_Password", "SMTP_Port", "SMTP_Use_Authentication"});
  table.AddRow({server.server, server.userName,
                server.password.isEmpty() ? QString() : QStringLiteral("(hidden)"), server.port,
                server.useAuthentication});
  PrintTable(call, table);
}

void Upload(const Call& call) {
  const auto business = OpenCurrentBusiness(call);
  // An upload overwrites the one before, which nobody shall do by a slip of the keys.
  if (!call.world.prompter.AllowsYes())
    throw CommandFailure(
        QStringLiteral("uploading replaces what head office has; --yes allows it"));
  if (call.arguments.Has("compact")) business->values.compactDatabaseBeforeUpload = true;
  bool asked = false;
  const link::UploadTools tools{.logIn = [&] { return LoggedIn(call); },
                                .archive = Archive(),
                                .pickWorkArea = [&]() -> std::optional<QString> {
                                  if (std::exchange(asked, true)) return std::nullopt;
                                  return QFileInfo(call.File()).absolutePath();
                                }};
  const bool done = link::UploadDatabaseFile(*business, tools);
  business->CloseConnection();
  if (!done) throw CommandFailure(QStringLiteral("the business was not uploaded"));
}

void CopyDown(const Call& call) {
  const link::HeadOfficeAccount account = AccountOf(call);
  const link::CopyChoice choice{.userName = account.userName,
                                .password = account.password,
                                .services = call.arguments.Has("services"),
                                .clients = call.arguments.Has("clients"),
                                .details = call.arguments.Has("details")};
  ThrowIf(link::CheckCopyChoice(choice));
  const auto business = OpenCurrentBusiness(call);
  const bool done = link::CopyFromHeadOffice(*business, account, choice, Archive());
  business->CloseConnection();
  if (!done)
    throw CommandFailure(QStringLiteral("nothing was copied; what is replaced needs --yes"));
}

void Services(const Call& call) {
  const auto session = LoggedIn(call);
  const auto offered = link::GetServices(*session);
  const QString group = call.arguments.options.value(QStringLiteral("division"));
  if (call.arguments.Has("download")) {
    const auto business = OpenCurrentBusiness(call);
    const link::AcquireOutcome outcome =
        link::ReplaceServices(*business, offered, group, Archive());
    ThrowIf(outcome.refusal);
    business->CloseConnection();
    if (!outcome.done)
      throw CommandFailure(QStringLiteral("the services were not replaced; --yes allows it"));
    return;
  }
  ResultTable table({"Service_Group_ID", "Service_Group_Name", "Name", "Code"});
  for (const link::OfferedService& each : group.isEmpty() ? offered : link::OfGroup(offered, group))
    table.AddRow({each.groupId, each.groupName, each.name, each.code});
  PrintTable(call, table);
}

void RunHeadOffice(const Call& call) {
  static const std::map<QString, void (*)(const Call&)> actions = {
      {QStringLiteral("ping"), Ping},
      {QStringLiteral("smtp-details"), SmtpDetails},
      {QStringLiteral("upload"), Upload},
      {QStringLiteral("copy-down"), CopyDown},
      {QStringLiteral("services"), Services}};
  const auto action = actions.find(call.arguments.positional.at(1));
  if (action == actions.end())
    throw WrongUsage(
        QStringLiteral("headoffice knows ping, smtp-details, upload, copy-down and "
                       "services"));
  try {
    action->second(call);
  } catch (const link::LinkError& error) {
    throw CommandFailure(QString::fromUtf8(error.what()));
  }
}

}  // namespace

std::vector<Command> HeadOfficeCommands() {
  return {{"headoffice",
           "FILE ping | smtp-details | upload [--compact] --yes | copy-down [--services] "
           "[--clients] [--details] --yes | services [--division ID] [--download --yes]",
           "Talks to the group's server as qy.ini says, or with the password of "
           "QUILLARY_PASSWORD.",
           {{"server", "URL", "the address, instead of that of qy.ini"},
            {"user", "U", "the user name, instead of that of qy.ini"},
            {"certificates", "FILE", "certificates to trust instead of the system's"},
            {"compact", nullptr, "compacts the business before the upload"},
            {"services", nullptr, "copies the services down"},
            {"clients", nullptr, "copies the clients down"},
            {"details", nullptr, "copies your own details down"},
            {"division", "ID", "the group of services"},
            {"download", nullptr, "replaces the services by those of the division"}},
           2,
           2,
           RunHeadOffice}};
}

}  // namespace quillary::cli
