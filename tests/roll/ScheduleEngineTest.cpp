#include "roll/ScheduleEngine.h"
#include "roll/ScheduleTest.h"

namespace quillary::roll {
namespace {

struct RebuildCase {
  const char* fault;
  std::vector<ServiceRow> services;
  std::vector<std::pair<const char*, int>> holidays;  // year 0: recurring
  QStringList visits;
  QStringList nextVisits;  // empty: none may have moved
  const char* clientStatus = "Active";
};

const RebuildCase kRebuildCases[] = {
    {"last day of the horizon left out",
     {{}},
     {},
     {"2026-11-02 J LM", "2026-11-09 J LM", "2026-11-16 J LM"},
     {}},
    {"old next visit fills the past or stays behind",
     {{.nextVisit = "2025-11-03"}},
     {},
     {"2026-11-02 J LM", "2026-11-09 J LM", "2026-11-16 J LM"},
     {"2026-11-02"}},
    {"rhythm restarts at today",
     {{.nextVisit = "2026-11-01"}},
     {},
     {"2026-11-08 J LM", "2026-11-15 J LM"},
     {"2026-11-08"}},
    {"service without frequency loops or rolls",
     {{.frequency = 0, .nextVisit = "2026-10-01"}},
     {},
     {},
     {}},
    {"service with null frequency loops or rolls",
     {{.frequency = Value(), .nextVisit = "2026-10-01"}},
     {},
     {},
     {}},
    {"regular service without next visit makes an entry", {{.nextVisit = nullptr}}, {}, {}, {}},
    {"casual service without next visit makes an entry",
     {{.status = "Casual", .nextVisit = nullptr}},
     {},
     {},
     {}},
    {"casual on the last day left out, or rolled on",
     {{.status = "Casual", .nextVisit = "2026-11-16"}},
     {},
     {"2026-11-16 J LM"},
     {}},
    {"casual outside the run is made",
     {{.status = "Casual", .nextVisit = "2026-11-17"},
      {.status = "Casual", .nextVisit = "2026-11-01"}},
     {},
     {},
     {}},
    {"casual moved off a holiday is held to the last day",
     {{.status = "Casual", .nextVisit = "2026-11-16"}},
     {{"16/11", 0}},
     {"2026-11-17 J LM"},
     {}},
    {"service that is quote only or cancelled makes jobs",
     {{.status = "Quote only"}, {.status = "Cancelled"}, {.status = ""}},
     {},
     {},
     {}},
    {"statuses compared by case",
     {{.status = "REGULAR", .frequency = 14}},
     {},
     {"2026-11-02 J LM", "2026-11-16 J LM"},
     {},
     "ACTIVE"},
    {"visit on a holiday is lost or moves the rhythm",
     {{}},
     {{"09/11", 0}, {"10/11", 2026}},
     {"2026-11-02 J LM", "2026-11-11 J LM", "2026-11-16 J LM"},
     {}},
    {"row of another year is passed over",
     {{}},
     {{"09/11", 2025}, {"09/11", 2026}},
     {"2026-11-02 J LM", "2026-11-09 J LM", "2026-11-16 J LM"},
     {}},
    {"next visit on a holiday keeps its rhythm when rolled",
     {{.nextVisit = "2026-10-26"}},
     {{"26/10", 0}},
     {"2026-11-02 J LM", "2026-11-09 J LM", "2026-11-16 J LM"},
     {"2026-11-03"}},
    {"moved visit is dropped where the service stands already",
     {{.status = "Casual", .nextVisit = "2026-11-04"},
      {.status = "Casual", .nextVisit = "2026-11-03"}},
     {{"03/11", 0}},
     {"2026-11-04 J LM, LM"},
     {}},
    {"same service twice on a day",
     {{.frequency = 14}, {.frequency = 7}},
     {},
     {"2026-11-02 J LM", "2026-11-09 J LM", "2026-11-16 J LM"},
     {}},
    {"services of one day make several entries",
     {{.frequency = 14},
      {.service = 2, .frequency = 14},
      {.service = 3, .frequency = 14, .employee = 2}},
     {},
     {"2026-11-02 J LM, HT", "2026-11-02 J WC", "2026-11-16 J LM, HT", "2026-11-16 J WC"},
     {}},
    {"follower keeps its own dates, or its row is rolled",
     {{.frequency = 14, .nextVisit = "2026-10-26"},
      {.service = 2, .status = "Casual", .frequency = 1, .nextVisit = "2026-01-01", .follows = 1}},
     {},
     {"2026-11-09 J LM, HT"},
     {"2026-11-09", "2026-01-01"}},
    {"follower of a missing service is dropped",
     {{.frequency = 14, .follows = 99}},
     {},
     {"2026-11-02 J LM", "2026-11-16 J LM"},
     {}},
    {"quote is bound to the dates of the run",
     {{.status = "Quote only", .nextVisit = "2027-03-01"}},
     {},
     {"2027-03-01 Q LM"},
     {},
     "Quote only"},
    {"quote moved off a holiday is lost",
     {{.nextVisit = "2026-11-09"}},
     {{"09/11", 0}},
     {"2026-11-10 Q LM"},
     {},
     "Quote only"},
    {"quote without a date fills the diary with undated entries",
     {{.nextVisit = nullptr}},
     {},
     {},
     {},
     "Quote only"},
    {"overdue quote is made twice",
     {{.nextVisit = "2026-10-30"}},
     {},
     {"2026-10-30 Q LM"},
     {},
     "Quote only"},
    {"client of another status gets visits", {{}}, {}, {}, {}, "Bad debtor"},
};

TEST_F(ScheduleTest, RebuildOfOneClient) {
  for (const RebuildCase& rebuild : kRebuildCases) {
    SCOPED_TRACE(rebuild.fault);
    const Transaction undone(business());
    business().holidays.clear();
    for (const auto& [day, year] : rebuild.holidays) AddHoliday(day, year);
    const auto client = AddClient(rebuild.clientStatus);
    for (const ServiceRow& service : rebuild.services) AddService(client, service);
    const QStringList before = NextVisits();

    const RollCount count = AdvanceScheduleForClient(business(), client);

    EXPECT_EQ(Visits(), rebuild.visits);
    EXPECT_EQ(NextVisits(), rebuild.nextVisits.isEmpty() ? before : rebuild.nextVisits);
    EXPECT_EQ(count.entriesMade - count.entriesDeleted, rebuild.visits.size());
    EXPECT_EQ(outside.busy.depth, 0);
  }
}

TEST_F(ScheduleTest, OverdueQuoteLosesTheLinesOfItsFirstEntry) {
  const auto client = AddClient("Quote only");
  AddService(client, {.nextVisit = "2026-10-30", .price = 80});
  const auto stale = AddEntry(client, Day("2026-10-30"), "Q", 2);
  AdvanceScheduleForClient(business(), client);
  EXPECT_EQ(Count("Diary"), 1);
  EXPECT_EQ(Rows("SELECT Diary_ID, Service_ID, Price FROM Diary_Services"),
            (QStringList{QStringLiteral("%1 2 0").arg(stale.Number()),
                         QStringLiteral("%1 1 80").arg(stale.Number() + 1)}));
}

// Moved off a holiday, a quote counts as overdue one day later: the entry of yesterday's stays.
TEST_F(ScheduleTest, QuoteOffAHolidayIsOverdueOneDayLater) {
  const auto client = AddClient("Quote only");
  AddService(client, {.nextVisit = "2026-11-01"});
  for (const bool isHoliday : {false, true}) {
    const Transaction undone(business());
    business().holidays.clear();
    if (isHoliday) AddHoliday("01/11");
    const auto entry = AddEntry(client, Day(isHoliday ? "2026-11-02" : "2026-11-01"), "Q", 3);
    AdvanceScheduleForClient(business(), client, {.deleteExisting = false});
    const QStringList kept = Rows("SELECT Diary_ID FROM Diary");
    EXPECT_EQ(kept.contains(QString::number(entry.Number())), isHoliday);
  }
}

TEST_F(ScheduleTest, OnlyTheOpenTailIsDeleted) {
  const auto client = AddClient("Cancelled");
  const auto other = AddClient();
  AddEntry(client, Day("2026-11-01"), "J");
  AddEntry(client, Day("2026-11-02"), "J");
  AddEntry(client, Day("2026-11-03"), "Q");
  AddEntry(client, Day("2028-01-01"), "J");
  for (const char* status : {"JC", "JD", "V", "QP"}) AddEntry(client, Day("2026-11-02"), status);
  AddEntry(other, Day("2026-11-02"), "J");
  const RollCount count = AdvanceScheduleForClient(business(), client);
  EXPECT_EQ(count.entriesDeleted, 3);
  EXPECT_EQ(Rows("SELECT Status, Schedule_Date, Client_ID FROM Diary ORDER BY Diary_ID"),
            (QStringList{"J 2026-11-01 1", "JC 2026-11-02 1", "JD 2026-11-02 1", "V 2026-11-02 1",
                         "QP 2026-11-02 1", "J 2026-11-02 2"}));
  EXPECT_EQ(Count("Diary_Services"), 6) << "lines stay with their entries";
}

TEST_F(ScheduleTest, HistoryBlocksItsOwnServiceOnly) {
  const auto client = AddClient();
  AddEntry(client, Day("2026-11-02"), "JC", 1);
  AddService(client, {.frequency = 14});
  AddService(client, {.service = 2, .frequency = 14});
  AdvanceScheduleForClient(business(), client);
  EXPECT_EQ(Visits(), (QStringList{"2026-11-02 JC -", "2026-11-02 J HT", "2026-11-16 J LM, HT"}));
}

// With the old entries kept, or kept for some days more, the visits join them.
TEST_F(ScheduleTest, VisitsJoinTheOpenEntriesThatStay) {
  const auto client = AddClient();
  const auto entry = AddEntry(client, Day("2026-11-02"), "J", 2, 5);
  Run(
      Sql("UPDATE Diary SET Description = 'HT', Notes = 'gate', Total_Price = 20 "
          "WHERE Diary_ID = {}",
          entry));
  AddService(client, {.frequency = 7, .notes = "edges"});
  AdvanceScheduleForClient(business(), client, {.deleteFrom = Day("2026-11-09")});
  EXPECT_EQ(Rows("SELECT Diary_ID, [Sequence], Description, Notes, Total_Price FROM Diary"),
            (QStringList{"1 5 HT, LM gate /// edges 75", "2 1 LM edges 55", "3 1 LM edges 55"}));
}

TEST_F(ScheduleTest, DatesOfTheCallerBoundTheRun) {
  const auto client = AddClient();
  AddService(client, {.frequency = 1});
  AdvanceScheduleForClient(business(), client, {.startDate = Day("2026-11-05")});
  EXPECT_EQ(Visits().front(), "2026-11-05 J LM");
  EXPECT_EQ(Visits().back(), "2026-11-19 J LM") << "the end follows the start";
  AdvanceScheduleForClient(business(), client,
                           {.startDate = Day("2026-11-04"), .endDate = Day("2026-11-06")});
  EXPECT_EQ(Visits(), (QStringList{"2026-11-04 J LM", "2026-11-05 J LM", "2026-11-06 J LM"}));
}

struct DueCase {
  const char* fault;
  const char* marker;  // null: never rolled
  int days;
  const char* markerAfter;
};

TEST_F(ScheduleTest, GlobalRollIsDueOrNot) {
  const DueCase cases[] = {
      {"empty option rolls", nullptr, 0, "-"},
      {"empty option rolls", "2026-11-02", 0, "2026-11-02"},
      {"rolls twice a day", "2026-11-16", 14, "2026-11-16"},
      {"marker beyond the horizon is set back", "2027-01-01", 14, "2027-01-01"},
      {"never rolled is never due", nullptr, 14, "2026-11-16"},
      {"next day is not due", "2026-11-15", 14, "2026-11-16"},
  };
  const auto left = AddClient("Cancelled");
  for (const DueCase& due : cases) {
    SCOPED_TRACE(due.fault);
    const Transaction undone(business());
    business().values.daysToAdvanceSchedule = due.days;
    const Value marker = due.marker ? Value(Day(due.marker)) : Value();
    Run(Sql("UPDATE infSystem SET Last_Schedule_Ending = {}", marker));
    AddEntry(left, Day("2026-12-01"), "J");
    AdvanceScheduleGlobally(business());
    const bool rolled = due.marker ? due.markerAfter != QString(due.marker) : due.days > 0;
    EXPECT_EQ(Rows("SELECT Last_Schedule_Ending FROM infSystem"), QStringList(due.markerAfter));
    EXPECT_EQ(Count("Diary"), rolled ? 0 : 1) << "cancelled clients are touched by a roll only";
  }
}

TEST_F(ScheduleTest, ClientThatLeftLosesItsFutureAndNothingElse) {
  const DateTime now = business().Now();
  for (const char* status : {"Cancelled", "TRANSFERRED", "Bad debtor", "Billing address"}) {
    const auto client = AddClient(status);
    for (const DateTime& moment : {DateTime(now.date), now, DateTime(now.date, QTime(17, 0)),
                                   DateTime(now.date.addDays(1))}) {
      AddEntry(client, moment, "JD");
    }
  }
  const RollCount count = AdvanceScheduleGlobally(business());
  EXPECT_EQ(count.entriesDeleted, 4);
  EXPECT_EQ(Rows("SELECT Client_ID, COUNT(*) FROM Diary GROUP BY Client_ID ORDER BY Client_ID"),
            (QStringList{"1 2", "2 2", "3 4", "4 4"}));
  EXPECT_EQ(Count("Diary_Services"), 16) << "orphans are left to the repair command";
}

TEST_F(ScheduleTest, RollsFollowOneAnotherDayByDay) {
  for (int number = 0; number < 3; ++number) AddService(AddClient(), {.frequency = 1});
  EXPECT_EQ(AdvanceScheduleGlobally(business()).entriesMade, 45);
  const QStringList first = Rows("SELECT * FROM Diary");
  EXPECT_EQ(AdvanceScheduleGlobally(business()).entriesMade, 0);
  EXPECT_EQ(Rows("SELECT * FROM Diary"), first);

  outside.clock.now.date = Day("2026-11-03");
  const RollCount next = AdvanceScheduleGlobally(business());
  EXPECT_EQ(next.entriesDeleted, 3) << "the last day of the roll before is built again";
  EXPECT_EQ(next.entriesMade, 6);
  EXPECT_EQ(Rows("SELECT MAX(Schedule_Date) FROM Diary"), QStringList("2026-11-17"));
  EXPECT_EQ(Rows("SELECT DISTINCT Next_Visit FROM Client_Services"), QStringList("2026-11-03"));
  EXPECT_EQ(Rows("SELECT [Sequence] FROM Diary WHERE Schedule_Date = #2026/11/17#"),
            (QStringList{"1", "2", "3"}));
}

}  // namespace
}  // namespace quillary::roll
