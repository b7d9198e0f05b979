#pragma once

#include "base/Refusal.h"
#include "data/Business.h"

#include <QString>

#include <optional>

namespace quillary::mail {

/// How the line to a mail server is kept from others.
enum class LineSecurity { StartTls, Tls, None };
/// "starttls", "tls", "none".
std::optional<LineSecurity> LineSecurityFromCode(const QString& code);
QString CodeOf(LineSecurity security);

struct SmtpServer {
  QString host = {};
  int port = 0;  // 0 for the usual one of the security
  LineSecurity security = LineSecurity::StartTls;
  QString userName = {};  // empty: the server asks for none
  QString password = {};
  QString authorities =
      {};  // a file of certificates to trust instead of the system's; mostly empty

  int UsedPort() const;
};

/// "host", "host:port" or "[::1]:port"; nothing when it is none.
std::optional<SmtpServer> ParseSmtpServer(const QString& text);
/// What keeps us from using it, for the field that is to be mended.
std::optional<Refusal> CheckSmtpServer(const SmtpServer& server);

/// The server of this user's settings; without one that which head office told, and without that
/// the one of the desktop's default account. Its host is empty when nobody names one.
SmtpServer SmtpServerOf(const Business& business);

/// Asks head office for the mail server of the business, and the desktop's default account when it
/// names none.
void GetSMTPDetails(Business& business);

}  // namespace quillary::mail
