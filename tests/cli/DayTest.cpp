#include "CompanionFixture.h"

#include <QSet>

namespace quillary::cli {
namespace {

const QStringList kSteps = {"LocalSettings.Initialize",
                            "SelectDatabaseToAccess",
                            "Globals.Initialize",
                            "ConnectToDatabase",
                            "FirstTime.ShowYourself",
                            "Upgrader.Initialize",
                            "LoadHolidaysIntoArray",
                            "Global Var Initialize",
                            "Default_Employee_ID",
                            "Default_Employee_ID.4",
                            "Default_Employee_ID.5",
                            "AdvanceScheduleGlobally",
                            "Budget_Manager.Initialize",
                            "MainMenuMDI.ShowYourself",
                            "ListOfClientsWithSchedulingProblem.CheckClientSchedules"};

const char kHorizon[] = "SELECT Last_Schedule_Ending FROM infSystem";

QJsonArray DiaryRows(const QJsonDocument& diary) {
  return diary.object()["rows"].toArray();
}

/// The dump's lines of one but not of the other.
QSet<QString> Difference(const QStringList& before, const QStringList& after) {
  QSet<QString> lines(before.begin(), before.end());
  for (const QString& line : after) {
    if (!lines.remove(line)) lines.insert(line);
  }
  return lines;
}

class DayTest : public CompanionTest {};

TEST_F(DayTest, ADemoDayFromItsStartToAJobDone) {
  Done({"demo", "d.mdb", "--clients", "40", "--months=3", "--seed", "5"});
  EXPECT_EQ(Done({"start", "d.mdb"}), kSteps.join("\n") + "\n");
  EXPECT_EQ(Field("d.mdb", kHorizon).toString(), "2027-01-01 00:00:00");

  const QStringList started = Dump("d.mdb");
  EXPECT_EQ(Json({"roll", "d.mdb"}).object(),
            (QJsonObject{{"entries_deleted", 0}, {"entries_made", 0}}));
  EXPECT_EQ(Dump("d.mdb"), started) << "a second roll on the same day";

  const QJsonDocument diary = Json({"diary", "d.mdb", "--from", "2026-11-02"});
  qint64 job = 0;
  double amount = 0;
  int jobs = 0;
  int lastSequence = 0;
  for (const QJsonValue& value : DiaryRows(diary)) {
    const QJsonObject row = value.toObject();
    EXPECT_EQ(row["Schedule_Date"].toString(), "2026-11-02 00:00:00");
    EXPECT_GE(row["Sequence"].toInt(), lastSequence);
    lastSequence = row["Sequence"].toInt();
    const QString status = row["Status"].toString();
    if (status == "J" && job == 0) job = row["Diary_ID"].toInteger();
    if (!QStringList{"J", "JD", "JU", "JP", "JI"}.contains(status)) continue;
    amount += row["Total_Price"].toDouble();
    ++jobs;
  }
  EXPECT_DOUBLE_EQ(diary["Total_Amount_Of_Jobs"].toDouble(), amount);
  EXPECT_EQ(diary["Total_No_Of_Jobs"].toInt(), jobs);
  ASSERT_GT(job, 0) << "a demo day has a job to do";

  Done({"done", "d.mdb", QString::number(job)});
  const QSet<QString> changed = Difference(started, Dump("d.mdb"));
  // The entry, and what its client owes.
  EXPECT_EQ(changed.size(), 4) << QStringList(changed.values()).join("\n").toStdString();
  for (const QString& line : changed) {
    EXPECT_TRUE(line.startsWith(QStringLiteral("Diary|%1|").arg(job)) ||
                line.startsWith("Clients|"))
        << line.toStdString();
  }
  EXPECT_EQ(Field("d.mdb", QStringLiteral("SELECT Status FROM Diary WHERE Diary_ID = %1").arg(job))
                .toString(),
            "JD");

  const QJsonObject rolled = Json({"--today", "2026-11-03", "roll", "d.mdb"}).object();
  EXPECT_EQ(Field("d.mdb", kHorizon).toString(), "2027-01-02 00:00:00");
  EXPECT_GE(rolled["entries_made"].toInt(), rolled["entries_deleted"].toInt());
}

TEST_F(DayTest, ANewBusinessStarts) {
  Done({"new", "n.mdb"});
  EXPECT_EQ(Done({"start", "n.mdb"}), kSteps.join("\n") + "\n");
  EXPECT_EQ(Json({"start", "n.mdb"}).array().size(), kSteps.size());
  EXPECT_EQ(Field("n.mdb", "SELECT Count(*) FROM Employees").toInt(), 1);
  EXPECT_EQ(Done({"diary", "n.mdb", "--from", "2026-11-02"}),
            "Date  Seq  Diary_ID  Client  Address  Description  Price  Status  Employee  Paid\n"
            "total amount of jobs: $0.00\n"
            "total no of jobs:     0\n");
}

TEST_F(DayTest, AConvertedBusinessStartsRollsAndLists) {
  const QJsonObject receipt = Json({"convert", Sample(57), "c.mdb"}).object();
  EXPECT_EQ(receipt["version"].toInt(), 57);
  int diaryRows = 0;
  for (const QJsonValue& table : receipt["tables"].toArray()) {
    EXPECT_EQ(table["read"], table["written"]) << table["table"].toString().toStdString();
    diaryRows = table["table"] == "Diary" ? table["read"].toInt() : diaryRows;
  }
  EXPECT_EQ(diaryRows, 7289);
  Done({"start", "c.mdb"});
  EXPECT_EQ(Json({"roll", "c.mdb"}).object()["entries_made"].toInt(), 0);
  EXPECT_EQ(Json({"--today", "2026-11-03", "roll", "c.mdb"}).isObject(), true);
  EXPECT_EQ(Field("c.mdb", kHorizon).toString(), "2027-01-02 00:00:00");
  const QJsonDocument day = Json({"diary", "c.mdb", "--from", "2026-11-02"});
  const QJsonDocument week = Json({"diary", "c.mdb", "--from", "2026-11-02", "--to", "2026-11-08"});
  const QJsonDocument one =
      Json({"diary", "c.mdb", "--from", "2026-11-02", "--to", "2026-11-08", "--employee", "1"});
  EXPECT_GT(DiaryRows(day).size(), 0);
  EXPECT_GT(DiaryRows(week).size(), DiaryRows(day).size());
  EXPECT_GT(DiaryRows(week).size(), DiaryRows(one).size());
  for (const QJsonValue& row : DiaryRows(one)) EXPECT_EQ(row["Employee_ID"].toInt(), 1);
}

TEST_F(DayTest, OneClientIsRebuiltAlone) {
  Done({"demo", "d.mdb", "--clients", "30", "--months", "1"});
  Done({"start", "d.mdb"});
  const QString others = "SELECT Count(*) FROM Diary WHERE Client_ID <> %1";
  const int client = Field("d.mdb",
                           "SELECT Min(Client_ID) FROM Diary WHERE Status = 'J' AND "
                           "Schedule_Date > #2026/11/10#")
                         .toInt();
  const QJsonValue before = Field("d.mdb", others.arg(client));
  const QJsonObject count = Json({"roll", "d.mdb", "--client", QString::number(client)}).object();
  EXPECT_GT(count["entries_deleted"].toInt(), 0);
  EXPECT_EQ(count["entries_deleted"], count["entries_made"]);
  EXPECT_EQ(Field("d.mdb", others.arg(client)), before);
}

TEST_F(DayTest, TheSameSeedIsTheSameBusiness) {
  Done({"demo", "a.mdb", "--clients", "20", "--months", "2", "--seed", "3"});
  Done({"demo", "b.mdb", "--clients", "20", "--months", "2", "--seed", "3"});
  Done({"demo", "c.mdb", "--clients", "20", "--months", "2", "--seed", "4"});
  EXPECT_EQ(Dump("a.mdb"), Dump("b.mdb"));
  EXPECT_NE(Dump("a.mdb"), Dump("c.mdb"));
}

}  // namespace
}  // namespace quillary::cli
