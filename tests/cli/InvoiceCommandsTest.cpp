#include "CompanionFixture.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QThread>

namespace quillary::cli {
namespace {

class InvoiceCommandsTest : public CompanionTest {
 protected:
  /// A demo business in which the work of October is not invoiced yet.
  void MakeBusiness(int clients) {
    Done({"demo", "d.mdb", "--clients", QString::number(clients), "--months=2", "--seed", "7"});
    Sql("UPDATE Diary SET Invoice_ID = NULL");
    Sql("UPDATE Diary SET Status = 'JD' WHERE Status = 'JI'");
    Sql("DELETE FROM Invoices");
  }
  void Sql(const QString& statement) { Done({"sql", "d.mdb", statement}); }
  qint64 Key(const QString& statement) { return Field("d.mdb", statement).toInteger(); }
  QJsonObject First(const QStringList& call) { return Json(call).array().first().toObject(); }
  /// A job with a price of a client who pays for itself, in that status.
  qint64 JobIn(const char* status) {
    return Key(QStringLiteral("SELECT MIN(Diary_ID) FROM Diary INNER JOIN Clients ON "
                              "Diary.Client_ID = Clients.Client_ID WHERE Diary.Status = '%1' AND "
                              "Total_Price > 0 AND Is_Billed_To = True AND Invoice_ID IS NULL")
                   .arg(QString(status)));
  }
  QString StateOf(qint64 job) {
    const QJsonObject row = First(
        {"sql", "d.mdb",
         QStringLiteral("SELECT Status, Invoice_ID FROM Diary WHERE Diary_ID = %1").arg(job)});
    return row["Status"].toString() + u' ' + QString::number(row["Invoice_ID"].toInteger(-1));
  }
};

const QStringList kMonthly = {"invoice-run", "d.mdb", "monthly",   "--from",
                              "2026-10-01",  "--to",  "2026-10-31"};

TEST_F(InvoiceCommandsTest, OneJobOrSeveralOfAClient) {
  MakeBusiness(20);
  const qint64 job = JobIn("JD");
  const qint64 price =
      Key(QStringLiteral("SELECT Total_Price FROM Diary WHERE Diary_ID = %1").arg(job));
  const QJsonObject one = First({"invoice", "d.mdb", "--job", QString::number(job)});
  const qint64 oneId = one["Invoice_ID"].toInteger();
  EXPECT_EQ(one["Total_Amount"].toDouble(), price);
  EXPECT_EQ(one["Generation_Date"].toString(), "2026-11-02 00:00:00");
  EXPECT_EQ(StateOf(job), QStringLiteral("JI %1").arg(oneId));

  const Result twice = Run({"invoice", "d.mdb", "--job", QString::number(job)});
  EXPECT_EQ(twice.exitCode, 1) << "it would leave the first invoice with a total that is not so";
  EXPECT_TRUE(twice.err.contains(QStringLiteral("stands on invoice %1").arg(oneId)));

  const qint64 other = JobIn("JD");
  const qint64 client =
      Key(QStringLiteral("SELECT Client_ID FROM Diary WHERE Diary_ID = %1").arg(other));
  const QJsonObject two =
      First({"invoice", "d.mdb", "--client", QString::number(client), "--jobs",
             QStringLiteral("%1,%1").arg(other), "--description", "HEDGES", "--number", "12A"});
  EXPECT_EQ(two["Invoice_Number"].toString(), "12A");
  EXPECT_EQ(two["Jobs"].toInt(), 1) << "named twice, billed once";
  EXPECT_EQ(StateOf(other), QStringLiteral("JD %1").arg(two["Invoice_ID"].toInteger()));

  Done({"invoice-delete", "d.mdb", QString::number(oneId)});
  EXPECT_EQ(StateOf(job), "JI -1") << "it goes on counting as invoiced";
  const qint64 again =
      First({"invoice", "d.mdb", "--job", QString::number(job)})["Invoice_ID"].toInteger();
  Done({"invoice-delete", "d.mdb", QString::number(again), "--from-client"});
  EXPECT_EQ(StateOf(job), "JD -1");
}

TEST_F(InvoiceCommandsTest, WhatIsRefusedWritesNothing) {
  MakeBusiness(20);
  const QString client =
      QString::number(Key("SELECT MIN(Client_ID) FROM Clients WHERE Is_Billed_To = True"));
  const QString foreign = QString::number(
      Key("SELECT MIN(Diary_ID) FROM Diary WHERE Client_ID NOT IN (SELECT Client_ID FROM Clients "
          "WHERE Billing_Client_ID = " +
          client + ")"));
  const QString job = QString::number(JobIn("JD"));
  const QString unbilled =
      QString::number(Key("SELECT MAX(Diary_ID) FROM Diary INNER JOIN Clients ON Diary.Client_ID = "
                          "Clients.Client_ID WHERE Billing_Client_ID = Clients.Client_ID AND "
                          "Diary.Status = 'JD' AND Total_Price > 0 AND Invoice_ID IS NULL"));
  Sql("UPDATE Clients SET Is_Billed_To = False WHERE Client_ID = (SELECT Client_ID FROM Diary "
      "WHERE Diary_ID = " +
      unbilled + ")");
  struct Case {
    const char* fault;
    QStringList call;
    int exitCode;
    const char* err;
  };
  const Case cases[] = {
      {"number 0",
       {"invoice", "d.mdb", "--job", job, "--number", "0"},
       1,
       "Please enter the invoice number."},
      {"a number without digits first",
       {"invoice", "d.mdb", "--job", job, "--number", "A1"},
       1,
       "Please enter the invoice number."},
      {"a job that is not there", {"invoice", "d.mdb", "--job", "999999"}, 1, "no job"},
      {"a job of a client who is not billed",
       {"invoice", "d.mdb", "--job", unbilled},
       1,
       "Please select the billed client."},
      {"somebody else's job",
       {"invoice", "d.mdb", "--client", client, "--jobs", foreign},
       1,
       "is no job that client"},
      {"a client who is not there",
       {"invoice", "d.mdb", "--client", "99999", "--jobs", job},
       1,
       "Please select the billed client."},
      {"neither job nor client", {"invoice", "d.mdb"}, 2, "either --job or --client"},
      {"no jobs", {"invoice", "d.mdb", "--client", client}, 2, "--jobs"},
      {"no invoice", {"invoice-delete", "d.mdb", "9999"}, 1, "there is no invoice 9999"},
      {"days the wrong way round",
       {"invoice-run", "d.mdb", "with-job", "--from", "2026-11-02", "--to", "2026-11-01"},
       1,
       "Please enter a valid date range."},
      {"no such run",
       {"invoice-run", "d.mdb", "yearly", "--from", "2026-11-02", "--to", "2026-11-02"},
       2,
       "either monthly or with-job"},
  };
  const QStringList before = Dump("d.mdb");
  for (const Case& c : cases) {
    const Result result = Run(c.call);
    EXPECT_EQ(result.exitCode, c.exitCode) << c.fault;
    EXPECT_TRUE(result.err.contains(c.err)) << c.fault << ": " << result.err.toStdString();
    EXPECT_EQ(Dump("d.mdb"), before) << c.fault;
  }
}

TEST_F(InvoiceCommandsTest, RunsBillOnceAndAreListed) {
  MakeBusiness(40);
  const QJsonObject run = Json(kMonthly + QStringList{"--generated", "2026-11-05"}).object();
  const qint64 made = run["Invoices_Made"].toInteger();
  EXPECT_GT(made, 0);
  EXPECT_EQ(Json(kMonthly).object()["Invoices_Made"].toInteger(), 0);
  const QJsonArray listed =
      Json({"invoices", "d.mdb", "--from", "2026-11-05", "--to", "2026-11-05", "--monthly"})
          .array();
  EXPECT_EQ(listed.size(), made);
  double total = 0;
  for (const QJsonValue& invoice : listed) {
    EXPECT_EQ(invoice["Invoice_Description"].toString(), "TAX INVOICE FOR OCTOBER");
    total += invoice["Total_Amount"].toDouble();
  }
  EXPECT_DOUBLE_EQ(total, run["Total_Amount"].toDouble());
  const QStringList withJob = {"invoice-run", "d.mdb", "with-job",  "--from",
                               "2026-10-20",  "--to",  "2026-10-22"};
  EXPECT_GT(Json(withJob).object()["Invoices_Made"].toInteger(), 0);
  EXPECT_EQ(Json(withJob).object()["Invoices_Made"].toInteger(), 0);
}

/// The program is killed at moments spread over its life. On the next opening the run is there
/// whole or not begun, and a repeat completes it.
TEST_F(InvoiceCommandsTest, SuddenDeathLeavesTheRunWholeOrNotBegun) {
  MakeBusiness(400);
  const QByteArray original = Bytes(Path("d.mdb"));
  const QStringList before = Dump("d.mdb");
  QElapsedTimer whole;
  whole.start();
  Done(kMonthly);
  const qint64 life = whole.nsecsElapsed() / 1000;
  const QStringList after = Dump("d.mdb");
  ASSERT_NE(after, before);
  QRandomGenerator dice(11);
  int begunAnew = 0;
  for (int round = 0; round < 24; ++round) {
    for (const char* beside : {"d.mdb-wal", "d.mdb-shm", "d.mdb-journal"})
      QFile::remove(Path(beside));
    Write("d.mdb", original);
    QProcess victim;
    victim.setProcessEnvironment(environment);
    victim.setWorkingDirectory(folder.path());
    victim.start(QUILLARY_BIN "/quillaryctl", kMonthly);
    ASSERT_TRUE(victim.waitForStarted());
    QThread::usleep(static_cast<unsigned long>(dice.bounded(life)));
    victim.kill();
    victim.waitForFinished();
    const QStringList found = Dump("d.mdb");
    EXPECT_TRUE(found == before || found == after) << "round " << round << " left half a run";
    begunAnew += found == before;
    Done(kMonthly);
    EXPECT_EQ(Dump("d.mdb"), after) << "round " << round;
  }
  EXPECT_GT(begunAnew, 0) << "no kill came in time";
}

}  // namespace
}  // namespace quillary::cli
