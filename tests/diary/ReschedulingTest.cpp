#include "diary/Rescheduling.h"
#include "roll/ScheduleCheck.h"
#include "roll/ScheduleTest.h"

namespace quillary::diary {
namespace {

using ReschedulingTest = ScheduleTest;

TEST_F(ReschedulingTest, EverythingOpenIsMadeAgainFromToday) {
  const auto client = AddClient();
  AddService(client);
  AddEntry(client, Day("2026-11-05"), "J");
  AddEntry(client, Day("2026-11-06"), "JD");
  AddEntry(client, Day("2026-10-30"), "J");
  Run(Sql("UPDATE infSystem SET Last_Schedule_Ending = {}", Day("2026-11-16")));
  RecreateEntireSchedule(business());
  EXPECT_EQ(Visits(), (QStringList{"2026-10-30 J -", "2026-11-02 J LM", "2026-11-06 JD -",
                                   "2026-11-09 J LM", "2026-11-16 J LM"}));
  EXPECT_EQ(Rows("SELECT Last_Schedule_Ending FROM infSystem"), QStringList("2026-11-16"));
}

TEST_F(ReschedulingTest, WithNoDaysToAdvanceTheMarkerStaysForgotten) {
  business().values.daysToAdvanceSchedule = 0;
  AddEntry(AddClient(), Day("2026-11-05"), "J");
  Run(Sql("UPDATE infSystem SET Last_Schedule_Ending = {}", Day("2026-11-16")));
  RecreateEntireSchedule(business());
  EXPECT_EQ(Visits(), QStringList("2026-11-05 J -"));
  EXPECT_EQ(Rows("SELECT Last_Schedule_Ending FROM infSystem"), QStringList("-"));
}

TEST_F(ReschedulingTest, CellsTakeDatesAndNumbersOnly) {
  struct Case {
    const char* fault;
    const char* typed;
    const char* date;    // as the cell then shows it; null when refused
    const char* number;  // null when refused
  };
  const Case cases[] = {
      {"blank taken for a value", "", nullptr, nullptr},
      {"words taken for a value", "weekly", nullptr, nullptr},
      {"day that does not exist", "31/2/2027", nullptr, nullptr},
      {"past date refused here", "5/1/2020", "05 Jan 2020", nullptr},
      {"holiday refused here", "25 Dec 2026", "25 Dec 2026", nullptr},
      {"frequency beyond a year refused here", "400", nullptr, "400"},
      {"number beyond the column wraps round", "5000000000", nullptr, nullptr},
  };
  AddHoliday("25/12");
  for (const Case& cell : cases) {
    SCOPED_TRACE(cell.fault);
    ServiceRhythm row{
        .clientService = Id<ClientService>(1), .frequency = 7, .nextVisit = Day("2026-11-02")};
    const auto date = TypeStartDate(row, cell.typed, business().Today());
    EXPECT_EQ(row.StartDateText(), cell.date ? cell.date : "02 Nov 2026");
    EXPECT_EQ(date ? date->message : "", cell.date ? "" : "Please enter a valid start date.");
    const auto number = TypeFrequency(row, cell.typed);
    EXPECT_EQ(QString::number(row.frequency), cell.number ? cell.number : "7");
    EXPECT_EQ(number ? number->message : "", cell.number ? "" : "Please enter a number.");
  }
}

TEST_F(ReschedulingTest, ANewRhythmMovesTheOpenJobsOfOneClient) {
  const auto client = AddClient();
  AddService(client, {.price = 55.005});
  AddService(client, {.service = 2, .nextVisit = nullptr, .employee = 0, .follows = 1});
  const auto other = AddClient();
  AddService(other);
  roll::AdvanceScheduleForClient(business(), client);
  std::vector<ServiceRhythm> rows = LoadServiceRhythms(business(), client);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].price, Money::FromWhole(55)) << "not cut to cents";
  EXPECT_EQ(rows[1].follows, rows[0].clientService);
  EXPECT_EQ(rows[1].StartDateText(), "02 Nov 2026") << "a service without a date shows today";

  EXPECT_FALSE(TypeStartDate(rows[0], QStringLiteral("4/11/2026"), business().Today()));
  EXPECT_FALSE(TypeFrequency(rows[0], QStringLiteral("10")));
  RescheduleClient(business(), client, rows);
  EXPECT_EQ(Visits(), (QStringList{"2026-11-04 J LM, HT", "2026-11-14 J LM, HT"}));
  EXPECT_EQ(Rows("SELECT Next_Visit, Frequency FROM Client_Services ORDER BY Client_Service_ID"),
            (QStringList{"2026-11-04 10", "2026-11-02 7", "2026-11-02 7"}));
}

struct CheckCase {
  const char* fault;
  ServiceRow service;
  const char* holiday;    // null for none
  const char* removed;    // the day whose entry is gone
  QStringList missingOn;  // one for each row listed; "-" for a service without rhythm
  const char* clientStatus = "Active";
};

const CheckCase kCheckCases[] = {
    {"rolled schedule is listed", {}, nullptr, nullptr, {}},
    {"schedule rolled long ago is listed", {.nextVisit = "2025-11-03"}, nullptr, nullptr, {}},
    {"visit beyond the horizon is missed", {.nextVisit = "2026-11-17"}, nullptr, nullptr, {}},
    {"first visit is not looked for", {}, nullptr, "2026-11-02", {"2026-11-02"}},
    {"walk ends before the horizon", {}, nullptr, "2026-11-16", {"2026-11-16"}},
    {"visit on a holiday is looked for there", {}, "09/11", nullptr, {}},
    {"visit moved off a holiday is not looked for", {}, "09/11", "2026-11-10", {"2026-11-10"}},
    {"due service without frequency is passed over",
     {.frequency = 0, .nextVisit = "2026-10-30"},
     nullptr,
     nullptr,
     {"2026-10-30"}},
    {"coming service without frequency is listed",
     {.frequency = 0, .nextVisit = "2026-11-05"},
     nullptr,
     nullptr,
     {}},
    {"service without frequency and date is passed over",
     {.frequency = Value(), .nextVisit = nullptr},
     nullptr,
     nullptr,
     {"-"}},
    {"casual service is listed", {.status = "Casual"}, nullptr, "2026-11-02", {}},
    {"client who has left is listed", {}, nullptr, nullptr, {}, "Cancelled"},
};

TEST_F(ReschedulingTest, TheCheckFindsWhatTheRollWouldHaveMade) {
  for (const CheckCase& check : kCheckCases) {
    SCOPED_TRACE(check.fault);
    const Transaction undone(business());
    business().holidays.clear();
    if (check.holiday) AddHoliday(check.holiday);
    const auto client = AddClient(check.clientStatus);
    AddService(client, check.service);
    roll::AdvanceScheduleForClient(business(), client);
    if (check.removed) {
      Run(Sql("DELETE FROM Diary WHERE Schedule_Date = {}", Day(check.removed)));
    }
    QStringList missingOn;
    for (const roll::ScheduleProblem& problem : roll::CheckClientSchedules(business())) {
      EXPECT_EQ(problem.client, client);
      const QDate day = problem.missingOn;
      missingOn += day.isValid() ? day.toString(Qt::ISODate) : QStringLiteral("-");
    }
    EXPECT_EQ(missingOn, check.missingOn);
    EXPECT_EQ(outside.busy.depth, 0);
  }
}

// Any entry of the client satisfies the check, whatever its status and services; each bad service
// stands in the list by itself; and a service that is due without frequency stops after one look.
TEST_F(ReschedulingTest, TheCheckLooksForTheClientNotForTheService) {
  const auto client = AddClient();
  Run(Sql("UPDATE Clients SET Display_Name = 'Zeta'"));
  AddService(client);
  AddEntry(client, Day("2026-11-02"), "JC", 3);
  AddEntry(client, Day("2026-11-09"), "V", 0);
  AddEntry(client, Day("2026-11-16"), "JD", 2);
  EXPECT_TRUE(roll::CheckClientSchedules(business()).empty());
  Run(Sql("UPDATE Diary SET Schedule_Date = {} WHERE Status = 'V'",
          DateTime(Day("2026-11-09"), QTime(8, 0))));
  AddService(client, {.frequency = 0});
  AddService(AddClient(), {});
  QStringList listed;
  for (const roll::ScheduleProblem& problem : roll::CheckClientSchedules(business())) {
    listed += problem.displayName + u' ' + problem.missingOn.toString(Qt::ISODate);
  }
  EXPECT_EQ(listed, (QStringList{"Client 2026-11-02", "Zeta 2026-11-09", "Zeta "}));
}

TEST_F(ReschedulingTest, TheListShowsAtStartUpUntilItIsSwitchedOff) {
  EXPECT_TRUE(roll::ShowsScheduleProblemsAtStartUp(outside.settings));
  roll::ShowScheduleProblemsAtStartUp(outside.settings, false);
  EXPECT_FALSE(roll::ShowsScheduleProblemsAtStartUp(outside.settings));
  roll::ShowScheduleProblemsAtStartUp(outside.settings, true);
  EXPECT_TRUE(roll::ShowsScheduleProblemsAtStartUp(outside.settings));
  outside.settings.Write("Scheduling problem screen", "Show", "yes");
  EXPECT_FALSE(roll::ShowsScheduleProblemsAtStartUp(outside.settings));
}

}  // namespace
}  // namespace quillary::diary
