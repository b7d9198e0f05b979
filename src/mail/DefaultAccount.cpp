#include "mail/DefaultAccount.h"

#include "data/settings/IniFile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

namespace quillary::mail {
namespace {

constexpr char kSectionOfAccount[] = "PROFILE_";

/// The name of the first account section of the file.
QString FirstAccountIn(const QByteArray& text) {
  static const QRegularExpression section(QStringLiteral("^\\[PROFILE_(.*)\\]\\s*$"),
                                          QRegularExpression::MultilineOption);
  return section.match(QString::fromUtf8(text)).captured(1);
}

}  // namespace

QString DesktopMailSettings() {
  return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
      .filePath(QStringLiteral("emaildefaults"));
}

DefaultAccount GetAccountsList(const QString& file) {
  DefaultAccount found;
  QFile stored(file);
  if (!stored.open(QIODevice::ReadOnly)) return found;
  const QByteArray text = stored.readAll();
  const IniFile settings(text);
  found.name =
      settings.Value(QStringLiteral("Defaults"), QStringLiteral("Profile")).value_or(QString());
  InternetAccount& account = found.account;
  account.accountName = FirstAccountIn(text);
  const auto read = [&](const char* key) {
    return settings
        .Value(QString::fromLatin1(kSectionOfAccount) + account.accountName,
               QString::fromLatin1(key))
        .value_or(QString());
  };
  account.smtpServer = read("OutgoingServer");
  account.smtpUserName = read("OutgoingUserName");
  account.smtpEmailAddress = read("EmailAddress");
  account.smtpReplyToEmailAddress = read("ReplyAddr");
  account.pop3Server = read("IncomingServer");
  account.pop3UserName = read("IncomingUserName");
  account.nntpServer = read("NewsServer");
  account.ldapServer = read("DirectoryServer");
  if (!account.accountName.isEmpty() && account.accountName == found.name &&
      account.nntpServer.isEmpty() && account.ldapServer.isEmpty()) {
    found.smtpServer = account.smtpServer;
    found.smtpEmailAddress = account.smtpEmailAddress;
  }
  return found;
}

}  // namespace quillary::mail
