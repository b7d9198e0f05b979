#include "link/OstrelHeadOffice.h"

#include "data/settings/LocalSettings.h"

#include <ifaddrs.h>
#include <net/if.h>
#include <netinet/in.h>

namespace quillary::link {
namespace {

/// Whether some interface beyond the machine itself is up and has an address.
bool HasNetwork() {
  ifaddrs* all = nullptr;
  if (getifaddrs(&all) != 0) return false;
  bool found = false;
  for (const ifaddrs* each = all; each; each = each->ifa_next) {
    const bool works = (each->ifa_flags & IFF_UP) && (each->ifa_flags & IFF_RUNNING) &&
                       !(each->ifa_flags & IFF_LOOPBACK);
    const int family = each->ifa_addr ? each->ifa_addr->sa_family : AF_UNSPEC;
    if (works && (family == AF_INET || family == AF_INET6)) found = true;
  }
  freeifaddrs(all);
  return found;
}

bool IsThisMachine(const QString& host) {
  return host == u"localhost" || host == u"127.0.0.1";
}

}  // namespace

bool HeadOfficeAccount::IsKnown() const {
  try {
    // Names below "example" belong to nobody; the preset address is one.
    const QString host = ParseURL(url).host;
    return !host.isEmpty() && !host.endsWith(u".example") && !userName.isEmpty();
  } catch (const LinkError&) {
    return false;
  }
}

std::optional<HeadOfficeAccount> ReadHeadOfficeAccount(const QString& programFolder,
                                                       Prompter& prompter) {
  LocalSettings settings(programFolder, prompter);
  if (!settings.Initialize()) return std::nullopt;
  return HeadOfficeAccount{settings.ostrel4NetURL, settings.ostrel4NetUserName,
                           settings.ostrel4NetPassword,
                           settings.ReadLocalSetting(QStringLiteral("OSTREL4NET"),
                                                     QStringLiteral("Ostrel4NetCertificates"))};
}

std::optional<HeadOfficeAccount> OstrelHeadOffice::Account() const {
  return account_ ? account_ : ReadHeadOfficeAccount(programFolder_, prompter_);
}

bool OstrelHeadOffice::IsConnected() const {
  const auto account = Account();
  if (!account || !account->IsKnown()) return false;
  return IsThisMachine(ParseURL(account->url).host) || HasNetwork();
}

bool OstrelHeadOffice::LogIn() {
  if (webServicesConnected_ && session_ && session_->IsLoggedOn()) return true;
  webServicesConnected_ = false;
  if (!IsConnected()) return false;
  const auto account = Account();
  try {
    session_ = std::make_unique<Wexor>(clock_, account->authorities);
    session_->SetLogFile(logFile_);
    session_->Login(account->userName, account->password, account->url, ServerDatabase(),
                    ServerData());
    webServicesConnected_ = !session_->SessionKey().isEmpty();
  } catch (const std::exception&) {
    prompter_.Tell(Tone::Exclamation, QStringLiteral("Cannot connet to Ostrel4Net."));
  }
  return webServicesConnected_;
}

QString OstrelHeadOffice::SessionKey() const {
  return webServicesConnected_ && session_ ? session_->SessionKey() : QString();
}

QString OstrelHeadOffice::FSECode() const {
  return fseCode_.isEmpty() ? QStringLiteral("[Not Set]") : fseCode_;
}

std::optional<EasyXML> OstrelHeadOffice::CallWebService(const QString& service,
                                                        const QString& method,
                                                        const Parameters& parameters) {
  if (!webServicesConnected_ || !session_) return std::nullopt;
  try {
    return session_->ExecuteXML(method, service, parameters);
  } catch (const LinkError&) {
    webServicesConnected_ = false;
    return std::nullopt;
  }
}

MailServer OstrelHeadOffice::GetSMTPDetails() {
  MailServer server;
  const auto reply =
      CallWebService(QStringLiteral("Quillary"), QStringLiteral("GetSMTPDetails"), {});
  if (!reply) return server;
  server.server = reply->Field(QStringLiteral("SMTP_Server"));
  server.userName = reply->Field(QStringLiteral("SMTP_User_Name"));
  server.password = reply->Field(QStringLiteral("SMTP_Password"));
  server.port = reply->Field(QStringLiteral("SMTP_Port"));
  const QString authenticates = reply->Field(QStringLiteral("SMTP_Use_Authentication"));
  server.useAuthentication =
      authenticates.compare(u"true", Qt::CaseInsensitive) == 0 || authenticates == u"1";
  return server;
}

void OstrelHeadOffice::LogQuillaryActivity(const QString& activity) {
  if (!webServicesConnected_ || !session_ || fseCode_.isEmpty()) return;
  // Nobody waits for it: the user's command must not be slower for being noted.
  session_->StartXML(QStringLiteral("LogQuillaryActivity"), QStringLiteral("Quillary"),
                     {{QStringLiteral("Session_Key"), session_->SessionKey()},
                      {QStringLiteral("FSECode"), fseCode_},
                      {QStringLiteral("Activity"), activity}});
}

void OstrelHeadOffice::SetLogFile(const QString& path) {
  logFile_ = path;
  if (session_) session_->SetLogFile(path);
}

std::optional<QString> OstrelHeadOffice::CallMessages(
    const QString& method, const std::vector<std::pair<QString, QString>>& parameters) {
  Parameters fields;
  for (const auto& [name, value] : parameters) fields.push_back({name, value});
  const auto reply = CallWebService(QStringLiteral("Messages"), method, fields);
  if (!reply || !reply->IsReady()) return std::nullopt;
  return reply->Content();
}

void OstrelHeadOffice::Trace(const QString& text) {
  if (session_) session_->Log(text);
}

}  // namespace quillary::link
