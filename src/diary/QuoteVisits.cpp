#include "diary/QuoteVisits.h"

#include "diary/DiaryCommands.h"

#include <algorithm>

namespace quillary::diary {
namespace {

constexpr int kQuoteDescriptionWidth = 255;  // of Diary.Description

std::optional<EntryStatus> QuoteStatusOf(const StoredEntryStatus& stored) {
  const auto known = stored.Known();
  const bool isOne = known && std::find(kQuoteStatuses.begin(), kQuoteStatuses.end(), *known) !=
                                  kQuoteStatuses.end();
  return isOne ? known : std::nullopt;
}

}  // namespace

std::optional<QuoteVisit> LoadQuoteVisit(Business& business, Id<Entry> entry) {
  const Recordset row = business.RunSQL(Sql("SELECT * FROM Diary WHERE Diary_ID = {}; ", entry));
  if (row.EndOfFile()) return std::nullopt;
  QuoteVisit visit{.entry = entry};
  visit.client = row.Field(u"Client_ID").ToId<Client>();
  visit.employee = row.Field(u"Employee_ID").ToId<Employee>();
  visit.date = row.Field(u"Schedule_Date").ToDate();
  visit.notes = row.Field(u"Notes").ToText();
  visit.storedStatus = StoredEntryStatus(row.Field(u"Status").ToText());
  visit.status = QuoteStatusOf(visit.storedStatus);
  visit.description = row.Field(u"Description").ToText();
  visit.totalPrice = row.Field(u"Total_Price").ToMoney();
  visit.hasPayment = row.Field(u"Payment_ID").ToLong() != 0;
  return visit;
}

std::optional<Refusal> CheckQuoteVisit(const QuoteVisit& visit) {
  if (!visit.client)
    return Refusal{QStringLiteral("Please select a quote client."), QStringLiteral("client")};
  if (!visit.employee)
    return Refusal{QStringLiteral("Please select the employee."), QStringLiteral("employee")};
  return std::nullopt;
}

std::optional<Refusal> SaveQuoteVisit(Business& business, const QuoteVisit& visit) {
  if (auto refusal = CheckQuoteVisit(visit)) return refusal;
  const StoredEntryStatus status =
      visit.status ? StoredEntryStatus(*visit.status) : visit.storedStatus;
  business.Write(Sql("UPDATE Diary SET Client_ID = {}, Schedule_Date = {}, Employee_ID = {}, "
                     "Notes = {}, Status = {} WHERE Diary_ID = {}",
                     visit.client, visit.date, visit.employee, visit.notes, status, visit.entry),
                 Rows::Exactly(1));
  business.PastCommands().Describe(QStringLiteral("Quote visit: ") + WordsOf(status));
  return std::nullopt;
}

std::optional<Refusal> SaveQuoteLine(Business& business, Id<Entry> entry,
                                     const JobServiceForm& form) {
  if (!form.service)
    return Refusal{QStringLiteral("Please select a service."), QStringLiteral("service")};
  Transaction save(business);
  StoreServiceLine(business, entry, form, form.line ? SaveLine::Selected : SaveLine::AsNew);
  RecalculateSummaries(business, entry);
  save.Commit();
  return std::nullopt;
}

void AddExtraWork(Business& business, Id<Entry> entry) {
  Transaction addition(business);
  business.Write(
      Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID, Price, GST) VALUES ({}, {}, 0, 0); ",
          entry, business.values.defaultService));
  RecalculateSummaries(business, entry);
  addition.Commit();
}

std::optional<Refusal> RemoveQuoteLine(Business& business, Id<Entry> entry,
                                       std::optional<Id<EntryLine>> line) {
  if (!line) return Refusal{QStringLiteral("Please select a service to delete."), {}};
  Transaction removal(business);
  business.Write(Sql("DELETE FROM Diary_Services WHERE Diary_Service_ID = {}", line),
                 Rows::Exactly(1));
  RecalculateSummaries(business, entry);
  removal.Commit();
  return std::nullopt;
}

void RecalculateSummaries(Business& business, Id<Entry> entry) {
  Transaction summaries(business);
  business.Write(
      Sql("UPDATE Diary SET Description = {} WHERE Diary_ID = {}",
          LoadServices(business, entry).Description().left(kQuoteDescriptionWidth), entry),
      Rows::Exactly(1));
  UpdateTotalPriceAndGST(business, entry);
  summaries.Commit();
}

bool DeleteQuoteVisit(Business& business, Prompter& prompter, Id<Entry> entry) {
  const Answer answer =
      prompter.AskBeforeLosing(QStringLiteral("Are you sure you want to delete this job?"));
  if (answer != Answer::Yes) return false;
  DeleteEntry(business, entry);
  return true;
}

}  // namespace quillary::diary
