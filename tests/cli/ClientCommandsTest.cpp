#include "CompanionFixture.h"

namespace quillary::cli {
namespace {

class ClientCommandsTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    Done({"demo", "d.mdb", "--clients", "20", "--months=1", "--seed", "5"});
    Done({"roll", "d.mdb"});
  }
  QJsonArray Clients(const QStringList& options) {
    return Json(QStringList{"clients", "d.mdb"} + options).array();
  }
  qint64 Key(const QString& statement) { return Field("d.mdb", statement).toInteger(); }
  QJsonObject Client(qint64 id) { return Json({"client", "d.mdb", QString::number(id)}).object(); }
};

TEST_F(ClientCommandsTest, ListsNarrowByStatusRhythmAndWords) {
  const qsizetype all = Clients({}).size();
  EXPECT_EQ(all, Key("SELECT COUNT(*) FROM Clients WHERE LEFT(Status, 1) <> 'Q'"));
  const QJsonArray regular = Clients({"--status", "active", "--regular"});
  EXPECT_GT(regular.size(), 0);
  EXPECT_LT(regular.size(), all);
  const QJsonObject first = regular.first().toObject();
  const QJsonArray found =
      Clients({"--search", first["Surname"].toString() + " " + first["Street"].toString()});
  ASSERT_GE(found.size(), 1);
  for (const QJsonValue& client : found)
    EXPECT_EQ(client["Surname"].toString(), first["Surname"].toString());
  EXPECT_TRUE(Done({"clients", "d.mdb"}).endsWith(QStringLiteral("List Count = %1\n").arg(all)));
}

TEST_F(ClientCommandsTest, AClientComesWithAllThatHangsOnIt) {
  const qint64 id = Key("SELECT MIN(Client_ID) FROM Client_Services");
  const QJsonObject client = Client(id);
  EXPECT_EQ(client["Client_ID"].toInteger(), id);
  EXPECT_EQ(
      client["services"].toArray().size(),
      Key(QStringLiteral("SELECT COUNT(*) FROM Client_Services WHERE Client_ID = %1").arg(id)));
  for (const QJsonValue& job : client["future_jobs"].toArray())
    EXPECT_GE(job["Schedule_Date"].toString(), "2026-11-02") << "what is past stands apart";
  const QString shown = Done({"client", "d.mdb", QString::number(id)});
  for (const char* part : {"services\n", "sites\n", "future jobs\n", "past jobs\n"})
    EXPECT_TRUE(shown.contains(part)) << part;
}

TEST_F(ClientCommandsTest, ChangesPassTheChecksOfTheScreen) {
  struct Case {
    const char* fault;
    QStringList changes;
    int exitCode;
    const char* err;
  };
  const Case cases[] = {
      {"a status nobody offers", {"Status=Asleep"}, 1, "Please select a client status."},
      {"no name", {"Display_Name= "}, 1, "Please enter the Billing name/Display name."},
      {"no invoice type", {"Statement_Type="}, 1, "Please select the invoicing type."},
      {"too wide", {"Map=1", "Phone_1=0123456789012345678901"}, 1, "at most 20 characters"},
      {"a computed column", {"Account_Balance=5"}, 1, "no column Account_Balance"},
      {"no yes or no", {"InvoiceWithTelNo=maybe"}, 1, "yes or no"},
      {"no value", {"Map"}, 2, "COLUMN=VALUE"},
      {"a payer nobody can bill", {"Billing_Client_ID=9999"}, 1, "no client who can be billed"},
      {"no date", {"Debtor_Since=soon"}, 1, "no date"},
  };
  const qint64 id = Key("SELECT MIN(Client_ID) FROM Clients WHERE Status = 'Active'");
  const QStringList before = Dump("d.mdb");
  for (const Case& c : cases) {
    const Result result = Run(QStringList{"client-set", "d.mdb", QString::number(id)} + c.changes);
    EXPECT_EQ(result.exitCode, c.exitCode) << c.fault;
    EXPECT_TRUE(result.err.contains(c.err)) << c.fault << ": " << result.err.toStdString();
  }
  EXPECT_EQ(Dump("d.mdb"), before) << "a refused change writes nothing";
  Done({"client-set", "d.mdb", QString::number(id), "map=45 B6", "Notes=a=b", "Status=Cancelled"});
  const QJsonObject client = Client(id);
  EXPECT_EQ(client["Map"].toString() + "|" + client["Notes"].toString(), "45 B6|a=b");
  EXPECT_EQ(Key(QStringLiteral("SELECT COUNT(*) FROM Diary WHERE Client_ID = %1 AND Status = 'J'")
                    .arg(id)),
            0)
      << "open jobs of a cancelled client are cancelled";
}

TEST_F(ClientCommandsTest, DoneChangesWhatIsOwed) {
  const qint64 job = Key(
      "SELECT MIN(Diary_ID) FROM Diary INNER JOIN Clients ON Diary.Client_ID = Clients.Client_ID "
      "WHERE Diary.Status = 'J' AND Total_Price > 0 AND Is_Billed_To = True");
  const QJsonObject entry = Json({"job", "d.mdb", QString::number(job)}).object();
  const QString client = QString::number(entry["Client_ID"].toInteger());
  Done({"balances", "d.mdb", "--client", client});
  const double before = Client(client.toLongLong())["Account_Balance"].toDouble();
  Done({"done", "d.mdb", QString::number(job)});
  EXPECT_DOUBLE_EQ(Client(client.toLongLong())["Account_Balance"].toDouble(),
                   before - entry["Total_Of_Services"].toDouble());
}

TEST_F(ClientCommandsTest, AJobIsShownAsItIsStored) {
  const qint64 job = Key("SELECT MIN(Diary_ID) FROM Diary WHERE Status = 'J'");
  const QString id = QString::number(job);
  Done({"sql", "d.mdb",
        "UPDATE Diary SET Status = 'JP', Total_Price = 82.5, Total_GST = 7.5 WHERE Diary_ID = " +
            id});
  const QJsonObject entry = Json({"job", "d.mdb", id}).object();
  EXPECT_EQ(entry["Status"].toString(), "JP") << "not the status it shows as";
  EXPECT_DOUBLE_EQ(entry["Total_Price"].toDouble(), 82.5);
  EXPECT_DOUBLE_EQ(entry["Total_GST"].toDouble(), 7.5);
}

TEST_F(ClientCommandsTest, ThePayerAndTheDebtAreSetLikeOnTheScreen) {
  const qint64 id =
      Key("SELECT MIN(Client_ID) FROM Clients WHERE Status = 'Active' AND Is_Billed_To = True");
  const qint64 payer =
      Key("SELECT MAX(Client_ID) FROM Clients WHERE Status = 'Active' AND Is_Billed_To = True");
  ASSERT_NE(id, payer);
  const auto set = [&](const QString& change) {
    return Json({"client-set", "d.mdb", QString::number(id), change}).object();
  };
  EXPECT_EQ(set(QStringLiteral("billing_client_id=%1").arg(payer))["Billing_Client_ID"].toInteger(),
            payer);
  const auto flag = QStringLiteral(
                        "SELECT COUNT(*) FROM Clients WHERE Client_ID = %1 AND "
                        "Is_Billed_To = True")
                        .arg(id);
  EXPECT_EQ(Key(flag), 0);
  EXPECT_EQ(set(QStringLiteral("Billing_Client_ID=%1").arg(id))["Billing_Client_ID"].toInteger(),
            id);
  EXPECT_EQ(Key(flag), 1);
  EXPECT_EQ(set("Status=bad DEBTOR")["Status"].toString(), "Bad debtor");
}

TEST_F(ClientCommandsTest, BalancesAreComputedBeforeTheyAreListed) {
  Done({"sql", "d.mdb", "UPDATE Clients SET Account_Balance = -999"});
  const QJsonObject lists = Json({"balances", "d.mdb"}).object();
  ASSERT_GT(lists["debtors"].toArray().size(), 0);
  for (const QJsonValue& debtor : lists["debtors"].toArray()) {
    EXPECT_GT(debtor["Amount_Owing"].toDouble(), 0);
    EXPECT_NE(debtor["Amount_Owing"].toDouble(), 999);
  }
  for (const QJsonValue& creditor : lists["creditors"].toArray())
    EXPECT_LT(creditor["Amount_Owing"].toDouble(), 0);
}

TEST_F(ClientCommandsTest, TheScheduleCheckFindsAMissingVisit) {
  EXPECT_EQ(Json({"schedule-check", "d.mdb"}).array().size(), 0);
  const qint64 id =
      Key("SELECT MIN(cs.Client_ID) FROM Client_Services cs INNER JOIN Clients c ON "
          "cs.Client_ID = c.Client_ID WHERE cs.Status = 'Regular' AND c.Status = 'Active'");
  Done({"sql", "d.mdb",
        QStringLiteral("DELETE FROM Diary WHERE Client_ID = %1 AND Status = 'J'").arg(id)});
  const QJsonArray problems = Json({"schedule-check", "d.mdb"}).array();
  ASSERT_GE(problems.size(), 1);
  EXPECT_EQ(problems.first()["Client_ID"].toInteger(), id);
}

TEST_F(ClientCommandsTest, WhatIsNotThereIsOneClearLine) {
  const QStringList calls[] = {{"client", "d.mdb", "9999"},
                               {"client-set", "d.mdb", "9999", "Map=1"},
                               {"job", "d.mdb", "99999"},
                               {"balances", "d.mdb", "--client", "9999"},
                               {"clients", "d.mdb", "--status", "Asleep"}};
  for (const QStringList& call : calls) {
    const Result result = Run(call);
    EXPECT_EQ(result.exitCode, 1) << call.join(u' ').toStdString();
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err.count(u'\n'), 1) << result.err.toStdString();
  }
}

}  // namespace
}  // namespace quillary::cli
