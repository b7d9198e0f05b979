#include "mail/Sending.h"

#include "base/Text.h"
#include "mail/HeadOfficeCourier.h"
#include "mail/LocalMailClient.h"
#include "mail/SmtpCourier.h"

#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace quillary::mail {

Route ChosenRoute(const Business& business) {
  return business.values.emailOption.compare(u"VBSENDMAIL", Qt::CaseInsensitive) == 0
             ? Route::LocalMailClient
             : Route::HeadOffice;
}

Route RouteOfRuns(const Business& business) {
  return ChosenRoute(business) == Route::HeadOffice ? Route::HeadOffice : Route::Smtp;
}

std::unique_ptr<Courier> MakeCourier(Business& business, Route route,
                                     std::function<bool()> keepGoing) {
  switch (route) {
    case Route::LocalMailClient:
      return std::make_unique<LocalMailClient>(business.World().desktop);
    case Route::Smtp:
      return std::make_unique<SmtpCourier>(SmtpServerOf(business), std::move(keepGoing));
    case Route::HeadOffice:
      break;
  }
  return std::make_unique<HeadOfficeCourier>(business);
}

QString NameAfterReceiver(const QString& file, const QString& address) {
  const QString ending = FileExtension(FileNameOfPath(file));
  const QString head = ending.isEmpty() ? file : file.chopped(ending.size() + 1);
  const QString renamed = ending.isEmpty()
                              ? QStringLiteral("%1 [%2]").arg(head, address)
                              : QStringLiteral("%1 [%2].%3").arg(head, address, ending);
  if (!QFile::rename(file, renamed))
    throw std::runtime_error(QStringLiteral("The file %1 cannot be given the name %2.")
                                 .arg(file, renamed)
                                 .toStdString());
  return renamed;
}

bool SendNow(Business& business, NewMail mail) {
  Prompter& prompter = business.World().prompter;
  if (const auto fault = FaultOfAddress(mail.to)) {
    prompter.Tell(Tone::Exclamation, *fault);
    return false;
  }
  if (mail.route == Route::HeadOffice && !IsInternetConnected(business.World().headOffice)) {
    prompter.Tell(Tone::Stop,
                  QStringLiteral("Internet connection unavailable or your Session has "
                                 "expired.\r\nPlease log out and restart the application or try "
                                 "Functions->Reconnect to Internet"));
    return false;
  }
  // The outbox's own copies keep their names: earlier mails point at them.
  const bool isOurs = mail.document.startsWith(Outbox::FolderOf(business.DatabaseFile()) + u'/');
  if (!mail.document.isEmpty() && !isOurs && mail.route != Route::LocalMailClient)
    mail.document = NameAfterReceiver(mail.document, mail.to);
  Outbox outbox(business);
  const qint64 number = outbox.Put({mail}).front();
  const auto stored = outbox.Find(number);
  const auto courier = MakeCourier(business, mail.route);
  outbox.MarkSending(*stored);
  Delivery delivery;
  try {
    delivery = courier->Send(MessageOf(business, *stored));
  } catch (const std::exception& error) {
    delivery = {Outcome::Refused, QString::fromUtf8(error.what())};
  }
  // One mail at a time has the user beside it: what did not leave is failed, to be tried again from
  // the outbox.
  const State state = delivery.outcome == Outcome::Sent      ? State::Sent
                      : delivery.outcome == Outcome::InDoubt ? State::InDoubt
                                                             : State::Failed;
  outbox.MarkEnded(*stored, state, delivery.reason);
  if (state == State::Sent) return true;
  prompter.Tell(Tone::Stop, delivery.reason);
  return false;
}

bool SendMailDirectly(Business& business, const QString& to, const QString& subject,
                      const QString& text) {
  Message message;
  message.from = SenderAddress(business);
  message.to = to;
  message.subject = subject;
  message.text = text;
  message.messageId = NewMessageId();
  message.date = business.Now();
  const Delivery delivery = SmtpCourier(SmtpServerOf(business)).Send(message);
  if (delivery.outcome == Outcome::Sent) return true;
  business.World().prompter.Tell(Tone::Exclamation, QStringLiteral("Error sending email: %1 - %2")
                                                        .arg(static_cast<int>(delivery.outcome))
                                                        .arg(delivery.reason));
  return false;
}

}  // namespace quillary::mail
