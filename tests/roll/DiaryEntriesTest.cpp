#include "domain/TaxRate.h"
#include "roll/DiaryEntries.h"
#include "roll/ScheduleTest.h"

namespace quillary::roll {
namespace {

class DiaryEntriesTest : public ScheduleTest {
 protected:
  /// Employee 0 is none.
  std::optional<Id<Entry>> Made(qint64 client, qint64 employee, const char* status,
                                const char* day) {
    return SetUpDiaryEntryGetDiaryID(business(), Id<Client>(client),
                                     Value(employee).ToId<Employee>(),
                                     StoredEntryStatus(QString(status)), Day(day));
  }
};

TEST_F(DiaryEntriesTest, AnyLineOfTheServiceOnTheDayCounts) {
  AddEntry(Id<Client>(1), Day("2026-11-02"), "JC", 1);
  AddEntry(Id<Client>(1), Day("2026-11-03"), "V", 0);
  AddEntry(Id<Client>(2), Day("2026-11-04"), "JD", 1);
  AddEntry(Id<Client>(1), DateTime(Day("2026-11-05"), QTime(9, 0)), "J", 1);
  Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID) VALUES (99, 1)"));
  const std::tuple<const char*, qint64, const char*, bool> cases[] = {
      {"cancelled line does not block", 1, "2026-11-02", true},
      {"line of another service blocks", 2, "2026-11-02", false},
      {"entry without lines blocks", 1, "2026-11-03", false},
      {"line of another client blocks", 1, "2026-11-04", false},
      {"moment within the day is the day", 1, "2026-11-05", false},
      {"a date that is none", 1, "", false},
  };
  for (const auto& [fault, service, day, scheduled] : cases) {
    EXPECT_EQ(
        IsServiceScheduledForTheDay(business(), Id<Client>(1), Id<Service>(service), Day(day)),
        scheduled)
        << fault;
  }
}

TEST_F(DiaryEntriesTest, EntriesAreSharedOrMade) {
  const auto first = Made(1, 0, "J", "2026-11-02");
  EXPECT_EQ(Made(1, 0, "J", "2026-11-02"), first) << "employee 0 is found again by 0";
  EXPECT_EQ(Made(1, 0, "j", "2026-11-02"), first) << "status without regard to case";
  Made(1, 2, "J", "2026-11-02");
  Made(1, 0, "Q", "2026-11-02");
  Made(2, 0, "J", "2026-11-02");
  Made(1, 0, "J", "2026-11-03");
  EXPECT_EQ(Rows("SELECT Client_ID, Employee_ID, Status, Schedule_Date, [Sequence], Description, "
                 "Notes, Total_Price, Total_GST, Time_Requested, Estimated_Minutes FROM Diary"),
            (QStringList{
                "1 0 J 2026-11-02 1 - - 0 0 0 0",
                "1 2 J 2026-11-02 2 - - 0 0 0 0",
                "1 0 Q 2026-11-02 3 - - 0 0 0 0",
                "2 0 J 2026-11-02 4 - - 0 0 0 0",
                "1 0 J 2026-11-03 1 - - 0 0 0 0",
            }));
}

TEST_F(DiaryEntriesTest, KeyOfADeletedEntryIsNotHandedOutAgain) {
  const auto first = Made(1, 1, "J", "2026-11-02");
  Run(Sql("DELETE FROM Diary"));
  EXPECT_GT(Made(1, 1, "J", "2026-11-02"), first);
}

struct LineCase {
  const char* fault;
  const char* description;
  const char* notes;
  const char* code;
  const char* lineNotes;
  const char* descriptionAfter;
  const char* notesAfter;
};

TEST_F(DiaryEntriesTest, LinesJoinTextAndTotals) {
  const LineCase cases[] = {
      {"comma before the first code", "", "", "LM", "", "LM", "-"},
      {"blank description takes a comma", "  ", " ", "LM", "gate", "LM", " gate"},
      {"codes or notes not joined", "LM", "gate", "HT", "dog", "LM, HT", "gate /// dog"},
      {"separator dropped before no notes", "LM", "gate", "HT", "", "LM, HT", "gate /// "},
      {"separator made out of no notes", "LM", "", "HT", "dog", "LM, HT", "dog"},
      {"quotes lost", "LM", "", "O'H", "don't", "LM, O'H", "don't"},
      {"service without a code", "LM", "", "", "", "LM,", "-"},
  };
  for (const LineCase& line : cases) {
    const auto entry = AddEntry(Id<Client>(1), Day("2026-11-02"), "J", 0);
    Run(
        Sql("UPDATE Diary SET Description = {}, Notes = {}, Total_Price = 10, Total_GST = 1 "
            "WHERE Diary_ID = {}",
            line.description, line.notes, entry));
    SetUpDiaryServiceEntry(business(), entry, Id<Service>(2), QString(line.code),
                           Money::FromWhole(110), QString(line.lineNotes), 14);
    const Recordset row = Run(Sql("SELECT * FROM Diary WHERE Diary_ID = {}", entry));
    EXPECT_EQ(row.Field(u"Description").ToText("-"), line.descriptionAfter) << line.fault;
    EXPECT_EQ(row.Field(u"Notes").ToText("-"), line.notesAfter) << line.fault;
    EXPECT_EQ(row.Field(u"Total_Price").ToMoney(), Money::FromWhole(120)) << line.fault;
    EXPECT_EQ(row.Field(u"Total_GST").ToMoney(), Money::FromWhole(11)) << line.fault;
  }
}

TEST_F(DiaryEntriesTest, TaxOfALine) {
  const std::tuple<float, double, const char*> cases[] = {
      {0.1F, 110, "10"},    {0.1F, 55, "5"},     {0.1F, 0, "0"},  {0.1F, 82.5, "7.5"},
      {0.1F, 1, "0.09"},    {0.1F, -110, "-10"}, {0.F, 110, "0"}, {0.125F, 99, "11"},
      {0.2F, 45.03, "7.5"},  // a tie, which a rate with noise would send up
  };
  for (const auto& [rate, price, gst] : cases) {
    business().values.gstPercentage = rate;
    SetUpDiaryServiceEntry(business(), Id<Entry>(99), Id<Service>(1), "LM",
                           Money::FromDouble(price), "", 7);
    const Recordset line =
        Run(Sql("SELECT TOP 1 * FROM Diary_Services ORDER BY Diary_Service_ID DESC"));
    EXPECT_EQ(line.Field(u"GST").ToMoney().ToText(), gst) << price << " at " << rate;
  }
  EXPECT_EQ(Count("Diary"), 0) << "a line without an entry is inserted all the same";
}

TEST_F(DiaryEntriesTest, RecalculatedTaxDiffersFromTheTaxInsideThePrice) {
  const std::tuple<const char*, double, const char*, const char*> cases[] = {
      // rate, price, tax inside the price, tax by recalculation
      {"0.1", 110, "10", "10"},
      {"0.125", 112.5, "12.5", "12.94"},  // 13 percent
      {"0.145", 114.5, "14.5", "14.93"},  // 15 percent, though its nearest double lies below
      {"0.1449", 114.5, "14.49", "14.06"},
  };
  const auto entry = AddEntry(Id<Client>(1), Day("2026-11-02"), "JD");
  for (const auto& [rate, price, inside, recalculated] : cases) {
    Run(Sql("UPDATE infOptions SET GST_Percentage = {}", QString(rate).toDouble()));
    Run(Sql("UPDATE Diary_Services SET Price = {}", price));
    RecalculateDiaryEntryGST(business(), entry);
    EXPECT_EQ(TaxRate(QString(rate)).CalculateGSTComponent(price).ToText(), inside) << rate;
    EXPECT_EQ(Rows("SELECT Total_GST FROM Diary"), QStringList(recalculated)) << rate;
  }
}

TEST_F(DiaryEntriesTest, RecalculatedTaxLeavesLinesUnrounded) {
  const std::tuple<double, const char*, const char*> cases[] = {
      // stored rate, lines of 10.00 and 55.00, entry
      {0.1, "0.9091 5", "5.91"},
      {0.125, "1.1504 6.3274", "7.48"},  // counts as 13 percent
      {0, "0 0", "0"},
  };
  const auto entry = AddEntry(Id<Client>(1), Day("2026-11-02"), "JD", 0);
  AddEntry(Id<Client>(1), Day("2026-11-02"), "JD", 1);
  for (const int price : {10, 55}) {
    Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price) VALUES ({}, 1, {})", entry,
            price));
  }
  for (const auto& [rate, lines, total] : cases) {
    Run(Sql("UPDATE infOptions SET GST_Percentage = {}", rate));
    RecalculateDiaryEntryGST(business(), entry);
    EXPECT_EQ(Rows("SELECT GST FROM Diary_Services WHERE Diary_ID = 1").join(u' '), lines) << rate;
    EXPECT_EQ(Rows("SELECT Total_GST FROM Diary"), (QStringList{total, "0"})) << rate;
  }
}

TEST_F(DiaryEntriesTest, FailuresAreReportedAndPassedOver) {
  ExpectRefused("infOptions");
  ExpectRefused("Diary");
  Run(Sql("DROP TABLE infOptions"));
  RecalculateDiaryEntryGST(business(), Id<Entry>(1));
  EXPECT_EQ(outside.prompter.TakeTold().size(), 1);
  Run(Sql("DROP TABLE Diary"));
  EXPECT_FALSE(
      IsServiceScheduledForTheDay(business(), Id<Client>(1), Id<Service>(1), Day("2026-11-02")));
  EXPECT_FALSE(Made(1, 1, "J", "2026-11-02"));
  SetUpDiaryServiceEntry(business(), Id<Entry>(7), Id<Service>(1), "LM", Money::FromWhole(55), "",
                         7);
  const QStringList reports = outside.errors.TakeReports();
  ASSERT_EQ(reports.size(), 5);
  EXPECT_TRUE(reports.first().startsWith(u"Crunchers|IsServiceScheduledForTheDay|Error: 91 - "));
  EXPECT_TRUE(reports.last().startsWith(u"Crunchers|SetUpDiaryServiceEntry|"));
  EXPECT_EQ(Count("Diary_Services"), 1);
}

}  // namespace
}  // namespace quillary::roll
