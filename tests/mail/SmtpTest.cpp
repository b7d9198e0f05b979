#include "mail/MailServerProcess.h"
#include "mail/Mime.h"
#include "mail/SmtpCourier.h"
#include "support/BusinessTest.h"

#include <QCryptographicHash>

namespace quillary {
namespace {

using mail::Delivery;
using mail::LineSecurity;
using mail::Message;
using mail::Outcome;
using mail::SmtpCourier;
using mail::SmtpServer;

class SmtpTest : public ::testing::Test {
 protected:
  SmtpServer ServerOn(LineSecurity security) const {
    return {.host = "localhost",
            .port = server.Port(),
            .security = security,
            .authorities = server.Certificate()};
  }
  Message Letter() const {
    Message message;
    message.from = "owner@example.org";
    message.fromName = "Gärten & Söhne";
    message.to = "ann@example.org";
    message.toName = "Änn Ørn, Esq.";
    message.subject = "Rechnung № 17 für Änn — with a subject longer than any one line of a header";
    message.text = "Liebe Änn,\r\n.\r\nFrom here: 12 €\n\n--\nend";
    message.messageId = "one@quillary";
    message.date = DateTime(QDate(2026, 11, 2), QTime(9, 5));
    return message;
  }
  Message WithFile() {
    QByteArray bytes;
    for (int at = 0; at < 70'000; ++at) bytes += static_cast<char>(at * 7 + at / 256);
    QFile file(folder.filePath("Invoice - Änn \"1\".pdf"));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    sha = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    Message message = Letter();
    message.attachment = file.fileName();
    return message;
  }

  QTemporaryDir folder;
  QString sha;
  MailServerProcess server;
};

TEST_F(SmtpTest, WhatArrivesIsWhatWasWritten) {
  server.Start({});
  Message message = WithFile();
  message.copyTo = "copy@example.org; second@example.org";
  ASSERT_EQ(SmtpCourier(ServerOn(LineSecurity::None)).Send(message).outcome, Outcome::Sent);
  const QJsonArray mails = server.Mails();
  ASSERT_EQ(mails.size(), 1);
  const QJsonObject got = mails[0].toObject();
  EXPECT_EQ(got["subject"].toString(), message.subject);
  EXPECT_EQ(got["name"].toString(), message.toName);
  EXPECT_EQ(got["addresses"].toArray(), QJsonArray{"ann@example.org"});
  EXPECT_EQ(got["text"].toString().trimmed(), "Liebe Änn,\n.\nFrom here: 12 €\n\n--\nend");
  EXPECT_EQ(got["id"].toString(), "<one@quillary>");
  EXPECT_TRUE(got["date"].toString().startsWith("2026-11-02T09:05:00")) << "the date of the mail";
  const QJsonObject file = got["files"].toArray()[0].toObject();
  EXPECT_EQ(file["name"].toString(), "Invoice - Änn \"1\".pdf");
  EXPECT_EQ(file["sha"].toString(), sha);
  EXPECT_EQ(got["defects"].toInt(), 0);
  EXPECT_EQ(got["bare"].toInt(), 0) << "a bare line feed";
  EXPECT_LE(got["longest"].toInt(), 998);
  const QJsonObject envelope = got["envelope"].toObject();
  EXPECT_EQ(envelope["to"].toArray(),
            (QJsonArray{"ann@example.org", "copy@example.org", "second@example.org"}));
  EXPECT_FALSE(got["headers"].toArray().contains("bcc")) << "who gets a copy is told";
}

TEST_F(SmtpTest, HostileWordsAddNoHeaderAndNoReceiver) {
  server.Start({});
  SmtpCourier courier(ServerOn(LineSecurity::None));
  const struct {
    const char* fault;
    QString Message::*field;
    QString words;
    bool leaves;
  } cases[] = {
      {"a header in the subject", &Message::subject, "Hi\r\nBcc: evil@example.org\r\n\r\nbody",
       true},
      {"a header by a bare line feed", &Message::subject, "Hi\nX-Evil: 1", true},
      {"a header after a line separator", &Message::subject, QString("Hi\u2028X-Evil: 1"), true},
      {"a header in the name", &Message::toName, "Ann\r\nBcc: evil@example.org", true},
      {"a second receiver in the name", &Message::toName, "Ann\" <evil@example.org>, \"B", true},
      {"a header in the sender's name", &Message::fromName, "Me\r\nX-Evil: 1", true},
      {"a header by the id", &Message::messageId, "a@b>\r\nX-Evil: 1", true},
      {"a second receiver in the address", &Message::to, "ann@example.org, evil@example.org",
       false},
      {"a command in the address", &Message::to, "ann@example.org>\r\nRCPT TO:<evil@example.org",
       false},
      {"a command in the sender", &Message::from, "me@example.org>\r\nDATA", false},
      {"a receiver in the copy", &Message::copyTo, "x@example.org>\r\nRCPT", false},
      {"no address at all", &Message::to, "", false},
  };
  int left = 0;
  for (const auto& c : cases) {
    Message message = Letter();
    message.*c.field = c.words;
    EXPECT_EQ(courier.Send(message).outcome == Outcome::Sent, c.leaves) << c.fault;
    left += c.leaves ? 1 : 0;
  }
  const QJsonArray mails = server.Mails();
  ASSERT_EQ(mails.size(), left);
  const QJsonArray usual{"content-transfer-encoding",
                         "content-type",
                         "date",
                         "from",
                         "message-id",
                         "mime-version",
                         "subject",
                         "to"};
  for (const QJsonValue& one : mails) {
    const QJsonObject got = one.toObject();
    EXPECT_EQ(got["headers"].toArray(), usual) << got["subject"].toString().toStdString();
    EXPECT_EQ(got["addresses"].toArray(), QJsonArray{"ann@example.org"});
    EXPECT_EQ(got["envelope"].toObject()["to"].toArray(), QJsonArray{"ann@example.org"});
  }
}

TEST_F(SmtpTest, TheLineIsSecuredAndThePasswordIsAsked) {
  for (const LineSecurity security : {LineSecurity::StartTls, LineSecurity::Tls}) {
    MailServerProcess secured;
    secured.Start({"--security", CodeOf(security), "--login", "owner:hush"});
    SmtpServer good = ServerOn(security);
    good.port = secured.Port();
    good.authorities = secured.Certificate();
    good.userName = "owner";
    good.password = "hush";
    const Delivery sent = SmtpCourier(good).Send(Letter());
    EXPECT_EQ(sent.outcome, Outcome::Sent) << sent.reason.toStdString();
    SmtpServer wrong = good;
    wrong.password = "loud";
    const Delivery denied = SmtpCourier(wrong).Send(Letter());
    EXPECT_EQ(denied.outcome, Outcome::Unreachable);
    EXPECT_FALSE(denied.reason.contains("loud")) << "a message that shows the password";
    SmtpServer unknown = good;
    unknown.authorities.clear();
    EXPECT_EQ(SmtpCourier(unknown).Send(Letter()).outcome, Outcome::Unreachable)
        << "a certificate that nobody vouches for";
    SmtpServer misnamed = good;
    misnamed.host = "127.0.0.1";
    EXPECT_EQ(SmtpCourier(misnamed).Send(Letter()).outcome, Outcome::Unreachable)
        << "a certificate of another name";
    const QJsonArray mails = secured.Mails();
    ASSERT_EQ(mails.size(), 1);
    EXPECT_TRUE(mails[0].toObject()["envelope"].toObject()["tls"].toBool());
    EXPECT_TRUE(mails[0].toObject()["envelope"].toObject()["login"].toBool());
  }
}

TEST_F(SmtpTest, AServerThatKnowsNoTlsGetsNothing) {
  server.Start({});
  EXPECT_EQ(SmtpCourier(ServerOn(LineSecurity::StartTls)).Send(Letter()).outcome,
            Outcome::Unreachable);
  SmtpServer open = ServerOn(LineSecurity::None);
  open.host = "mail.example.org";
  open.userName = "owner";
  EXPECT_TRUE(CheckSmtpServer(open)) << "a password over an open line";
  EXPECT_EQ(server.Mails().size(), 0);
}

TEST_F(SmtpTest, WhatTheServerSaysDecidesWhetherItMayBeTriedAgain) {
  server.Start({"--fail-every", "2", "--drop-every", "3"});
  SmtpCourier courier(ServerOn(LineSecurity::None));
  EXPECT_EQ(courier.Send(Letter()).outcome, Outcome::Sent);
  const Delivery putOff = courier.Send(Letter());
  EXPECT_EQ(putOff.outcome, Outcome::TryLater);
  EXPECT_TRUE(putOff.reason.contains("451")) << putOff.reason.toStdString();
  EXPECT_EQ(courier.Send(Letter()).outcome, Outcome::InDoubt) << "taken, and no answer";
  EXPECT_EQ(server.Mails().size(), 2);
  SmtpServer nobody = ServerOn(LineSecurity::None);
  nobody.port = 1;
  EXPECT_EQ(SmtpCourier(nobody).Send(Letter()).outcome, Outcome::Unreachable);
}

TEST(MailAddressTest, ServersAndAddressesAreReadStrictly) {
  const struct {
    const char* text;
    const char* host;
    int port;
  } servers[] = {{"mail.example.org", "mail.example.org", 0},
                 {"mail.example.org:2525", "mail.example.org", 2525},
                 {"[::1]:25", "[::1]", 25},
                 {"mail.example.org:0", nullptr, 0},
                 {"mail.example.org:70000", nullptr, 0},
                 {"mail.example.org/evil", nullptr, 0},
                 {"user@mail.example.org", nullptr, 0},
                 {"", nullptr, 0}};
  for (const auto& c : servers) {
    const auto server = mail::ParseSmtpServer(c.text);
    ASSERT_EQ(server.has_value(), c.host != nullptr) << c.text;
    if (!server) continue;
    EXPECT_EQ(server->host, c.host);
    EXPECT_EQ(server->port, c.port) << c.text;
  }
  EXPECT_EQ(mail::AddressesIn(" a@b.c; d@e.f,a@b.c\n"), (QStringList{"a@b.c", "d@e.f"}));
  for (const char* bad :
       {"ann", "@b.c", "a@", "a b@c.d", "a@b..c>", "a@-b.c", "\"a\"@b.c", "ä@b.c"})
    EXPECT_TRUE(mail::FaultOfAddress(QString::fromUtf8(bad))) << bad;
}

}  // namespace
}  // namespace quillary
