#include "scheduling/ScheduleEngine.h"

#include "scheduling/ClientRebuild.h"

namespace quillary {
namespace {

// What a client that has left loses: everything after the present moment, in whatever status. The
// lines stay behind for the repair command.
RollCount DeleteFuture(Business& business, qint64 clientId) {
  const DateTime now = business.Now();
  const Recordset future =
      business.RunSQL(Sql("SELECT Diary_ID FROM Diary "
                          "WHERE Client_ID = {} AND Schedule_Date > {}; ",
                          clientId, now));
  if (future.IsOpen() && !future.HasRows()) return {};
  business.RunSQL(
      Sql("DELETE FROM Diary WHERE Client_ID = {} AND Schedule_Date > {}; ", clientId, now));
  return {.entriesDeleted = static_cast<int>(future.RowCount()), .entriesMade = 0};
}

RollCount RollAllClients(Business& business) {
  const QDate from = business.FirstField(Sql("SELECT Last_Schedule_Ending FROM infSystem"))
                         .ToDate(business.Today());
  const QDate until = business.Today().addDays(business.values.daysToAdvanceSchedule);
  if (until <= from) return {};

  const BusyWhile busy(business.World().busy);
  Transaction roll(business);
  RollFaults faults(business);
  DaySequences sequences(business);
  const RebuildDates dates{.start = from, .end = until, .deleteExisting = true, .deleteFrom = from};
  RollCount total;
  const Recordset clients =
      business.RunSQL(Sql("SELECT Client_ID, Status FROM Clients ORDER BY Client_ID; "));
  for (const Record client : clients) {
    const qint64 clientId = client[u"Client_ID"].ToLong();
    const QString status = client[u"Status"].ToText().toUpper();
    RollCount count;
    if (status == u"ACTIVE" || status == u"QUOTE ONLY") {
      count = RebuildClient(business, faults, sequences, clientId, dates);
    } else if (status == u"CANCELLED" || status == u"TRANSFERRED") {
      count = DeleteFuture(business, clientId);
    }
    total.entriesDeleted += count.entriesDeleted;
    total.entriesMade += count.entriesMade;
  }
  business.RunSQL(Sql("UPDATE infSystem SET Last_Schedule_Ending = {};", until));
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

RollCount AdvanceScheduleForClient(Business& business, qint64 clientId,
                                   const AdvanceOptions& options) {
  const BusyWhile busy(business.World().busy);
  const QDate start = options.startDate.value_or(business.Today());
  const RebuildDates dates{
      .start = start,
      .end = options.endDate.value_or(start.addDays(business.values.daysToAdvanceSchedule)),
      .deleteExisting = options.deleteExisting,
      .deleteFrom = options.deleteFrom.value_or(start)};
  try {
    RollFaults faults(business);
    DaySequences sequences(business);
    return RebuildClient(business, faults, sequences, clientId, dates);
  } catch (const RepairWanted&) {
    HandOverToRepair(business);
  }
  return {};
}

}  // namespace quillary
