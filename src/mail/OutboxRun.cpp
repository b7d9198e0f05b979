#include "mail/OutboxRun.h"

#include "base/Text.h"

namespace quillary::mail {
namespace {

constexpr int kPasses = 3;
constexpr char kServiceSender[] = "no-reply@quillary.invalid";

/// One run, mail by mail.
class Run {
 public:
  Run(Business& business, Outbox& outbox, Courier& courier, const MailProgress& progress)
      : business_(business), outbox_(outbox), courier_(courier), progress_(progress) {}

  RunResult Send() {
    std::vector<StoredMail> mails = outbox_.In(State::Waiting);
    std::erase_if(mails, [this](const StoredMail& mail) { return mail.route != courier_.By(); });
    total_ = static_cast<int>(mails.size());
    for (int pass = 1; pass <= kPasses && !mails.empty(); ++pass) {
      std::vector<StoredMail> putOff;
      for (const StoredMail& mail : mails) {
        if (!SendOne(mail, pass == kPasses, putOff)) return Ended();
      }
      mails = std::move(putOff);
    }
    return Ended();
  }

 private:
  /// False ends the run.
  bool SendOne(const StoredMail& mail, bool isLast, std::vector<StoredMail>& putOff) {
    outbox_.MarkSending(mail);
    Delivery delivery;
    try {
      delivery = courier_.Send(MessageOf(business_, mail));
    } catch (const std::exception& error) {
      // What is thrown here is thrown before anything is handed over: a document that is gone.
      delivery = {Outcome::Refused, QString::fromUtf8(error.what())};
    }
    switch (delivery.outcome) {
      case Outcome::Sent:
        outbox_.MarkEnded(mail, State::Sent, {});
        ++result_.sent;
        break;
      case Outcome::InDoubt:
        outbox_.MarkEnded(mail, State::InDoubt, delivery.reason);
        ++result_.inDoubt;
        break;
      case Outcome::Unreachable:
        outbox_.MarkEnded(mail, State::Waiting, delivery.reason);
        result_.stopped = delivery.reason;
        return false;
      case Outcome::TryLater:
        outbox_.MarkEnded(mail, isLast ? State::Failed : State::Waiting, delivery.reason);
        if (isLast)
          ++result_.failed;
        else
          putOff.push_back(mail);
        break;
      case Outcome::Refused:
        outbox_.MarkEnded(mail, State::Failed, delivery.reason);
        ++result_.failed;
        break;
    }
    return !progress_ || progress_(result_.sent + result_.inDoubt + result_.failed, total_);
  }

  RunResult Ended() {
    result_.left = total_ - result_.sent - result_.failed - result_.inDoubt;
    return result_;
  }

  Business& business_;
  Outbox& outbox_;
  Courier& courier_;
  const MailProgress& progress_;
  RunResult result_;
  int total_ = 0;
};

}  // namespace

QString RunResult::InWords() const {
  QStringList words{Counted(static_cast<size_t>(sent), "mail was sent", "mails were sent")};
  const auto add = [&words](int count, const char* what) {
    if (count > 0) words += QStringLiteral("%1 %2").arg(count).arg(QLatin1StringView(what));
  };
  add(failed, "failed");
  add(inDoubt, "in doubt");
  add(left, "still waiting");
  QString text = words.join(QStringLiteral(", ")) + u'.';
  if (!stopped.isEmpty()) text += QStringLiteral("\n\n") + stopped;
  return text;
}

QString SenderAddress(Business& business) {
  const Recordset details = business.RunSQL(Sql("SELECT * FROM infPersonalDetails;"));
  const QString own = details.HasRows() ? details.Field(u"Email").ToText().trimmed() : QString();
  return own.isEmpty() ? QString::fromLatin1(kServiceSender) : own;
}

Message MessageOf(Business& business, const StoredMail& mail) {
  Message message;
  message.from = SenderAddress(business);
  const Recordset details = business.RunSQL(Sql("SELECT * FROM infPersonalDetails;"));
  if (details.HasRows()) message.fromName = details.Field(u"Company_Name").ToText();
  message.to = mail.to;
  message.toName = mail.toName;
  message.copyTo = business.values.ccEmailAddress.trimmed();
  message.subject = mail.subject;
  message.text = mail.text;
  message.attachment = mail.document;
  message.messageId = mail.messageId;
  message.date = business.Now();
  return message;
}

RunResult SendWaiting(Business& business, Outbox& outbox, Courier& courier,
                      const MailProgress& progress) {
  return Run(business, outbox, courier, progress).Send();
}

}  // namespace quillary::mail
