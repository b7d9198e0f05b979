#include "mail/HeadOfficeCourier.h"

#include "base/Text.h"

#include <QFile>

#include <stdexcept>

namespace quillary::mail {
namespace {

/// The text as the server shows it: it takes the mail for a page.
QString LinesWithBreaks(const QString& text) {
  QString lines = text;
  lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  QString page;
  for (const QString& line : lines.split(u'\n')) page += line + QStringLiteral("<br>");
  return page;
}

}  // namespace

bool IsInternetConnected(HeadOffice& headOffice) {
  if (!headOffice.IsConnected()) return false;
  return headOffice.Online() || headOffice.LogIn();
}

QString HeadOfficeCourier::UploadFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw std::runtime_error(QStringLiteral("The file %1 cannot be read, so it was not mailed.")
                                 .arg(path)
                                 .toStdString());
  return business_.World()
      .headOffice
      .CallMessages(QStringLiteral("Upload_File"),
                    {{QStringLiteral("FileName"), FileNameOfPath(path)},
                     {QStringLiteral("FileContent"), Base64Encode(file.readAll())}})
      .value_or(QString());
}

Delivery HeadOfficeCourier::Send(const Message& message) {
  HeadOffice& headOffice = business_.World().headOffice;
  if (!IsInternetConnected(headOffice))
    return {Outcome::Unreachable,
            QStringLiteral("Internet connection unavailable or your Session has expired.\r\nPlease "
                           "log out and restart the application or try Functions->Reconnect to "
                           "Internet")};
  // The text of a mail is nobody's but the receiver's, so the trace tells only how long it is.
  headOffice.Trace(QStringLiteral("ComposeEmail->EmailAddress: %1 EmailName:%2 Subject:%3 "
                                  "Message:%4 characters Attachment:%5")
                       .arg(message.to, message.toName, message.subject,
                            QString::number(message.text.size()), message.attachment));
  headOffice.Trace(QStringLiteral("ComposeEmail->:") + message.from);
  const QString attachment =
      message.attachment.isEmpty() ? QString() : UploadFile(message.attachment);
  const MailServer& server = business_.values.mailServer;
  const auto yesOrNo = [](bool yes) {
    return yes ? QStringLiteral("True") : QStringLiteral("False");
  };
  const auto reply = headOffice.CallMessages(
      QStringLiteral("Send_Email_Message_Quillary"),
      {{QStringLiteral("Recipient"), message.to.trimmed()},
       {QStringLiteral("BccRecipient"), message.copyTo},
       {QStringLiteral("From_Email"), message.from.trimmed()},
       {QStringLiteral("Subject"), message.subject},
       {QStringLiteral("Message"), LinesWithBreaks(message.text)},
       {QStringLiteral("Attachment"), attachment},
       {QStringLiteral("SMTP_Server"), server.server},
       {QStringLiteral("SMTP_Port"), server.port},
       {QStringLiteral("SMTP_Use_Authentication"), yesOrNo(server.useAuthentication)},
       {QStringLiteral("SMTP_User_Name"), server.userName},
       {QStringLiteral("SMTP_Password"), server.password},
       {QStringLiteral("IsBodyHtml"), yesOrNo(true)}});
  if (reply && reply->compare(u"ok", Qt::CaseInsensitive) == 0) return {Outcome::Sent};
  const QString why =
      QStringLiteral(
          "Your email failed to send.  The server returned the following result : %1\n\n"
          "Please contact Dyvane")
          .arg(reply.value_or(QString()));
  // Without any answer the server may have sent it all the same.
  return {reply ? Outcome::Refused : Outcome::InDoubt, why};
}

}  // namespace quillary::mail
