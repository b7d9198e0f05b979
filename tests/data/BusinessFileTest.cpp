#include "data/Holidays.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "support/BusinessTest.h"

#include <QFileInfo>

namespace quillary {
namespace {

TEST_F(BusinessTest, AFreshBusinessHasItsSeedRows) {
  EXPECT_EQ(business().LookupField("infSystem.Database_Version"), Value(57));
  EXPECT_EQ(business().LookupField("infOptions.GST_Percentage").ToDouble(), 0.1);
  const std::pair<const char*, int> counts[] = {
      {"infOptions", 1}, {"infSystem", 1},  {"infPersonalDetails", 1},
      {"Countries", 5},  {"Divisions", 31}, {"Holiday", 2},
      {"Clients", 0}};
  for (const auto& [table, rows] : counts) EXPECT_EQ(Count(table), rows) << table;
  for (const QString& table : BusinessTables()) {
    EXPECT_TRUE(business().RunSQL("SELECT * FROM " + table).IsOpen()) << table.toStdString();
  }
}

TEST_F(BusinessTest, AnExistingFileIsNeverOverwritten) {
  EXPECT_THROW(CreateEmptyBusiness(business().DatabaseFile()), StorageFailure);
  EXPECT_EQ(Count("Countries"), 5);
}

TEST_F(BusinessTest, AFailedMakingLeavesNoFileBehind) {
  const QString path = folder.filePath(QStringLiteral("missing/DATA.MDB"));
  EXPECT_THROW(CreateEmptyBusiness(path), StorageFailure);
  EXPECT_FALSE(QFileInfo::exists(path));
}

TEST_F(BusinessTest, TheNextStatementReopensAClosedFile) {
  business().CloseConnection();
  EXPECT_FALSE(business().IsConnected());
  EXPECT_EQ(Count("Countries"), 5);
  EXPECT_TRUE(business().IsConnected());
}

TEST_F(BusinessTest, ARefusedStatementIsSilentButHeard) {
  ExpectRefused("Nowhere");
  const Recordset none = business().RunSQL(QStringLiteral("SELECT * FROM Nowhere"));
  EXPECT_FALSE(none.IsOpen());
  EXPECT_THROW(none.Field(u"X"), NoRecordset);
  EXPECT_THROW(none.EndOfFile(), NoRecordset);
}

TEST_F(BusinessTest, AForeignSQLiteFileIsToldSoAndLeftAlone) {
  const QString path = folder.filePath(QStringLiteral("FOREIGN.MDB"));
  {
    Connection foreign(path);
    foreign.Open(OpenMode::Create);
    foreign.Run("CREATE TABLE Recipes (Name TEXT(20))");
  }
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray before = file.readAll();
  Business other(outside.Ports(), path);
  try {
    other.ConnectToDatabase();
    FAIL() << "opened";
  } catch (const StorageFailure& failure) {
    EXPECT_NE(QString(failure.what()).indexOf("infSystem"), -1) << failure.what();
  }
  file.seek(0);
  EXPECT_EQ(file.readAll(), before);
}

TEST_F(BusinessTest, LookupOfAnEmptyTableReachesTheCaller) {
  EXPECT_THROW(business().LookupField("Employees.Employee_ID"), NoCurrentRecord);
  EXPECT_TRUE(business().FirstField(Sql("SELECT Employee_ID FROM Employees")).IsNull());
}

TEST_F(BusinessTest, TheFirstHolidayOfADayDecides) {
  Run(Sql("INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring) VALUES ('01/02', 2026, No)"));
  Run(Sql("INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring) VALUES ('01/02', 2027, No)"));
  Run(Sql("INSERT INTO Holiday (Hol_Date, Hol_Year, Hol_Recurring) VALUES ('26/12', 2020, No)"));
  LoadHolidaysIntoArray(business());
  EXPECT_EQ(business().holidays.size(), 5u);  // the row of 2020 is past; one empty one at the end
  const std::pair<QDate, bool> cases[] = {
      {{2030, 12, 25}, true}, {{2026, 2, 1}, true},    {{2027, 2, 1}, false},
      {{2026, 1, 2}, false},  {{2026, 12, 26}, false}, {QDate(), false},
  };
  for (const auto& [date, holiday] : cases) {
    EXPECT_EQ(IsHoliday(business().holidays, date), holiday) << date.toString().toStdString();
  }
  EXPECT_EQ(NextNonHolidayDate(business().holidays, QDate(2026, 12, 25)), QDate(2026, 12, 26));
}

}  // namespace
}  // namespace quillary
