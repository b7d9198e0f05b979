#include "roll/ScheduleEngine.h"

#include "domain/ClientStatus.h"
#include "roll/ClientRebuild.h"

#include <algorithm>

namespace quillary::roll {
namespace {

// What a client that has left loses: everything after the present moment, in whatever status. The
// lines stay behind for the repair command.
RollCount DeleteFuture(Business& business, Id<Client> client) {
  const int deleted = business.Write(Sql(
      "DELETE FROM Diary WHERE Client_ID = {} AND Schedule_Date > {}; ", client, business.Now()));
  return {.entriesDeleted = deleted, .entriesMade = 0};
}

// Undoing by parts has its price: before the first change of a page within a part, the store keeps
// a copy of it, and a client's visits lie on as many pages as there are days. A few dozen clients
// together touch hardly more pages than one.
constexpr size_t kClientsOfAPart = 64;

class GlobalRoll {
 public:
  GlobalRoll(Business& business, const DateRange& days)
      : business_(business),
        faults_(business),
        sequences_(business),
        dates_{.days = days, .deleteExisting = true, .deleteFrom = days.from} {}

  RollCount Run() {
    RollCount total;
    const Recordset clients =
        business_.RunSQL(Sql("SELECT Client_ID, Status FROM Clients ORDER BY Client_ID; "));
    for (size_t first = 0; first < clients.RowCount(); first += kClientsOfAPart) {
      const size_t end = std::min(first + kClientsOfAPart, clients.RowCount());
      total += RollPart(clients, first, end);
    }
    return total;
  }

 private:
  using RebuildRoutine = decltype(RebuildClient);

  // Only where something fails is each client of the part undone or kept by itself.
  RollCount RollPart(const Recordset& clients, size_t first, size_t end) {
    RollCount count;
    const bool allWell = faults_.Try([&] {
      Transaction part(business_);
      count = RollClients(clients, first, end, RebuildClient);
      part.Commit();
    });
    if (allWell) return count;
    sequences_.ForgetAll();
    return RollClients(clients, first, end, RebuildClientAlone);
  }

  RollCount RollClients(const Recordset& clients, size_t first, size_t end,
                        RebuildRoutine& rebuild) {
    RollCount count;
    for (size_t row = first; row < end; ++row) {
      const Id<Client> client(clients.Row(row)[u"Client_ID"].ToLong());
      const StoredClientStatus status(clients.Row(row)[u"Status"].ToText());
      if (status.IsIn(ClientGroup::Scheduled)) {
        count += rebuild(business_, faults_, sequences_, client, dates_);
      } else if (status.IsIn(ClientGroup::LosesFuture)) {
        count += DeleteFuture(business_, client);
      }
    }
    return count;
  }

  Business& business_;
  RollFaults faults_;
  DaySequences sequences_;
  RebuildDates dates_;
};

RollCount RollAllClients(Business& business) {
  const QDate from = business.FirstField(Sql("SELECT Last_Schedule_Ending FROM infSystem"))
                         .ToDate(business.Today());
  const QDate until = business.Today().addDays(business.values.daysToAdvanceSchedule);
  if (until <= from) return {};

  const BusyWhile busy(business.World().busy);
  Transaction roll(business);
  const RollCount total = GlobalRoll(business, {from, until}).Run();
  business.Write(Sql("UPDATE infSystem SET Last_Schedule_Ending = {};", until), Rows::AtLeast(1));
  roll.Commit();
  return total;
}

}  // namespace

RollCount AdvanceScheduleGlobally(Business& business) {
  try {
    return RollAllClients(business);
  } catch (const RepairWanted&) {
    HandOverToRepair(business);
  } catch (const std::exception& error) {
    business.World().prompter.Tell(Tone::Stop, ErrorLine(error));
  }
  return {};
}

RollCount AdvanceScheduleForClient(Business& business, Id<Client> client,
                                   const AdvanceOptions& options) {
  const BusyWhile busy(business.World().busy);
  const QDate start = options.startDate.value_or(business.Today());
  const RebuildDates dates{
      .days = {start,
               options.endDate.value_or(start.addDays(business.values.daysToAdvanceSchedule))},
      .deleteExisting = options.deleteExisting,
      .deleteFrom = options.deleteFrom.value_or(start)};
  try {
    RollFaults faults(business);
    DaySequences sequences(business);
    return RebuildClientAlone(business, faults, sequences, client, dates);
  } catch (const RepairWanted&) {
    HandOverToRepair(business);
  }
  return {};
}

}  // namespace quillary::roll
