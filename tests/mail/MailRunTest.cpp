#include "cli/CompanionFixture.h"
#include "mail/MailServerProcess.h"

#include <QElapsedTimer>

#include <csignal>

namespace quillary {
namespace {

/// The companion and a mail server.
class MailRunTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    Done({"demo", File(), "--clients", "12"});
  }
  QString File() const { return Path("business.mdb"); }
  QStringList ServerWords(const MailServerProcess& server) const {
    return {"--route", "smtp", "--smtp", QStringLiteral("localhost:%1").arg(server.Port()),
            "--tls",   "none"};
  }
  /// One invoice for each of so many clients, each with an address of its own.
  QString AddInvoices(int count) {
    Connection file(File());
    file.Open(OpenMode::Existing);
    QStringList invoices;
    for (int at = 0; at < count; ++at) {
      const QString name = QStringLiteral("Mailed %1").arg(at);
      file.Run(
          Sql("INSERT INTO Clients (Display_Name, Status, Email, Is_Billed_To) VALUES ({}, "
              "'Active', {}, Yes)",
              name, QStringLiteral("client%1@example.org").arg(at)));
      const qint64 client = file.LastInsertedKey();
      file.Run(
          Sql("UPDATE Clients SET Billing_Client_ID = {} WHERE Client_ID = {}", client, client));
      file.Run(
          Sql("INSERT INTO Invoices (Invoice_Number, Client_ID, Made_Out_To, Generation_Date, "
              "Total_Amount) VALUES ({}, {}, {}, #2026/11/2#, 55)",
              QString::number(5000 + at), client, name));
      invoices += QString::number(file.LastInsertedKey());
    }
    file.Close();
    return invoices.join(",");
  }
  /// Starts the companion and kills it once the server has so many mails.
  void RunUntil(const QStringList& words, const std::function<bool()>& enough) {
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QUILLARY_BIN "/quillaryctl", words);
    ASSERT_TRUE(process.waitForStarted());
    QElapsedTimer time;
    time.start();
    while (!enough() && process.state() == QProcess::Running && time.elapsed() < 120'000)
      process.waitForFinished(5);
    ASSERT_EQ(process.state(), QProcess::Running) << "it ended before it could be killed";
    process.kill();
    process.waitForFinished();
  }
};

TEST_F(MailRunTest, OneMailIsSentAndRemembered) {
  MailServerProcess server;
  server.Start({"--security", "starttls", "--login", "owner:hush"});
  Write("note.txt", "attached");
  environment.insert("QUILLARY_SMTP_PASSWORD", "hush");
  const QStringList words{
      "mail",      File(),  "--to",      "ann@example.org",
      "--name",    "Änn",   "--subject", "Hello",
      "--message", "World", "--attach",  Path("note.txt"),
      "--route",   "smtp",  "--smtp",    QStringLiteral("localhost:%1").arg(server.Port())};
  EXPECT_EQ(Run(words).exitCode, 1) << "a certificate that nobody vouches for";
  EXPECT_EQ(server.Mails().size(), 0);
  Done({"outbox", File()});
  Done(words + QStringList{"--ca", server.Certificate(), "--smtp-user", "owner"});
  // The first one waited, and went by the same road.
  EXPECT_EQ(server.Mails().size(), 2);
  EXPECT_EQ(Json({"outbox", File()}).array().size(), 0);
  const QJsonArray sent = Json({"sent", File()}).array();
  ASSERT_EQ(sent.size(), 2);
  EXPECT_EQ(sent[0].toObject()["To_Address"].toString(), "ann@example.org");
  EXPECT_EQ(Run({"mail", File(), "--to", "a@b.org, c@d.org", "--subject", "x", "--message", "x",
                 "--route", "smtp"})
                .exitCode,
            1)
      << "two receivers in one address";
  EXPECT_EQ(Run({"mail", File(), "--to", "a@b.org", "--subject", "x", "--message", "x"}).exitCode,
            2);
  EXPECT_EQ(Run({"mail", File(), "--to", "a@b.org", "--subject", "x", "--message", "x", "--route",
                 "headoffice"})
                .exitCode,
            1)
      << "nobody is connected to head office";
}

TEST_F(MailRunTest, EveryClientGetsItsInvoiceOnceThoughTheServerFailsAndTheProgramIsKilled) {
  constexpr int kClients = 300;
  MailServerProcess server;
  // Slow enough to be killed in time on a busy machine.
  server.Start({"--fail-every", "7", "--pause", "0.01"});
  const QString invoices = AddInvoices(kClients);
  const QStringList run = QStringList{"mail-documents", File(), "invoice", "--invoices", invoices} +
                          ServerWords(server);
  // Killed while the documents are being written, then twice while they are being sent.
  RunUntil(run, [&] { return QFile::exists(Path("business.mdb.outbox/outbox.db")); });
  for (const int sent : {60, 170}) {
    RunUntil(run, [&] { return server.Count() >= sent; });
    // Each mail in doubt is looked for at the receiver's end, as its owner would ask the client.
    QStringList settled{"outbox", File()};
    QStringList arrived;
    for (const QJsonValue& mail : server.Mails()) arrived += mail.toObject()["id"].toString();
    const QJsonArray open = Json({"outbox", File()}).array();
    int doubtful = 0;
    for (const QJsonValue& one : open) {
      const QJsonObject mail = one.toObject();
      if (mail["State"].toString() != "in doubt") continue;
      ++doubtful;
      settled +=
          arrived.contains('<' + mail["Message_ID"].toString() + '>') ? "--arrived" : "--again";
      settled += QString::number(mail["Mail_ID"].toInt());
    }
    EXPECT_LE(doubtful, 1) << "more than the one that was under way";
    Done(settled);
  }
  Run(run);
  Done(QStringList{"outbox", File(), "--retry"} + ServerWords(server).mid(2));
  EXPECT_EQ(Json({"outbox", File()}).array().size(), 0);
  EXPECT_EQ(Json({"sent", File()}).array().size(), kClients);
  QMap<QString, int> got;
  for (const QJsonValue& one : server.Mails()) {
    const QJsonObject mail = one.toObject();
    ++got[mail["addresses"].toArray()[0].toString()];
    EXPECT_EQ(mail["files"].toArray()[0].toObject()["type"].toString(), "application/pdf");
  }
  ASSERT_EQ(got.size(), kClients);
  for (const auto& [address, count] : got.asKeyValueRange())
    EXPECT_EQ(count, 1) << address.toStdString();
}

TEST_F(MailRunTest, ClientsWithoutAnAddressAreNamedAndTheOthersGetTheirs) {
  MailServerProcess server;
  server.Start({});
  const QString invoices = AddInvoices(3);
  Done({"sql", File(), "UPDATE Clients SET Email = NULL WHERE Display_Name = 'Mailed 1'"});
  const Result result =
      Run(QStringList{"mail-documents", File(), "statement", "--invoices", invoices} +
          ServerWords(server));
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.err.contains("Mailed 1")) << result.err.toStdString();
  EXPECT_EQ(server.Mails().size(), 2);
}

}  // namespace
}  // namespace quillary
