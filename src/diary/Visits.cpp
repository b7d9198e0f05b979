#include "diary/Visits.h"

#include "diary/DiaryCommands.h"

namespace quillary::diary {
namespace {

EntryStatus VisitStatusOf(const QString& stored) {
  const StoredEntryStatus status(stored);
  return status.Known() && IsVisit(status) ? *status.Known() : EntryStatus::VisitOpen;
}

Id<Entry> InsertEmptyVisit(Business& business) {
  return business.InsertReturningKey<Entry>(
      Sql("INSERT INTO Diary (Status) VALUES ({});", EntryStatus::VisitOpen));
}

}  // namespace

Visit NewVisit(Business& business, std::optional<Id<Client>> client) {
  return {.client = client, .date = business.Today(), .employee = business.values.defaultEmployee};
}

std::optional<Visit> LoadVisit(Business& business, Id<Entry> entry) {
  const Recordset row = business.RunSQL(Sql("SELECT * FROM Diary WHERE Diary_ID = {}; ", entry));
  if (row.EndOfFile()) return std::nullopt;
  return Visit{.entry = entry,
               .client = row.Field(u"Client_ID").ToId<Client>(),
               .date = row.Field(u"Schedule_Date").ToDate(),
               .employee = row.Field(u"Employee_ID").ToId<Employee>(),
               .purpose = row.Field(u"Description").ToText(),
               .notes = row.Field(u"Notes").ToText(),
               .status = VisitStatusOf(row.Field(u"Status").ToText())};
}

std::optional<Refusal> CheckVisit(const Visit& visit) {
  if (!visit.client)
    return Refusal{QStringLiteral("Please select a client."), QStringLiteral("client")};
  if (!visit.employee)
    return Refusal{QStringLiteral("Please select an employee."), QStringLiteral("employee")};
  return std::nullopt;
}

std::optional<Refusal> SaveVisit(Business& business, Visit& visit) {
  if (std::optional<Refusal> refusal = CheckVisit(visit)) return refusal;
  Transaction save(business);
  const Id<Entry> entry = visit.IsNew() ? InsertEmptyVisit(business) : *visit.entry;
  business.Write(Sql("UPDATE Diary SET Client_ID = {}, Employee_ID = {}, Description = {}, "
                     "Schedule_Date = {}, Status = {}, Notes = {} WHERE Diary_ID = {}",
                     visit.client, visit.employee, visit.purpose, visit.date, visit.status,
                     visit.notes, entry),
                 Rows::Exactly(1));
  save.Commit();
  visit.entry = entry;
  return std::nullopt;
}

bool DeleteVisit(Business& business, Prompter& prompter, Id<Entry> entry) {
  const Answer answer =
      prompter.AskBeforeLosing(QStringLiteral("Are you sure you want to delete this visit?"));
  if (answer != Answer::Yes) return false;
  DeleteEntry(business, entry);
  return true;
}

}  // namespace quillary::diary
