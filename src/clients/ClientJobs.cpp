#include "clients/ClientJobs.h"

#include "diary/DiaryCommands.h"
#include "domain/Payer.h"

namespace quillary::clients {
namespace {

Sql JobsOf(const ClientRecord& client) {
  constexpr char kColumns[] =
      "Diary.Diary_ID, Schedule_Date, Description, Total_Price, Diary.Status, Payment_ID ";
  if (!client.IsBilledTo())
    return Sql("SELECT 'Name' AS Display_Name, {} FROM Diary WHERE Diary.Client_ID = {} ",
               Sql(kColumns), client.clientId);
  return Sql(
      "SELECT Clients.Display_Name AS Display_Name, {} FROM Clients "
      "INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID WHERE {} ",
      Sql(kColumns), IsPaidBy("Clients", *client.clientId));
}

std::vector<ClientJob> ListJobs(Business& business, const Sql& statement) {
  std::vector<ClientJob> jobs;
  for (const Record row : business.RunSQL(statement)) {
    jobs.push_back({.entry = Id<Entry>(row[u"Diary_ID"].ToLong()),
                    .displayName = row[u"Display_Name"].ToText(),
                    .scheduleDate = row[u"Schedule_Date"].ToDate(),
                    .description = row[u"Description"].ToText(),
                    .totalPrice = row[u"Total_Price"].ToMoney(),
                    .status = StoredEntryStatus(row[u"Status"].ToText()),
                    .isPaid = row[u"Payment_ID"].ToId<Payment>().has_value()});
  }
  return jobs;
}

}  // namespace

std::vector<ClientJob> LoadFutureJobs(Business& business, const ClientRecord& client) {
  if (client.IsNew()) return {};
  return ListJobs(business,
                  JobsOf(client) + Sql(" AND Diary.Status NOT IN {} "
                                       "AND Schedule_Date >= {} ORDER BY Diary.Schedule_Date; ",
                                       CodesOf(EntryGroup::Finished), business.Today()));
}

std::vector<ClientJob> LoadPastJobs(Business& business, const ClientRecord& client) {
  if (client.IsNew()) return {};
  return ListJobs(business, JobsOf(client) + Sql(" AND (Schedule_Date < {} OR Diary.Status IN {}) "
                                                 "ORDER BY Diary.Schedule_Date DESC; ",
                                                 business.Today(), CodesOf(EntryGroup::WorkDone)));
}

std::optional<Refusal> DeleteClientJob(Business& business, Prompter& prompter,
                                       std::optional<Id<Entry>> job) {
  if (!job) return Refusal{QStringLiteral("Please select a job to delete."), {}};
  if (prompter.AskBeforeLosing(QStringLiteral("Are you sure you want to delete this job?")) !=
      Answer::Yes) {
    return std::nullopt;
  }
  diary::DeleteEntry(business, *job);
  return std::nullopt;
}

}  // namespace quillary::clients
