#include "roll/ClientRebuild.h"

#include "domain/ClientStatus.h"
#include "domain/JobType.h"
#include "roll/DiaryEntries.h"

#include <algorithm>

namespace quillary::roll {
namespace {

/// When a service is done: taken from the service's own row, or from that of the service whose
/// dates it follows.
struct Schedule {
  explicit Schedule(const Record& row)
      : clientService(row[u"Client_Service_ID"].ToLong()),
        employee(row[u"Employee_ID"].ToId<Employee>()),
        type(row[u"Status"].ToText()),
        nextVisit(row[u"Next_Visit"].ToDate()),
        frequency(static_cast<int>(row[u"Frequency"].ToLong())) {}

  Id<ClientService> clientService;
  std::optional<Id<Employee>> employee;
  StoredJobType type;
  QDate nextVisit;  // invalid for none
  int frequency;    // days; 0 for none
};

/// The first date of the rhythm `first`, `first` + step, ... that is not before `from`.
QDate FirstOfRhythm(QDate first, int step, QDate from) {
  const qint64 missing = first.daysTo(from);
  return missing <= 0 ? first : first.addDays((missing + step - 1) / step * step);
}

class Rebuild {
 public:
  Rebuild(Business& business, RollFaults& faults, DaySequences& sequences, Id<Client> client,
          const RebuildDates& dates)
      : business_(business),
        faults_(faults),
        sequences_(sequences),
        client_(client),
        dates_(dates) {}

  RollCount Run();

 private:
  void DeleteOpenTail();
  void BuildForActiveClient(const Recordset& services);
  void BuildQuotes(const Recordset& services);

  Schedule ScheduleOf(const Record& own) const;
  VisitLine LineOf(const Record& own, const Schedule& schedule) const;
  bool IsHoliday(QDate day) const { return quillary::IsHoliday(business_.holidays, day); }
  QDate WorkingDay(QDate day) const { return NextNonHolidayDate(business_.holidays, day); }

  void BuildSingleVisit(VisitWriter& writer, const Schedule& schedule, const VisitLine& line);
  void BuildRepeatingVisits(VisitWriter& writer, const Schedule& schedule, const VisitLine& line);
  void PlaceVisit(VisitWriter& writer, QDate day, const Schedule& schedule, const VisitLine& line);
  void RollNextVisit(const Schedule& schedule);
  void BuildQuoteVisit(const Record& own);
  std::optional<Id<Entry>> GetQuoteEntry(std::optional<Id<Employee>> employee, QDate day);

  Business& business_;
  RollFaults& faults_;
  DaySequences& sequences_;
  Id<Client> client_;
  RebuildDates dates_;
  RollCount count_;
};

RollCount Rebuild::Run() {
  if (dates_.deleteExisting) DeleteOpenTail();
  const StoredClientStatus status(
      business_.RunSQL(Sql("SELECT Status FROM Clients WHERE Client_ID = {}; ", client_))
          .Field(u"Status")
          .ToText());
  if (!status.IsIn(ClientGroup::Scheduled)) return count_;
  const Recordset services =
      business_.RunSQL(Sql("SELECT Client_Services.*, Services.Service_Code "
                           "FROM Client_Services LEFT JOIN Services "
                           "ON Client_Services.Service_ID = Services.Service_ID "
                           "WHERE Client_ID = {} ORDER BY Client_Service_ID; ",
                           client_));
  if (status.Is(ClientStatus::Active)) {
    BuildForActiveClient(services);
  } else {
    BuildQuotes(services);
  }
  return count_;
}

void Rebuild::DeleteOpenTail() {
  const Sql codes = CodesOf(EntryGroup::RebuiltByRoll);
  const Recordset open =
      business_.RunSQL(Sql("SELECT Diary_ID FROM Diary "
                           "WHERE Client_ID = {} AND Schedule_Date >= {} AND Status IN {};",
                           client_, dates_.deleteFrom, codes));
  if (!open.HasRows()) return;
  business_.Write(
      Sql("DELETE FROM Diary_Services WHERE Diary_ID IN (SELECT Diary_ID FROM Diary "
          "WHERE Client_ID = {} AND Schedule_Date >= {} AND Status IN {}); ",
          client_, dates_.deleteFrom, codes));
  count_.entriesDeleted +=
      business_.Write(Sql("DELETE FROM Diary WHERE Client_ID = {} AND Schedule_Date >= {} "
                          "AND Status IN {}; ",
                          client_, dates_.deleteFrom, codes));
}

Schedule Rebuild::ScheduleOf(const Record& own) const {
  const auto followed = own[u"Other_Schedule_Client_Service_ID"].ToId<ClientService>();
  if (!followed) return Schedule(own);
  // Read where it stands: the followed service may have been rolled on a moment ago.
  const Recordset leader = business_.RunSQL(
      Sql("SELECT * FROM Client_Services WHERE Client_Service_ID = {}; ", followed));
  return leader.HasRows() ? Schedule(leader.Row(0)) : Schedule(own);
}

VisitLine Rebuild::LineOf(const Record& own, const Schedule& schedule) const {
  return {own[u"Service_ID"].ToId<Service>(), own[u"Service_Code"].ToText(),
          own[u"Price"].ToMoney(), own[u"Notes"].ToText(), schedule.frequency};
}

void Rebuild::BuildForActiveClient(const Recordset& services) {
  if (!services.HasRows()) return;
  VisitWriter writer(business_, sequences_, client_, dates_.days.from);
  for (const Record own : services) {
    faults_.Guard([&] {
      const Schedule schedule = ScheduleOf(own);
      const VisitLine line = LineOf(own, schedule);
      if (schedule.type.Is(JobType::Casual)) BuildSingleVisit(writer, schedule, line);
      if (schedule.type.Is(JobType::Regular)) BuildRepeatingVisits(writer, schedule, line);
    });
  }
  count_.entriesMade += writer.Write();
}

// A day that has the service already is left alone, unless it is a holiday: then the visit is moved
// to a working day, whatever stands there.
void Rebuild::PlaceVisit(VisitWriter& writer, QDate day, const Schedule& schedule,
                         const VisitLine& line) {
  if (IsHoliday(day)) {
    writer.AddVisit(schedule.employee, WorkingDay(day), line);
  } else if (!writer.IsScheduled(line.service, day)) {
    writer.AddVisit(schedule.employee, day, line);
  }
}

void Rebuild::BuildSingleVisit(VisitWriter& writer, const Schedule& schedule,
                               const VisitLine& line) {
  const QDate day = schedule.nextVisit;
  if (!day.isValid() || !dates_.days.Contains(day)) return;
  PlaceVisit(writer, day, schedule, line);
}

void Rebuild::BuildRepeatingVisits(VisitWriter& writer, const Schedule& schedule,
                                   const VisitLine& line) {
  if (!schedule.nextVisit.isValid() || schedule.frequency <= 0) return;
  // The rhythm holds from Next_Visit on, however long ago that is, and a visit that is moved off a
  // holiday does not move the ones after it.
  QDate day = FirstOfRhythm(schedule.nextVisit, schedule.frequency, dates_.days.from);
  for (; day <= dates_.days.to; day = day.addDays(schedule.frequency)) {
    PlaceVisit(writer, day, schedule, line);
  }
  RollNextVisit(schedule);
}

// A next visit on a holiday shifts the rhythm for good, and a service that follows another rolls
// the row of the one it follows. A next visit of today or later stays.
void Rebuild::RollNextVisit(const Schedule& schedule) {
  const QDate shifted = WorkingDay(schedule.nextVisit);
  const QDate today = business_.Today();
  if (shifted >= today) return;
  business_.Write(Sql("UPDATE Client_Services SET Next_Visit = {} WHERE Client_Service_ID = {}; ",
                      FirstOfRhythm(shifted, schedule.frequency, today), schedule.clientService),
                  Rows::Exactly(1));
}

// Quotes are few, and each may take entries away as well as make them, so they are written one by
// one.
void Rebuild::BuildQuotes(const Recordset& services) {
  for (const Record own : services) {
    faults_.Guard([&] { BuildQuoteVisit(own); });
  }
}

void Rebuild::BuildQuoteVisit(const Record& own) {
  const Schedule schedule = ScheduleOf(own);
  if (!schedule.nextVisit.isValid()) return;  // an entry without a day would show nowhere
  const VisitLine line = LineOf(own, schedule);
  const bool isHoliday = IsHoliday(schedule.nextVisit);
  if (!isHoliday &&
      IsServiceScheduledForTheDay(business_, client_, line.service, schedule.nextVisit)) {
    return;
  }
  const QDate day = WorkingDay(schedule.nextVisit);
  const QDate ownNextVisit = own[u"Next_Visit"].ToDate();
  auto entry = GetQuoteEntry(schedule.employee, day);
  // A quote moved off a holiday counts as overdue one day later than others.
  if (entry && ownNextVisit.isValid() &&
      ownNextVisit.addDays(isHoliday ? 1 : 0) < dates_.days.from) {
    business_.Write(Sql("DELETE FROM Diary WHERE Diary_ID ={}", entry), Rows::Exactly(1));
    business_.Write(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {} AND Service_ID = {}", entry,
                        NumberOrZero(line.service)));
    ++count_.entriesDeleted;
    entry = GetQuoteEntry(schedule.employee, day);
  }
  if (!entry) return;
  SetUpDiaryServiceEntry(business_, *entry, line.service, line.serviceCode, line.price, line.notes,
                         line.frequency);
}

std::optional<Id<Entry>> Rebuild::GetQuoteEntry(std::optional<Id<Employee>> employee, QDate day) {
  constexpr EntryStatus kStatus = EntryStatus::QuoteOpen;
  if (!FindDiaryEntry(business_, client_, employee, kStatus, day)) ++count_.entriesMade;
  sequences_.Forget(day);
  return SetUpDiaryEntryGetDiaryID(business_, client_, employee, kStatus, day);
}

}  // namespace

RollCount RebuildClient(Business& business, RollFaults& faults, DaySequences& sequences,
                        Id<Client> client, const RebuildDates& dates) {
  return Rebuild(business, faults, sequences, client, dates).Run();
}

RollCount RebuildClientAlone(Business& business, RollFaults& faults, DaySequences& sequences,
                             Id<Client> client, const RebuildDates& dates) {
  RollCount count;
  bool done = false;
  faults.Guard([&] {
    Transaction rebuild(business);
    count = RebuildClient(business, faults, sequences, client, dates);
    rebuild.Commit();
    done = true;
  });
  if (done) return count;
  sequences.ForgetAll();
  return {};
}

}  // namespace quillary::roll
