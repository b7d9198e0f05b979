#include "roll/PlainRoll.h"
#include "roll/ScheduleEngine.h"
#include "roll/ScheduleTest.h"

#include <algorithm>
#include <random>

namespace quillary::roll {
namespace {

/// Random businesses, small and crowded, so that visits meet: few dates, few employees, holidays
/// next to one another, followers, half-open old diaries.
class RollEquality : public ScheduleTest {
 protected:
  int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  QDate NearDay() { return business().Today().addDays(Below(40) - 20); }

  /// Mostly a few days, so that visits meet; some as the lists offer them; none at all now and
  /// then.
  Value Frequency() {
    const int usual[] = {7, 14, 21, 28, 30, 42, 91, 365};
    if (Below(9) == 0) return {};
    return Below(4) == 0 ? usual[Below(8)] : Below(9);
  }

  void Invent() {
    const char* statuses[] = {"Active",     "Active",    "Active",
                              "Quote only", "Cancelled", "Bad debtor"};
    const char* kinds[] = {"Regular", "Regular", "regular", "Casual", "Quote only", ""};
    for (int holidays = Below(6); holidays > 0; --holidays) {
      AddHoliday(qPrintable(NearDay().toString(QStringLiteral("dd/MM"))),
                 Below(2) * (2025 + Below(2)));
    }
    for (int clients = 3 + Below(4); clients > 0; --clients) {
      const auto client = AddClient(statuses[Below(6)]);
      for (int services = Below(5); services > 0; --services) {
        const QByteArray next = NearDay().toString(Qt::ISODate).toUtf8();
        AddService(client, {.service = 1 + Below(4),  // the fourth does not exist
                            .status = kinds[Below(6)],
                            .frequency = Frequency(),
                            .nextVisit = Below(9) == 0 ? nullptr : next.constData(),
                            .employee = Below(4) == 0 ? Value() : Value(Below(2)),
                            .price = Below(4000) / 16.0,
                            .notes = Below(2) ? "note" : "",
                            .follows = Below(3) ? Value(0) : Value(Below(12))});
      }
      for (int entries = Below(6); entries > 0; --entries) {
        const char* states[] = {"J", "Q", "JD", "JC", "V", "j"};
        const DateTime moment(NearDay(), QTime(Below(5) == 0 ? 9 : 0, 0));
        AddEntry(client, moment, states[Below(6)], Below(4), Below(5));
      }
    }
  }

  QStringList Everything() {
    return Rows("SELECT * FROM Diary ORDER BY Diary_ID") + QStringList("lines") +
           Rows("SELECT * FROM Diary_Services ORDER BY Diary_Service_ID") + NextVisits() +
           Rows("SELECT Last_Schedule_Ending FROM infSystem");
  }

  /// Runs both from the same state; what the second one wrote stays.
  template <typename Engine, typename Plain>
  void ExpectSameRows(const Engine& engine, const Plain& plain) {
    QStringList byEngine;
    {
      const Transaction undone(business());
      engine();
      byEngine = Everything();
    }
    plain();
    ASSERT_EQ(byEngine, Everything());
  }

  std::mt19937 random_;
};

/// QUILLARY_SCHEDULES asks for more businesses than the suite tries.
TEST_F(RollEquality, EngineLeavesTheRowsOfThePlainRules) {
  const auto businesses =
      static_cast<unsigned>(std::max(60, qEnvironmentVariableIntValue("QUILLARY_SCHEDULES")));
  int rolls = 0;
  for (unsigned seed = 1; seed <= businesses; ++seed) {
    SCOPED_TRACE(seed);
    const Transaction undone(business());
    random_.seed(seed);
    business().holidays.clear();
    outside.clock.now.date = Day("2026-11-02");
    business().values.daysToAdvanceSchedule = seed % 3 == 0 ? 1 + Below(60) : 14;
    Invent();
    for (int day = 0; day < 4; ++day) {
      SCOPED_TRACE(day);
      ASSERT_NO_FATAL_FAILURE(ExpectSameRows([&] { AdvanceScheduleGlobally(business()); },
                                             [&] { PlainRollGlobally(business()); }));
      const QStringList rolled = Everything();
      AdvanceScheduleGlobally(business());
      ASSERT_EQ(rolled, Everything()) << "rolling twice is rolling once";
      ++rolls;
      const Id<Client> client(1 + Below(6));
      const QDate start = NearDay();
      const QDate end = start.addDays(Below(20));
      if (Count("Clients") < client.Number()) continue;
      ASSERT_NO_FATAL_FAILURE(ExpectSameRows(
          [&] {
            AdvanceScheduleForClient(business(), client, {.startDate = start, .endDate = end});
          },
          [&] { PlainRollForClient(business(), client, start, end); }));
      Run(Sql("UPDATE Diary SET Status = 'JC' WHERE Diary_ID = {}", 1 + Below(60)));
      if (Below(3) == 0) Run(Sql("UPDATE infSystem SET Last_Schedule_Ending = NULL"));
      outside.clock.now.date = outside.clock.now.date.addDays(1 + Below(5));
    }
  }
  RecordProperty("businesses", static_cast<int>(businesses));
  RecordProperty("rolls", rolls);
}

}  // namespace
}  // namespace quillary::roll
