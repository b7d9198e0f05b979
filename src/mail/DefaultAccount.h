#pragma once

#include <QString>

namespace quillary::mail {

/// One mail account as the desktop keeps it. What it does not know of is empty.
struct InternetAccount {
  QString accountName;
  QString nntpServer;
  QString smtpServer;
  QString smtpUserName;
  QString smtpEmailAddress;
  QString smtpReplyToEmailAddress;
  QString pop3Server;
  QString pop3UserName;
  QString ldapServer;
};

/// What the lookup found: the name of the default account, its server and its address.
struct DefaultAccount {
  QString name;
  QString smtpServer;
  QString smtpEmailAddress;
  InternetAccount account;  // the one that was looked at
};

/// The file in which the desktop keeps its mail accounts, whether it is there or not.
QString DesktopMailSettings();

/// Looks the default account up. Only the first account of the file is looked at, so one that is
/// the default but not the first is not found; nor is one that is for news or directories too.
/// Without the file everything is empty.
DefaultAccount GetAccountsList(const QString& file);

}  // namespace quillary::mail
