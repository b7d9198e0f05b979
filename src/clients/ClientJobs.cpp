#include "clients/ClientJobs.h"

#include "balances/ClientBalance.h"
#include "domain/EntryStatus.h"

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
                    row[u"Total_Price"].ToMoney(), row[u"Status"].ToText(),
                    row[u"Payment_ID"].ToLong(-1), row[u"Invoice_ID"].ToLong(-1)});
  }
  return jobs;
}

}  // namespace

QString ClientJob::StatusWords() const {
  return diary::EntryStatusWords(status);
}

diary::DiaryRowColour ClientJob::Colour() const {
  return diary::ColourOfEntry(status, paymentId != -1);
}

std::vector<ClientJob> LoadFutureJobs(Business& business, const ClientRecord& client) {
  return ListJobs(
      business,
      JobsOf(client) + Sql(" AND Diary.Status NOT IN ") + CodesOf(EntryGroup::Finished) +
          Sql(" AND Schedule_Date >= {} ORDER BY Diary.Schedule_Date; ", business.Today()));
}

std::vector<ClientJob> LoadPastJobs(Business& business, const ClientRecord& client) {
  return ListJobs(business,
                  JobsOf(client) +
                      Sql(" AND (Schedule_Date < {} OR Diary.Status IN ", business.Today()) +
                      CodesOf(EntryGroup::WorkDone) + Sql(") ORDER BY Diary.Schedule_Date DESC; "));
}

std::optional<Refusal> DeleteClientJob(Business& business, Prompter& prompter,
                                       const ClientRecord& client, std::optional<qint64> diaryId) {
  if (!diaryId) return Refusal{QStringLiteral("Please select a job to delete."), {}};
  if (prompter.AskBeforeLosing(QStringLiteral("Are you sure you want to delete this job?")) !=
      Answer::Yes) {
    return std::nullopt;
  }
  Transaction deletion(business);
  business.Write(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {}", *diaryId));
  business.Write(Sql("DELETE FROM Diary WHERE Diary_ID = {}", *diaryId), Rows::Exactly(1));
  balances::RecalculateClientBalance(business, client.billingClientId);
  deletion.Commit();
  return std::nullopt;
}

}  // namespace quillary::clients
