#include "cli/CompanionFixture.h"

namespace quillary {
namespace {

class BackupCommandsTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    Done({"demo", File(), "--clients", "12"});
  }
  QString File() const { return Path("business.mdb"); }
  QString Clients() const {
    return Done({"sql", File(), "SELECT COUNT(*) AS N FROM Clients"}).simplified();
  }
};

TEST_F(BackupCommandsTest, WhatWasLostSinceComesBackAndWhatWasThereIsKept) {
  const QString before = Clients();
  Done({"backup", File(), "--to", Path("Mine.MDB"), "--description", "before the storm"});
  Done({"sql", File(), "DELETE FROM Clients"});
  EXPECT_EQ(Run({"restore", File(), Path("Mine.MDB")}).exitCode, 1) << "only with --yes";
  Done({"--yes", "restore", File(), Path("Mine.MDB")});
  EXPECT_EQ(Clients(), before);
  const QJsonArray kept = Json({"backups", File()}).array();
  ASSERT_EQ(kept.size(), 1);
  EXPECT_TRUE(kept[0].toObject()["Backup_Description"].toString().startsWith(
      "Automatic backup before restoration"));
  EXPECT_EQ(kept[0].toObject()["Clients"].toInt(), 0);
  EXPECT_EQ(Run({"--yes", "restore", File(), Path("none.mdb")}).exitCode, 1);
  Done({"check", File()});
}

TEST_F(BackupCommandsTest, OneClientComesBackFromABackup) {
  Done({"backup", File(), "--to", Path("Mine.MDB")});
  const QString balance = "SELECT Account_Balance AS N FROM Clients WHERE Client_ID = 5";
  const QJsonValue owed = Field(File(), balance);
  const QStringList listing = {"restore-client", File(), Path("Mine.MDB"), "--client", "5"};
  EXPECT_EQ(Json(listing).array().size(), 0);
  Done({"sql", File(), "DELETE FROM Payments WHERE Client_ID = 5"});
  Done({"sql", File(), "UPDATE Clients SET Notes = 'lost' WHERE Client_ID = 5"});
  const QJsonArray listed = Json(listing).array();
  ASSERT_GT(listed.size(), 1);
  EXPECT_EQ(listed[0].toObject()["What"].toString(), "Notes");
  EXPECT_EQ(listed[1].toObject()["Since"].toString(), "gone");
  EXPECT_EQ(Run(listing + QStringList{"--rows", "99"}).exitCode, 1);
  Done(QStringList{"--yes"} + listing + QStringList{"--rows", "1"});
  EXPECT_EQ(Json(listing).array().size(), listed.size() - 1) << "only what was asked for";
  EXPECT_TRUE(Done(QStringList{"--yes"} + listing).contains("Brought back for"));
  EXPECT_EQ(Json(listing).array().size(), 0);
  EXPECT_EQ(Field(File(), balance), owed);
  Done({"check", File()});
  EXPECT_EQ(Run({"restore-client", File(), Path("Mine.MDB"), "--client", "999"}).exitCode, 1);
  EXPECT_EQ(Run({"restore-client", File(), Path("Mine.MDB")}).exitCode, 2);
}

TEST_F(BackupCommandsTest, LeavingTakesWhatIsSwitchedOn) {
  EXPECT_EQ(Json({"exit-backups", File()}).array().size(), 0);
  Done({"settings", File(), "DO_DAILY_BACKUP", "1"});
  Done({"settings", File(), "do_weekly_backup", "1"});
  EXPECT_EQ(Json({"exit-backups", File()}).array().size(), 2);
  EXPECT_TRUE(QFile::exists(Path("Archive/Data1Mon.mdb")));
  EXPECT_TRUE(QFile::exists(Path("Archive/Data21.mdb")));
}

TEST_F(BackupCommandsTest, CompactingLosesRoomAndNothingElse) {
  Done({"sql", File(), "DELETE FROM Diary_Services"});
  const QString before = Clients();
  const QJsonObject result = Json({"compact", File()}).array()[0].toObject();
  EXPECT_LT(result["Bytes_After"].toInt(), result["Bytes_Before"].toInt());
  EXPECT_TRUE(QFile::exists(result["Backup"].toString()));
  EXPECT_EQ(Clients(), before);
}

TEST_F(BackupCommandsTest, TransferredClientsGoWithTheirServicesAndNothingElse) {
  Done({"sql", File(), "UPDATE Clients SET Status = 'Transferred' WHERE Client_ID < 4"});
  Done({"transferred", File(), Path("theirs.mdb")});
  const auto count = [&](const QString& file, const QString& table) {
    return Field(file, "SELECT COUNT(*) AS N FROM " + table).toInt();
  };
  EXPECT_EQ(count(Path("theirs.mdb"), "Clients"), 3);
  EXPECT_EQ(count(Path("theirs.mdb"), "Client_Services"),
            count(File(), "Client_Services WHERE Client_ID < 4"));
  EXPECT_EQ(count(Path("theirs.mdb"), "Diary"), 0);
  EXPECT_EQ(count(Path("theirs.mdb"), "Payments"), 0);
  EXPECT_GT(count(File(), "Diary"), 0) << "the business itself keeps everything";
}

TEST_F(BackupCommandsTest, SettingsAreCheckedAsTheirScreensDo) {
  const struct {
    const char* fault;
    QStringList words;
    const char* told;  // null: stored
  } cases[] = {
      {"a day too few", {"Days_To_Advance_Schedule", "0"}, "between 1 to 365"},
      {"a day too many", {"Days_To_Advance_Schedule", "366"}, "between 1 to 365"},
      {"the last that fits", {"days_to_advance_schedule", "365"}, nullptr},
      {"no number", {"Days_To_Advance_Schedule", "soon"}, "valid numeric value"},
      {"no method", {"Accounting_Method", "Barter"}, "Cash or Accrual"},
      {"no such setting", {"Nonsense", "1"}, "no setting"},
      {"an empty code", {"FSE_Code", " "}, "Franchisee Code"},
      {"a text with an apostrophe", {"Company_Name", "O'Brien's"}, nullptr},
  };
  for (const auto& c : cases) {
    const Result result = Run(QStringList{"settings", File()} + c.words);
    EXPECT_EQ(result.exitCode, c.told ? 1 : 0) << c.fault;
    EXPECT_TRUE(result.err.contains(c.told ? c.told : "")) << c.fault << result.err.toStdString();
  }
  EXPECT_EQ(Json({"settings", File(), "Company_Name"}).array()[0].toObject()["Value"].toString(),
            "O'Brien's");
  Done({"settings", File(), "SMTP Password", "hush"});
  EXPECT_FALSE(Done({"settings", File()}).contains("hush")) << "a secret is not shown";
}

TEST_F(BackupCommandsTest, TheLastEmployeeStays) {
  Done({"employee", File(), "--add", "Nina"});
  const int all =
      static_cast<int>(Json({"--yes", "employee", File(), "--remove", "1"}).array().size());
  for (int id = 2; id <= all; ++id)
    Done({"--yes", "employee", File(), "--remove", QString::number(id)});
  const Result last = Run({"--yes", "employee", File(), "--remove", QString::number(all + 1)});
  EXPECT_EQ(last.exitCode, 1);
  EXPECT_TRUE(last.err.contains("You cannot remove the last employee on the list."));
}

}  // namespace
}  // namespace quillary
