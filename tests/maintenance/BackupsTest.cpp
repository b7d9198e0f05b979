#include "data/store/Connection.h"
#include "maintenance/backups/BackupPlaces.h"
#include "maintenance/backups/Backups.h"
#include "maintenance/backups/ExitBackups.h"
#include "support/BusinessTest.h"
#include "support/FailingDisk.h"

#include <QDir>
#include <QFile>

namespace quillary::maintenance {
namespace {

class BackupsTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    settings_ = std::make_unique<LocalSettings>(folder.path(), outside.prompter);
    archive_ = folder.filePath("Archive");
    QDir().mkpath(archive_);
  }

  void Set(const char* key, const QString& value) {
    settings_->WriteLocalSetting("BACKUPS", QString::fromLatin1(key), value);
  }
  void LeaveAt(const DateTime& now) {
    outside.clock.now = now;
    TakeExitBackups(business(), *settings_, archive_);
  }
  QStringList Files() const { return QDir(archive_).entryList(QDir::Files, QDir::Name); }
  QString DescriptionIn(const QString& name) const {
    return ReadBackup(QDir(archive_).filePath(name)).description;
  }
  static DateTime At(int year, int month, int day, int hour = 17) {
    return {QDate(year, month, day), QTime(hour, 5, 9)};
  }

  std::unique_ptr<LocalSettings> settings_;
  QString archive_;
};

TEST_F(BackupsTest, AWeeksExitsLeaveADayAWeekAndAMonth) {
  for (const char* flag : {"DO_DAILY_BACKUP", "DO_WEEKLY_BACKUP", "DO_MONTHLY_BACKUP"})
    Set(flag, "1");
  LeaveAt(At(2026, 11, 3));  // a Tuesday: the week of Monday the 2nd has none yet
  EXPECT_EQ(Files(), (QStringList{"Data1Tue.mdb", "Data21.mdb", "Data3Nov.mdb"}));
  EXPECT_EQ(DescriptionIn("Data1Tue.mdb"), "Daily backup on Tuesday, 5:05:09 PM");
  EXPECT_EQ(DescriptionIn("Data21.mdb"), "Weekly backup on 3/11/2026 5:05:09 PM");
  EXPECT_EQ(DescriptionIn("Data3Nov.mdb"), "Monthly backup on November");
  EXPECT_EQ(settings_->ReadLocalSetting("BACKUPS", "LAST_WEEKLY_BACKUP"), "2026/11/03");

  LeaveAt(At(2026, 11, 3, 18));
  EXPECT_EQ(DescriptionIn("Data1Tue.mdb"), "Daily backup on Tuesday, 6:05:09 PM")
      << "the day's file is the last exit's";
  EXPECT_EQ(DescriptionIn("Data21.mdb"), "Weekly backup on 3/11/2026 5:05:09 PM")
      << "one a week, but for Mondays";
  LeaveAt(At(2026, 11, 9, 9));
  LeaveAt(At(2026, 11, 9, 10));
  EXPECT_EQ(DescriptionIn("Data22.mdb"), "Weekly backup on 9/11/2026 10:05:09 AM");
}

TEST_F(BackupsTest, WhatIsDueDependsOnWhatWasTakenLast) {
  const struct {
    const char* fault;
    QDate today, lastWeekly, lastMonthly;
    QStringList due;
  } cases[] = {
      {"the first exit ever", {2026, 11, 4}, {}, {}, {"Data21.mdb", "Data3Nov.mdb"}},
      {"taken this week and month", {2026, 11, 4}, {2026, 11, 2}, {2026, 11, 1}, {}},
      {"the Sunday belongs to the week before",
       {2026, 11, 8},
       {2026, 11, 1},
       {2026, 11, 1},
       {"Data21.mdb"}},
      {"a Monday always", {2026, 11, 30}, {2026, 11, 30}, {2026, 11, 1}, {"Data25.mdb"}},
      {"the Monday of the 29th is the fifth",
       {2027, 3, 31},
       {2027, 3, 22},
       {2027, 3, 1},
       {"Data25.mdb"}},
      {"the week is that of its Monday, in the month before",
       {2026, 12, 2},
       {2026, 11, 25},
       {2026, 11, 30},
       {"Data25.mdb", "Data3Dec.mdb"}},
  };
  for (const auto& c : cases) {
    BackupSettings settings;
    settings.weekly = settings.monthly = true;
    settings.lastWeekly = c.lastWeekly;
    settings.lastMonthly = c.lastMonthly;
    QStringList due;
    for (const DueBackup& backup : DueBackups(settings, c.today, archive_))
      due += QFileInfo(backup.file).fileName();
    EXPECT_EQ(due, c.due) << c.fault;
  }
}

TEST_F(BackupsTest, AYearOfExitsKeepsSevenDaysFiveWeeksAndTwelveMonths) {
  for (const char* flag : {"DO_DAILY_BACKUP", "DO_WEEKLY_BACKUP", "DO_MONTHLY_BACKUP"})
    Set(flag, "1");
  for (QDate day(2026, 1, 1); day.year() == 2026; day = day.addDays(1))
    LeaveAt({day, QTime(18, 0)});
  EXPECT_EQ(Files().size(), 7 + 5 + 12);
  EXPECT_EQ(DescriptionIn("Data3Jun.mdb"), "Monthly backup on June");
  EXPECT_EQ(DescriptionIn("Data25.mdb"), "Weekly backup on 30/11/2026 6:00:00 PM");
}

TEST_F(BackupsTest, TheOneAskedAboutGoesWhereItCan) {
  Set("DO_CUSTOM_BACKUP", "1");
  Set("CUSTOM_PATH", archive_ + "/ ");
  outside.prompter.Expect("Do you want to back-up your database to", Answer::No);
  LeaveAt(At(2026, 11, 2));
  EXPECT_TRUE(Files().isEmpty());
  outside.prompter.Expect("Do you want to back-up your database to", Answer::Yes);
  LeaveAt(At(2026, 11, 2));
  EXPECT_EQ(Files(), QStringList{"DATA 02-NOV-26 05.05.MDB"}.replaceInStrings("05.05", "17.05"));
  EXPECT_EQ(DescriptionIn(Files().first()), "Custom backup done on 2/11/2026 5:05:09 PM.");

  Set("CUSTOM_PATH", folder.filePath("gone"));
  outside.prompter.Expect("Do you want to back-up your database to", Answer::Yes);
  LeaveAt(At(2026, 11, 2));
  EXPECT_TRUE(outside.prompter.TakeTold().join("|").contains("doesn't exist. Please reload"));
}

TEST_F(BackupsTest, OneByHandIsCheckedBeforeAndAfterItsQuestion) {
  const auto create = [&](const QString& name, const QString& where) {
    return CreateCustomBackup(business(), outside.prompter, {name, where});
  };
  EXPECT_EQ(create(" ", archive_).refusal->message, "Please enter a valid filename.");
  outside.prompter.Expect("Do you want to back-up", Answer::No);
  EXPECT_FALSE(create("Mine", archive_).made);
  outside.prompter.Expect("Do you want to back-up", Answer::Yes);
  EXPECT_TRUE(create("Mine", folder.filePath("gone")).refusal->message.contains("doesn't exist"));
  outside.prompter.Expect("Do you want to back-up", Answer::Yes);
  EXPECT_TRUE(create("Mine", archive_).made);
  EXPECT_EQ(Files(), QStringList{"Mine.mdb"});
  EXPECT_EQ(ProposedBackupName(QDate(2026, 11, 2)), "QYBackup Monday 02-11-2026");
}

TEST_F(BackupsTest, ACopyThatCannotBeMadeLeavesTheOldOne) {
  const QString file = QDir(archive_).filePath("Data1Mon.mdb");
  BackupDatabaseTo(business(), "the good one", file);
  {
    FailingDisk disk;
    disk.FailAt(3, DiskFault::FullFromOn);
    EXPECT_THROW(BackupDatabaseTo(business(), "the bad one", file), StorageFailure);
  }
  EXPECT_EQ(Files(), QStringList{"Data1Mon.mdb"});
  EXPECT_EQ(ReadBackup(file).description, "the good one");
  EXPECT_EQ(business().FirstField(Sql("SELECT Backup_Description FROM infSystem")).ToText(),
            "the bad one")
      << "the business names what was tried last";
}

TEST_F(BackupsTest, RestoringKeepsWhatWasAndBringsBackWhatTheBackupHolds) {
  Run(
      Sql("INSERT INTO Clients (Display_Name, Status, Account_Balance) "
          "VALUES ('Abbott', 'Active', -55)"));
  const QString backup = QDir(archive_).filePath("Mine.mdb");
  BackupDatabaseTo(business(), "before", backup);
  Run(Sql("UPDATE Clients SET Display_Name = 'Changed since'"));
  EXPECT_EQ(CheckRestorable(business(), business().DatabaseFile())->message.left(22),
            "The file you have sele");
  EXPECT_EQ(CheckRestorable(business(), "notes.txt")->message,
            "You did not select a database to restore.");
  ASSERT_FALSE(CheckRestorable(business(), backup));
  const QString kept = RestoreBackup(business(), backup, archive_);
  EXPECT_EQ(business().FirstField(Sql("SELECT Display_Name FROM Clients")).ToText(), "Abbott");
  EXPECT_EQ(ReadBackup(kept).description,
            "Automatic backup before restoration 2/11/2026 9:00:00 AM.");

  const std::vector<BackupFacts> listed = ListBackups(archive_);
  ASSERT_EQ(listed.size(), 2u);
  for (const BackupFacts& facts : listed) {
    EXPECT_EQ(facts.clients, 1);
    EXPECT_EQ(facts.owed, Money::FromUnits(550000));
  }
}

TEST_F(BackupsTest, ADamagedBackupIsNeitherListedNorRestored) {
  const QString backup = QDir(archive_).filePath("Mine.mdb");
  BackupDatabaseTo(business(), "good", backup);
  QFile file(backup);
  ASSERT_TRUE(file.open(QIODevice::ReadWrite));
  file.seek(0);
  file.write(QByteArray(100, 'x'));
  file.close();
  EXPECT_TRUE(ListBackups(archive_).empty());
  EXPECT_TRUE(CheckRestorable(business(), backup)->message.contains("damaged"));
}

}  // namespace
}  // namespace quillary::maintenance
