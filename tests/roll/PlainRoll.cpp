#include "roll/PlainRoll.h"

#include "roll/DiaryEntries.h"

namespace quillary {
namespace {

bool Scheduled(Business& business, Id<Client> client, const Record& own, QDate day) {
  return roll::IsServiceScheduledForTheDay(business, client, own[u"Service_ID"].ToId<Service>(),
                                           day);
}

void AddLine(Business& business, std::optional<Id<Entry>> entry, const Record& own,
             const Record& schedule) {
  roll::SetUpDiaryServiceEntry(business, entry.value(), own[u"Service_ID"].ToId<Service>(),
                               own[u"Service_Code"].ToText(), own[u"Price"].ToMoney(),
                               own[u"Notes"].ToText(),
                               static_cast<int>(schedule[u"Frequency"].ToLong()));
}

void Quote(Business& business, Id<Client> client, const Record& own, const Record& schedule,
           QDate start) {
  const QDate visit = schedule[u"Next_Visit"].ToDate();
  if (!visit.isValid()) return;
  const bool holiday = IsHoliday(business.holidays, visit);
  if (Scheduled(business, client, own, visit) && !holiday) return;
  const QDate day = holiday ? NextNonHolidayDate(business.holidays, visit) : visit;
  const auto employee = schedule[u"Employee_ID"].ToId<Employee>();
  auto entry =
      roll::SetUpDiaryEntryGetDiaryID(business, client, employee, EntryStatus::QuoteOpen, day);
  const QDate ownVisit = own[u"Next_Visit"].ToDate();
  if (ownVisit.isValid() && ownVisit.addDays(holiday ? 1 : 0) < start) {
    business.RunSQL(Sql("DELETE FROM Diary WHERE Diary_ID = {}", entry));
    business.RunSQL(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {} AND Service_ID = {}", entry,
                        own[u"Service_ID"]));
    entry =
        roll::SetUpDiaryEntryGetDiaryID(business, client, employee, EntryStatus::QuoteOpen, day);
  }
  AddLine(business, entry, own, schedule);
}

void Job(Business& business, Id<Client> client, const Record& own, const Record& schedule,
         QDate day) {
  const bool holiday = IsHoliday(business.holidays, day);
  if (Scheduled(business, client, own, day) && !holiday) return;
  const QDate visit = holiday ? NextNonHolidayDate(business.holidays, day) : day;
  AddLine(
      business,
      roll::SetUpDiaryEntryGetDiaryID(business, client, schedule[u"Employee_ID"].ToId<Employee>(),
                                      EntryStatus::JobOpen, visit),
      own, schedule);
}

void Repeat(Business& business, Id<Client> client, const Record& own, const Record& schedule,
            QDate start, QDate end) {
  const QDate next = schedule[u"Next_Visit"].ToDate();
  const qint64 frequency = schedule[u"Frequency"].ToLong();
  if (!next.isValid() || frequency <= 0) return;
  for (QDate day = next; day <= end; day = day.addDays(frequency)) {
    if (day >= start) Job(business, client, own, schedule, day);
  }
  QDate rolled = NextNonHolidayDate(business.holidays, next);
  if (rolled >= business.Today()) return;
  while (rolled < business.Today()) rolled = rolled.addDays(frequency);
  business.RunSQL(Sql("UPDATE Client_Services SET Next_Visit = {} WHERE Client_Service_ID = {}",
                      rolled, schedule[u"Client_Service_ID"]));
}

void Build(Business& business, Id<Client> client, const QString& clientStatus, const Record& own,
           QDate start, QDate end) {
  const Recordset leader =
      business.RunSQL(Sql("SELECT * FROM Client_Services WHERE Client_Service_ID = {}",
                          own[u"Other_Schedule_Client_Service_ID"].ToLong()));
  const Record schedule = leader.HasRows() ? leader.Row(0) : own;
  const QString status = schedule[u"Status"].ToText().toUpper();
  const QDate next = schedule[u"Next_Visit"].ToDate();
  if (clientStatus == u"QUOTE ONLY") {
    Quote(business, client, own, schedule, start);
  } else if (status == u"CASUAL" && next.isValid() && next >= start && next <= end) {
    Job(business, client, own, schedule, next);
  } else if (status == u"REGULAR") {
    Repeat(business, client, own, schedule, start, end);
  }
}

}  // namespace

void PlainRollForClient(Business& business, Id<Client> client, QDate start, QDate end) {
  for (const Record entry : business.RunSQL(
           Sql("SELECT Diary_ID FROM Diary WHERE Client_ID = {} AND Schedule_Date >= {} "
               "AND Status IN ('J', 'Q')",
               client, start))) {
    business.RunSQL(
        Sql("DELETE FROM Diary_Services WHERE Diary_ID = {}", entry[u"Diary_ID"].ToLong()));
  }
  business.RunSQL(
      Sql("DELETE FROM Diary WHERE Client_ID = {} AND Schedule_Date >= {} "
          "AND Status IN ('J', 'Q')",
          client, start));
  const QString status =
      business.FirstField(Sql("SELECT Status FROM Clients WHERE Client_ID = {}", client))
          .ToText()
          .toUpper();
  if (status != u"ACTIVE" && status != u"QUOTE ONLY") return;
  for (const Record own :
       business.RunSQL(Sql("SELECT Client_Services.*, Services.Service_Code FROM Client_Services "
                           "LEFT JOIN Services ON Client_Services.Service_ID = Services.Service_ID "
                           "WHERE Client_ID = {} ORDER BY Client_Service_ID",
                           client))) {
    Build(business, client, status, own, start, end);
  }
}

void PlainRollGlobally(Business& business) {
  const QDate today = business.Today();
  const QDate start =
      business.FirstField(Sql("SELECT Last_Schedule_Ending FROM infSystem")).ToDate(today);
  const QDate end = today.addDays(business.values.daysToAdvanceSchedule);
  if (end <= start) return;
  for (const Record row :
       business.RunSQL(Sql("SELECT Client_ID, Status FROM Clients ORDER BY Client_ID"))) {
    const QString status = row[u"Status"].ToText().toUpper();
    const Id<Client> client(row[u"Client_ID"].ToLong());
    if (status == u"ACTIVE" || status == u"QUOTE ONLY") {
      PlainRollForClient(business, client, start, end);
    } else if (status == u"CANCELLED" || status == u"TRANSFERRED") {
      business.RunSQL(Sql("DELETE FROM Diary WHERE Client_ID = {} AND Schedule_Date > {}", client,
                          business.Now()));
    }
  }
  business.RunSQL(Sql("UPDATE infSystem SET Last_Schedule_Ending = {}", end));
}

}  // namespace quillary
