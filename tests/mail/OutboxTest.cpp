#include "mail/ClientAddresses.h"
#include "mail/DefaultAccount.h"
#include "mail/HeadOfficeCourier.h"
#include "mail/LocalMailClient.h"
#include "mail/MailMerge.h"
#include "mail/MailsUnderWay.h"
#include "mail/OutboxRun.h"
#include "mail/Sending.h"
#include "mail/SentDocuments.h"
#include "support/BusinessTest.h"

#include <QDir>
#include <QFile>

namespace quillary {
namespace {

using mail::Delivery;
using mail::NewMail;
using mail::Outbox;
using mail::Outcome;
using mail::State;
using mail::StoredMail;

/// Answers in the order told, then takes everything; throws where that is told.
class ScriptedCourier : public mail::Courier {
 public:
  mail::Route By() const override { return mail::Route::Smtp; }
  Delivery Send(const mail::Message& message) override {
    tried += message.to;
    if (answers.empty()) return {Outcome::Sent};
    const Delivery next = answers.front();
    answers.erase(answers.begin());
    return next;
  }
  std::vector<Delivery> answers;
  QStringList tried;
};

class OutboxTest : public BusinessTest {
 protected:
  NewMail To(const QString& address, mail::Route route = mail::Route::Smtp) {
    NewMail mail;
    mail.route = route;
    mail.to = address;
    mail.toName = "Ann";
    mail.subject = "Invoice";
    mail.text = "Hello\r\nthere";
    return mail;
  }
  QString Document(const QString& name) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("the document");
    return file.fileName();
  }
  static QString States(Outbox& outbox) {
    QStringList states;
    std::vector<StoredMail> mails = outbox.All();
    for (auto mail = mails.rbegin(); mail != mails.rend(); ++mail) states += CodeOf(mail->state);
    return states.join(", ");
  }
};

TEST_F(OutboxTest, EachAnswerOfTheServerLeavesItsMark) {
  Outbox outbox(business());
  for (const char* to : {"a@x.org", "b@x.org", "c@x.org", "d@x.org"}) outbox.Put({To(to)});
  ScriptedCourier courier;
  courier.answers = {{Outcome::Sent},
                     {Outcome::Refused, "no such user"},
                     {Outcome::InDoubt, "line lost"},
                     {Outcome::TryLater, "busy"}};
  const mail::RunResult result = SendWaiting(business(), outbox, courier);
  EXPECT_EQ(States(outbox), "sent, failed, in doubt, sent");
  EXPECT_EQ(courier.tried, (QStringList{"a@x.org", "b@x.org", "c@x.org", "d@x.org", "d@x.org"}));
  EXPECT_EQ(result.sent, 2);
  EXPECT_EQ(outbox.In(State::Failed).front().reason, "no such user");
  // Nothing that may have arrived goes again by itself.
  courier.tried.clear();
  SendWaiting(business(), outbox, courier);
  EXPECT_EQ(courier.tried, QStringList());
}

TEST_F(OutboxTest, TellsOthersWhatIsInDoubtAndWhatNoMailCarries) {
  mail::MailsUnderWay mails(business());
  const std::vector<Id<Invoice>> both = {Id<Invoice>(7), Id<Invoice>(8)};
  EXPECT_EQ(mails.NotMailed(both), both) << "without an outbox";
  EXPECT_FALSE(Outbox::Exists(business())) << "asking makes none";
  {
    Outbox outbox(business());
    NewMail invoice = To("a@x.org");
    invoice.contents = mail::Contents::Invoice;
    invoice.invoices = {Id<Invoice>(7)};
    outbox.Put({invoice});
    ScriptedCourier courier;
    courier.answers = {{Outcome::InDoubt, "line lost"}};
    SendWaiting(business(), outbox, courier);
    EXPECT_EQ(mails.InDoubt(), 0) << "a run holds it";
    EXPECT_EQ(mails.NotMailed(both).size(), 0U);
  }
  EXPECT_EQ(mails.InDoubt(), 1);
  EXPECT_EQ(mails.NotMailed(both), std::vector<Id<Invoice>>{Id<Invoice>(8)});
}

TEST_F(OutboxTest, WhenNobodyAnswersTheRestWaits) {
  Outbox outbox(business());
  for (const char* to : {"a@x.org", "b@x.org", "c@x.org"}) outbox.Put({To(to)});
  ScriptedCourier courier;
  courier.answers = {{Outcome::Sent}, {Outcome::Unreachable, "no line"}};
  const mail::RunResult result = SendWaiting(business(), outbox, courier);
  EXPECT_EQ(States(outbox), "sent, waiting, waiting");
  EXPECT_EQ(result.left, 2);
  EXPECT_TRUE(result.InWords().contains("no line"));
}

TEST_F(OutboxTest, APausedRunGoesOnWhereItStopped) {
  Outbox outbox(business());
  for (const char* to : {"a@x.org", "b@x.org", "c@x.org"}) outbox.Put({To(to)});
  outbox.Put({To("h@x.org", mail::Route::HeadOffice)});
  ScriptedCourier courier;
  SendWaiting(business(), outbox, courier, [](int done, int) { return done < 1; });
  EXPECT_EQ(States(outbox), "sent, waiting, waiting, waiting");
  SendWaiting(business(), outbox, courier);
  EXPECT_EQ(courier.tried, (QStringList{"a@x.org", "b@x.org", "c@x.org"}))
      << "one twice, or one of another route";
}

TEST_F(OutboxTest, AMailUnderWayWhenTheProgramEndsIsInDoubtUntilSomebodySaysSo) {
  qint64 first = 0;
  {
    Outbox outbox(business());
    const auto numbers = outbox.Put({To("a@x.org"), To("b@x.org")});
    first = numbers.front();
    for (const qint64 number : numbers) outbox.MarkSending(*outbox.Find(number));
  }
  Outbox outbox(business());
  EXPECT_EQ(States(outbox), "in doubt, in doubt");
  EXPECT_FALSE(outbox.Find(first)->reason.isEmpty());
  ScriptedCourier courier;
  SendWaiting(business(), outbox, courier);
  EXPECT_EQ(courier.tried, QStringList());
  outbox.SettleAsSent(first);
  outbox.SettleAsUnsent(first + 1);
  EXPECT_THROW(outbox.SettleAsUnsent(first), std::runtime_error) << "one that was sent, again";
  EXPECT_THROW(outbox.Retry(first), std::runtime_error);
  SendWaiting(business(), outbox, courier);
  EXPECT_EQ(courier.tried, QStringList("b@x.org"));
}

TEST_F(OutboxTest, DocumentsAreKeptAsTheyWentAndAllOrNoneArePut) {
  const QString original = Document("Invoice.pdf");
  NewMail mail = To("a@x.org");
  mail.document = original;
  Outbox outbox(business());
  const qint64 number = outbox.Put({mail}).front();
  QFile::remove(original);
  const StoredMail stored = *outbox.Find(number);
  QFile copy(stored.document);
  ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
  EXPECT_EQ(copy.readAll(), "the document");
  EXPECT_EQ(copy.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
  EXPECT_THROW(outbox.Put({To("b@x.org"), mail}), std::runtime_error) << "its document is gone";
  EXPECT_EQ(outbox.All().size(), 1U);
  outbox.Remove(number);
  EXPECT_FALSE(QFile::exists(stored.document));
}

TEST_F(OutboxTest, AnotherProgramCannotSendTheSameMails) {
  Outbox outbox(business());
  EXPECT_THROW(Outbox second(business()), StorageFailure);
}

TEST_F(OutboxTest, HeadOfficeGetsTheFileThenTheMailWithItsSettingsInOrder) {
  ScriptedHeadOffice& office = outside.headOffice;
  office.connected = true;
  office.sessionKey = "key";
  business().values.ccEmailAddress = "copy@x.org";
  business().values.mailServer = {"mail.x.org", "user", "hush", "25", true};
  Run(Sql("UPDATE infPersonalDetails SET Email = ' owner@x.org '"));
  const QString file = Document("Invoice.pdf");
  struct Case {
    const char* fault;
    std::optional<QString> answer;
    bool leaves;
    State state;
  };
  for (const Case& c : {Case{"ok", "OK", true, State::Sent},
                        Case{"an error of the server", "mailbox full", false, State::Failed},
                        Case{"no reply", std::nullopt, false, State::InDoubt}}) {
    office.calls.clear();
    office.traced.clear();
    office.replies = {{"Upload_File", "ref/7"}, {"Send_Email_Message_Quillary", c.answer}};
    NewMail mail = To("a@x.org", mail::Route::HeadOffice);
    mail.document = Document("Invoice.pdf");
    EXPECT_EQ(SendNow(business(), mail), c.leaves) << c.fault;
    EXPECT_EQ(Outbox(business()).All().front().state, c.state) << c.fault;
    EXPECT_EQ(
        outside.prompter.TakeTold().join("").contains("Your email failed to send.  The server "
                                                      "returned the following result : "),
        !c.leaves)
        << c.fault;
    EXPECT_EQ(office.calls,
              (QStringList{"Upload_File FileName=Invoice [a@x.org].pdf FileContent=" +
                               QByteArray("the document").toBase64(),
                           "Send_Email_Message_Quillary Recipient=a@x.org BccRecipient=copy@x.org "
                           "From_Email=owner@x.org Subject=Invoice Message=Hello<br>there<br> "
                           "Attachment=ref/7 SMTP_Server=mail.x.org SMTP_Port=25 "
                           "SMTP_Use_Authentication=True SMTP_User_Name=user SMTP_Password=hush "
                           "IsBodyHtml=True"}));
    EXPECT_FALSE(office.traced.join("").contains("Hello")) << "the text of a mail in the trace";
    EXPECT_TRUE(QFile::exists(folder.filePath("Invoice [a@x.org].pdf")));
    QFile::remove(folder.filePath("Invoice [a@x.org].pdf"));
  }
  office.connected = false;
  EXPECT_FALSE(SendNow(business(), To("a@x.org", mail::Route::HeadOffice)));
  EXPECT_TRUE(outside.prompter.TakeTold().join("").startsWith(
      "Internet connection unavailable or your Session has expired."));
}

TEST_F(OutboxTest, TheReceiverStandsInTheNameOfTheFile) {
  const QString once = mail::NameAfterReceiver(Document("Invoice 1.pdf"), "a@x.org");
  EXPECT_EQ(QFileInfo(once).fileName(), "Invoice 1 [a@x.org].pdf");
  EXPECT_EQ(QFileInfo(mail::NameAfterReceiver(once, "b@x.org")).fileName(),
            "Invoice 1 [a@x.org] [b@x.org].pdf");
  EXPECT_THROW(mail::NameAfterReceiver(Document("Invoice 2.pdf"), "a/b@x.org"), std::runtime_error);
}

TEST_F(OutboxTest, TheMailProgramGetsItAllAndOneReceiver) {
  mail::Message message;
  message.to = "a@x.org";
  message.toName = "Ann \"A\", <evil@x.org>";
  message.subject = "Hi\nthere";
  message.attachment = Document("Invoice.pdf");
  mail::LocalMailClient none(outside.desktop, [](const QString&) { return QString(); });
  EXPECT_EQ(none.Send(message).outcome, Outcome::Unreachable);
  outside.desktop.programsPresent += "/usr/bin/xdg-email";
  mail::LocalMailClient client(outside.desktop,
                               [](const QString& name) { return "/usr/bin/" + name; });
  ASSERT_EQ(client.Send(message).outcome, Outcome::Sent);
  EXPECT_EQ(outside.desktop.startedWith,
            (QStringList{"--utf8", "--subject", "Hi there", "--body", "...", "--attach",
                         message.attachment, "\"Ann A, <evil@x.org>\" <a@x.org>"}));
  message.toName.clear();
  EXPECT_EQ(client.Send(message).reason,
            "The Email Recipient Name is missing. Please correct in the Client's Record");
}

TEST_F(OutboxTest, OnlyTheFirstAccountOfTheDesktopIsLookedAt) {
  const struct {
    const char* fault;
    const char* text;
    const char* server;
  } cases[] = {
      {"the first is the default",
       "[Defaults]\nProfile=Home\n[PROFILE_Home]\nOutgoingServer=one.org\n", "one.org"},
      {"the second is the default",
       "[Defaults]\nProfile=Work\n[PROFILE_Home]\nOutgoingServer=one.org\n"
       "[PROFILE_Work]\nOutgoingServer=two.org\n",
       ""},
      {"it is for news too",
       "[Defaults]\nProfile=Home\n[PROFILE_Home]\nOutgoingServer=one.org\nNewsServer=n.org\n", ""},
      {"no account", "[Defaults]\nProfile=Home\n", ""},
  };
  for (const auto& c : cases) {
    QFile file(folder.filePath("emaildefaults"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(c.text);
    file.close();
    EXPECT_EQ(mail::GetAccountsList(file.fileName()).smtpServer, c.server) << c.fault;
  }
  EXPECT_EQ(mail::GetAccountsList(folder.filePath("none")).name, "");
}

TEST_F(OutboxTest, DocumentsTellWhenAndToWhomTheyWent) {
  QDir(folder.path()).mkdir("Report Doc");
  const QString docs = folder.filePath("Report Doc");
  Document("Report Doc/Unsent.rtf");
  NewMail mail = To("a@x.org");
  mail.client = Id<Client>(1);
  mail.document = Document("Report Doc/Invoice [a@x.org].pdf");
  {
    Outbox outbox(business());
    outbox.Put({mail});
    mail.client = Id<Client>(2);
    mail.document = Document("gone.pdf");
    outbox.Put({mail});
    ScriptedCourier courier;
    SendWaiting(business(), outbox, courier);
  }
  QFile::remove(mail.document);
  QStringList shown;
  for (const mail::SentDocument& one : mail::ShowClientsReport(business(), docs))
    shown += QFileInfo(one.file).fileName() + (one.mail ? " to " + one.mail->to : QString());
  shown.sort();
  EXPECT_EQ(shown,
            (QStringList{"Invoice [a@x.org].pdf to a@x.org", "Unsent.rtf", "gone.pdf to a@x.org"}));
  EXPECT_EQ(mail::LoadSent(business(), Id<Client>(2)).size(), 1U);
  EXPECT_EQ(mail::LoadSent(business(), {}).size(), 2U);
}

TEST_F(OutboxTest, AddressesOfAClientAndOfItsSitesAreOffered) {
  Run(
      Sql("INSERT INTO Clients (Display_Name, Status, Email) VALUES ('Ann', 'Active', "
          "'a@x.org; b@x.org')"));
  Run(
      Sql("INSERT INTO Clients (Display_Name, Status, Billing_Client_ID, Email) VALUES ('Site', "
          "'Active', 1, 's@x.org')"));
  Run(Sql("INSERT INTO Clients (Display_Name, Status) VALUES ('Tab\tand\nline', 'Active')"));
  Run(Sql("INSERT INTO Clients (Display_Name, Status) VALUES ('Quoted', 'Quote only')"));
  QStringList listed;
  for (const auto& one : mail::LoadClientEmail(business(), {Id<Client>(1)}))
    listed += one.name + u' ' + one.address;
  EXPECT_EQ(listed, (QStringList{"Ann a@x.org", "Ann b@x.org", "Site s@x.org"}));
  EXPECT_EQ(mail::WriteMailMerge(business(), folder.filePath("mailmerge.txt")), 3);
  QFile merge(folder.filePath("mailmerge.txt"));
  ASSERT_TRUE(merge.open(QIODevice::ReadOnly));
  const QByteArray text = merge.readAll();
  EXPECT_TRUE(text.endsWith("\r\n"));
  const QList<QByteArray> lines = text.chopped(2).split('\n');
  EXPECT_EQ(lines.size(), 4);
  for (const QByteArray& line : lines) EXPECT_EQ(line.count('\t'), 10) << line.toStdString();
}

}  // namespace
}  // namespace quillary
