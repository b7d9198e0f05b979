#include "data/store/Connection.h"
#include "roll/ScheduleEngine.h"
#include "roll/ScheduleTest.h"

#include <QFile>

namespace quillary::roll {
namespace {

const QString kRepairQuestion = QStringLiteral(
    "The system has detected a database corruption. The database needs to be repaired.\n\n"
    "Do you want to run the program that can fix the problem?");

class RollFaultTest : public ScheduleTest {
 protected:
  /// Lets the file grow by no more than `pages`, as a full disk would.
  void FillDisk(int pages) {
    sqlite3* file = business().StoreConnection().Handle();
    const QByteArray limit =
        QStringLiteral("PRAGMA max_page_count = %1").arg(Pragma("page_count") + pages).toUtf8();
    sqlite3_exec(file, limit.constData(), nullptr, nullptr, nullptr);
  }

  /// Spoils the page that a table begins with.
  void Damage(const char* table) {
    const int page = Number(
        QStringLiteral("SELECT rootpage FROM sqlite_master WHERE name = '%1'").arg(QString(table)));
    business().CloseConnection();
    QFile file(business().DatabaseFile());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek((page - 1) * 4096);
    file.write(QByteArray(200, '\xff'));
  }

  QStringList Everything() {
    return Rows("SELECT * FROM Diary") + Rows("SELECT * FROM Diary_Services") + NextVisits() +
           Rows("SELECT Last_Schedule_Ending FROM infSystem");
  }

 private:
  int Pragma(const char* name) { return Number(QStringLiteral("PRAGMA ") + QString(name)); }
  int Number(const QString& statement) {
    sqlite3_stmt* query = nullptr;
    sqlite3_prepare_v2(business().StoreConnection().Handle(), statement.toUtf8().constData(), -1,
                       &query, nullptr);
    sqlite3_step(query);
    const int number = sqlite3_column_int(query, 0);
    sqlite3_finalize(query);
    return number;
  }
};

TEST_F(RollFaultTest, FullDiskUndoesTheWholeRoll) {
  for (int client = 0; client < 40; ++client) {
    AddService(AddClient(), {.frequency = 1, .nextVisit = "2026-10-30"});
  }
  AddEntry(Id<Client>(1), Day("2026-11-05"), "J");
  const QStringList before = Everything();
  for (const int pages : {0, 3, 8}) {
    FillDisk(pages);
    EXPECT_EQ(AdvanceScheduleGlobally(business()).entriesMade, 0);
    const QStringList told = outside.prompter.TakeTold();
    ASSERT_EQ(told.size(), 1) << pages;
    EXPECT_TRUE(told.front().startsWith(u"Error: ")) << told.front().toStdString();
    EXPECT_EQ(Everything(), before) << pages;
  }
  EXPECT_THROW(
      {
        FillDisk(0);
        business().values.daysToAdvanceSchedule = 365;
        AdvanceScheduleForClient(business(), Id<Client>(1));
      },
      StorageFailure);
  EXPECT_EQ(Everything(), before);
  EXPECT_EQ(outside.busy.depth, 0);
  FillDisk(10000);
  EXPECT_GT(AdvanceScheduleGlobally(business()).entriesMade, 600);
}

TEST_F(RollFaultTest, BadRowIsReportedAndTheRollGoesOn) {
  AddService(AddClient());
  AddService(AddClient());
  Run(Sql("ALTER TABLE Client_Services DROP COLUMN Frequency"));
  AdvanceScheduleGlobally(business());
  const QStringList reports = outside.errors.TakeReports();
  ASSERT_EQ(reports.size(), 2);
  EXPECT_TRUE(reports.front().startsWith(u"Crunchers|AdvanceScheduleForClient|Error: 3021 - "));
  EXPECT_EQ(Rows("SELECT Last_Schedule_Ending FROM infSystem"), QStringList("2026-11-16"));
}

// Clients are rolled many at a time; one whose rows the store does not take must not cost the
// others theirs, nor be reported twice.
TEST_F(RollFaultTest, ClientThatFailsKeepsHisDiaryAndTheOthersRoll) {
  for (int client = 0; client < 3; ++client) {
    AddService(AddClient(), {.frequency = 7, .nextVisit = "2026-11-03"});
  }
  AddEntry(Id<Client>(2), Day("2026-11-05"), "J");
  sqlite3_exec(business().StoreConnection().Handle(),
               "CREATE TRIGGER Refuse BEFORE INSERT ON Diary WHEN NEW.Client_ID = 2 "
               "BEGIN SELECT RAISE(ABORT, 'refused'); END",
               nullptr, nullptr, nullptr);
  const RollCount count = AdvanceScheduleGlobally(business());
  EXPECT_EQ(outside.errors.TakeReports().size(), 1);
  EXPECT_EQ(Rows("SELECT Schedule_Date FROM Diary WHERE Client_ID = 2"), QStringList("2026-11-05"));
  EXPECT_EQ(Rows("SELECT Client_ID, Sequence FROM Diary WHERE Schedule_Date = #2026/11/03#"),
            QStringList({"1 1", "3 2"}));
  EXPECT_EQ(count.entriesMade, Count("Diary") - 1);
  EXPECT_EQ(Rows("SELECT Last_Schedule_Ending FROM infSystem"), QStringList("2026-11-16"));
}

TEST_F(RollFaultTest, UnreadableMarkerIsToldAndNothingIsTouched) {
  AddService(AddClient());
  ExpectRefused("infSystem");
  Run(Sql("ALTER TABLE infSystem DROP COLUMN Last_Schedule_Ending"));
  AdvanceScheduleGlobally(business());
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1);
  EXPECT_EQ(Count("Diary"), 0);
}

struct RepairCase {
  const char* fault;
  const char* programBeside;
  bool wholeRoll;
};

TEST_F(RollFaultTest, DamageLeadsToTheRepairProgram) {
  AddService(AddClient());
  AddService(AddClient());
  Damage("Client_Services");
  const RepairCase cases[] = {
      {"program in its given name not found", "CompactDB.EXE", true},
      {"program in this platform's name not found", "CompactDB", false},
      {"missing program not told", nullptr, true},
  };
  for (const RepairCase& repair : cases) {
    SCOPED_TRACE(repair.fault);
    RecordedDesktop& desktop = outside.desktop;
    desktop = RecordedDesktop();
    if (repair.programBeside) desktop.programsPresent += QString(repair.programBeside);
    outside.prompter.Expect(kRepairQuestion, Answer::Yes);
    if (repair.wholeRoll) {
      AdvanceScheduleGlobally(business());
    } else {
      AdvanceScheduleForClient(business(), Id<Client>(1));
    }
    EXPECT_FALSE(business().IsConnected());
    EXPECT_TRUE(desktop.endedWith.has_value());
    EXPECT_EQ(desktop.started, desktop.programsPresent);
    EXPECT_EQ(desktop.startedWith.value(0, business().DatabaseFile()), business().DatabaseFile());
    const QString told = outside.prompter.TakeTold().join(u' ');
    EXPECT_EQ(told.startsWith(u"The program CompactDB.EXE was not found in "),
              !repair.programBeside);
    EXPECT_EQ(told.isEmpty(), repair.programBeside != nullptr);
    EXPECT_EQ(outside.busy.depth, 0);
  }
}

// Nothing can be written any more after damage, so a roll that goes on would be one in pieces.
TEST_F(RollFaultTest, DeclinedRepairLeavesTheDiaryAsItWas) {
  AddService(AddClient());
  AddService(AddClient());
  AddEntry(Id<Client>(1), Day("2026-11-05"), "J");
  Damage("Client_Services");
  outside.prompter.Expect(kRepairQuestion, Answer::No);
  AdvanceScheduleGlobally(business());
  EXPECT_EQ(outside.prompter.TakeTold(),
            QStringList("Error: -2147467259 - database disk image is malformed"));
  outside.prompter.Expect(kRepairQuestion, Answer::No);
  EXPECT_THROW(AdvanceScheduleForClient(business(), Id<Client>(1)), StorageFailure);
  EXPECT_EQ(Rows("SELECT Schedule_Date FROM Diary"), QStringList("2026-11-05"));
  EXPECT_EQ(Rows("SELECT Last_Schedule_Ending FROM infSystem"), QStringList("-"));
  EXPECT_FALSE(outside.desktop.endedWith.has_value());
}

}  // namespace
}  // namespace quillary::roll
