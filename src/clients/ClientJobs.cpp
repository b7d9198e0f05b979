#include "clients/ClientJobs.h"

#include "diary/DiaryCommands.h"

namespace quillary::clients {
namespace {

Sql JobsOf(const ClientRecord& client) {
  if (client.IsBilledTo()) {
    return Sql(
        "SELECT Clients_1.Display_Name AS Display_Name, Diary.Diary_ID, Schedule_Date, "
        "Description, Total_Price, Diary.Status, Payment_ID, Invoice_ID "
        "FROM (Clients INNER JOIN Clients AS Clients_1 "
        "ON Clients.Client_ID = Clients_1.Billing_Client_ID) "
        "INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID "
        "WHERE Clients.Client_ID = {} ",
        client.clientId);
  }
  return Sql(
      "SELECT 'Name' AS Display_Name, Diary.Diary_ID, Schedule_Date, Description, "
      "Total_Price, Diary.Status, Payment_ID, Invoice_ID "
      "FROM Diary WHERE Diary.Client_ID = {} ",
      client.clientId);
}

std::vector<ClientJob> ListJobs(Business& business, const Sql& statement) {
  std::vector<ClientJob> jobs;
  for (const Record row : business.RunSQL(statement)) {
    jobs.push_back({row[u"Diary_ID"].ToLong(), row[u"Display_Name"].ToText(),
                    row[u"Schedule_Date"].ToDate(), row[u"Description"].ToText(),
                    row[u"Total_Price"].ToMoney(), StoredEntryStatus(row[u"Status"].ToText()),
                    row[u"Payment_ID"].ToLong(-1), row[u"Invoice_ID"].ToLong(-1)});
  }
  return jobs;
}

}  // namespace

std::vector<ClientJob> LoadFutureJobs(Business& business, const ClientRecord& client) {
  return ListJobs(business,
                  JobsOf(client) + Sql(" AND Diary.Status NOT IN {} "
                                       "AND Schedule_Date >= {} ORDER BY Diary.Schedule_Date; ",
                                       CodesOf(EntryGroup::Finished), business.Today()));
}

std::vector<ClientJob> LoadPastJobs(Business& business, const ClientRecord& client) {
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
