#include "mail/LocalMailClient.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace quillary::mail {
namespace {

/// A name in quotes before the address, so that a comma in it makes no second receiver.
QString NameAndAddress(const QString& name, const QString& address) {
  QString words;
  for (const QChar sign : name.simplified())
    if (sign != u'"' && sign != u'\\' && sign.isPrint()) words += sign;
  return words == address ? address : QStringLiteral("\"%1\" <%2>").arg(words, address);
}

}  // namespace

LocalMailClient::LocalMailClient(Desktop& desktop,
                                 std::function<QString(const QString&)> findProgram)
    : desktop_(desktop), findProgram_(std::move(findProgram)) {}

LocalMailClient::LocalMailClient(Desktop& desktop)
    : LocalMailClient(desktop,
                      [](const QString& name) { return QStandardPaths::findExecutable(name); }) {}

Delivery LocalMailClient::Send(const Message& message) {
  if (message.toName.isEmpty())
    return {Outcome::Refused,
            QStringLiteral(
                "The Email Recipient Name is missing. Please correct in the Client's Record")};
  if (const auto fault = FaultOfAddress(message.to)) return {Outcome::Refused, *fault};
  const QString program = findProgram_(QStringLiteral("xdg-email"));
  QStringList words{QStringLiteral("--utf8"), QStringLiteral("--subject"),
                    message.subject.simplified(), QStringLiteral("--body"),
                    message.text.isEmpty() ? QStringLiteral("...") : message.text};
  if (!message.attachment.isEmpty() && QFileInfo::exists(message.attachment))
    words += {QStringLiteral("--attach"), QFileInfo(message.attachment).absoluteFilePath()};
  words += NameAndAddress(message.toName, message.to);
  if (!program.isEmpty() && desktop_.StartProgram(program, words)) return {Outcome::Sent};
  return {
      Outcome::Unreachable,
      QStringLiteral("This machine has no mail program that could be opened. Please set one up, "
                     "or choose another way of sending under Setup, Miscellaneous settings.")};
}

}  // namespace quillary::mail
