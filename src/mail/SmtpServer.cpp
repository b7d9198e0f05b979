#include "mail/SmtpServer.h"

#include "mail/DefaultAccount.h"

#include <QRegularExpression>

namespace quillary::mail {
namespace {

constexpr int kSubmissionPort = 587;
constexpr int kTlsPort = 465;
constexpr int kLargestPort = 65535;

QString Setting(const Business& business, const char* key) {
  return business.World().settings.Read(QStringLiteral("Email"), QString::fromLatin1(key));
}

/// The line is secured in the way that is usual on the port, unless the user has said how.
LineSecurity SecurityOf(const QString& setting, int port) {
  if (const auto said = LineSecurityFromCode(setting)) return *said;
  return port == kTlsPort ? LineSecurity::Tls : LineSecurity::StartTls;
}

}  // namespace

std::optional<LineSecurity> LineSecurityFromCode(const QString& code) {
  if (code == u"starttls") return LineSecurity::StartTls;
  if (code == u"tls") return LineSecurity::Tls;
  if (code == u"none") return LineSecurity::None;
  return std::nullopt;
}

QString CodeOf(LineSecurity security) {
  return security == LineSecurity::StartTls ? QStringLiteral("starttls")
         : security == LineSecurity::Tls    ? QStringLiteral("tls")
                                            : QStringLiteral("none");
}

int SmtpServer::UsedPort() const {
  if (port > 0) return port;
  return security == LineSecurity::Tls ? kTlsPort : kSubmissionPort;
}

std::optional<SmtpServer> ParseSmtpServer(const QString& text) {
  static const QRegularExpression form(
      QStringLiteral("\\A(\\[[0-9A-Fa-f:.]+\\]|[A-Za-z0-9._-]+)(?::([0-9]{1,5}))?\\z"));
  const auto match = form.match(text.trimmed());
  if (!match.hasMatch()) return std::nullopt;
  SmtpServer server;
  server.host = match.captured(1);
  server.port = match.captured(2).toInt();
  if (server.port > kLargestPort || (match.hasCaptured(2) && server.port == 0)) return std::nullopt;
  return server;
}

std::optional<Refusal> CheckSmtpServer(const SmtpServer& server) {
  if (server.host.isEmpty())
    return Refusal{QStringLiteral("No mail server is known. Please enter one under Setup, "
                                  "Miscellaneous settings, or choose another way of sending."),
                   QStringLiteral("smtpHost")};
  const bool staysHere =
      server.host == u"localhost" || server.host == u"127.0.0.1" || server.host == u"[::1]";
  if (server.security == LineSecurity::None && !server.userName.isEmpty() && !staysHere)
    return Refusal{QStringLiteral("The password is not sent to %1, since the line would be open to "
                                  "others. Please use STARTTLS or TLS.")
                       .arg(server.host),
                   QStringLiteral("smtpSecurity")};
  return std::nullopt;
}

SmtpServer SmtpServerOf(const Business& business) {
  const QString security = Setting(business, "SMTP Security");
  const QString authorities = Setting(business, "SMTP Certificates");
  const QString host = Setting(business, "SMTP Server").trimmed();
  if (!host.isEmpty()) {
    SmtpServer server = ParseSmtpServer(host).value_or(SmtpServer());
    server.security = SecurityOf(security, server.port);
    server.userName = Setting(business, "SMTP UserName").trimmed();
    server.password = Setting(business, "SMTP Password");
    server.authorities = authorities;
    return server;
  }
  const MailServer& told = business.values.mailServer;
  SmtpServer server = ParseSmtpServer(told.server).value_or(SmtpServer());
  if (server.host.isEmpty()) return server;
  if (const int port = told.port.toInt(); port > 0 && port <= kLargestPort) server.port = port;
  server.security = SecurityOf(security, server.port);
  server.authorities = authorities;
  if (told.useAuthentication) {
    server.userName = told.userName;
    server.password = told.password;
  }
  return server;
}

void GetSMTPDetails(Business& business) {
  MailServer& known = business.values.mailServer;
  known = business.World().headOffice.GetSMTPDetails();
  if (!known.server.isEmpty()) return;
  const DefaultAccount account = GetAccountsList(DesktopMailSettings());
  if (!account.smtpServer.isEmpty()) known.server = account.smtpServer;
}

}  // namespace quillary::mail
