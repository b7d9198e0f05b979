#include "diary/JobsList.h"

#include "diary/DiaryCommands.h"
#include "domain/InvoiceDue.h"
#include "lists/ListedAddress.h"

#include <QSet>

#include <array>

namespace quillary::diary {
namespace {

// The trailing blank of the second stands in the list as it is.
constexpr std::array kFilterWords = {u"- All Jobs -",  u"- Uncancelled Jobs - ",
                                     u"Job NOT DONE",  u"Job DONE",
                                     u"Job CANCELLED", u"Job DONE, INVOICE IS DUE"};

Sql ConditionOf(JobFilter filter, QDate today) {
  switch (filter) {
    case JobFilter::UncancelledJobs:
      return Sql("Diary.Status <> {}", EntryStatus::JobCancelled);
    case JobFilter::NotDone:
      return Sql("Diary.Status = {}", EntryStatus::JobOpen);
    case JobFilter::Done:
      return Sql("Diary.Status IN {}", CodesOf(EntryGroup::WorkDone));
    case JobFilter::Cancelled:
      return Sql("Diary.Status = {}", EntryStatus::JobCancelled);
    case JobFilter::DueForInvoice:
      return IsDueForInvoice(today);
    case JobFilter::AllJobs:
      break;
  }
  return IsOfKind("Diary.Status", EntryKind::Job);
}

// In the order of JobsListCommand.
constexpr std::array kNothingSelected = {
    "Please select a job to update.",
    "Please select a job to edit.",
    "Please select a job.",
    "Please select a job to delete.",
};

Sql ListStatement(const JobsListQuery& query, QDate today) {
  return Sql(
      "SELECT Diary.Diary_ID, Diary.Client_ID, Diary.Sequence, Diary.Schedule_Date, "
      "Clients.Display_Name, Clients.Suburb, Clients.Post_Code, Clients.Street, "
      "Clients.Street_Number, Diary.Description, Diary.Total_Price, Diary.Total_GST, "
      "Diary.Status, Diary.Payment_ID "
      "FROM ((Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) "
      "LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) "
      "LEFT JOIN Clients AS Payers ON Clients.Billing_Client_ID = Payers.Client_ID "
      "WHERE Schedule_Date >= {} AND Schedule_Date <= {} AND {} "
      "ORDER BY Diary.Schedule_Date, Diary.Diary_ID DESC;",
      query.days.from, EndOfDay(query.days.to), ConditionOf(query.filter, today));
}

JobsListRow ListedJob(const Record& record) {
  return {.entry = Id<Entry>(record[u"Diary_ID"].ToLong()),
          .client = Id<Client>(record[u"Client_ID"].ToLong()),
          .sequence = static_cast<int>(record[u"Sequence"].ToLong()),
          .scheduleDate = record[u"Schedule_Date"].ToDate(),
          .displayName = record[u"Display_Name"].ToText(),
          .address = lists::ListedAddress(record),
          .description = record[u"Description"].ToText(),
          .totalPrice = record[u"Total_Price"].ToMoney(),
          .totalGST = record[u"Total_GST"].ToMoney(),
          .status = StoredEntryStatus(record[u"Status"].ToText()),
          .isPaid = record[u"Payment_ID"].ToId<Payment>().has_value()};
}

QString NameOfJob(Business& business, Id<Entry> entry) {
  const Recordset job =
      business.RunSQL(Sql("SELECT Clients.Display_Name, Diary.Schedule_Date, Diary.Description "
                          "FROM Diary LEFT JOIN Clients ON Diary.Client_ID = Clients.Client_ID "
                          "WHERE Diary_ID = {}",
                          entry));
  if (job.EndOfFile()) return {};
  return QStringLiteral("%1, %2: %3")
      .arg(job.Field(u"Display_Name").ToText(),
           ToShortDateText(job.Field(u"Schedule_Date").ToDate()),
           job.Field(u"Description").ToText());
}

}  // namespace

QStringList JobFilterWords() {
  QStringList words;
  for (const char16_t* filter : kFilterWords) words += QString::fromUtf16(filter);
  return words;
}

JobsListQuery JobsOfMonth(QDate today) {
  return {.days = DateRange::MonthOf(today), .filter = JobFilter::AllJobs};
}

JobsList LoadJobsList(Business& business, const JobsListQuery& query) {
  const BusyWhile busy(business.World().busy);
  JobsList list;
  QSet<Id<Entry>> seen;
  // The join with the lines repeats an entry for each of them.
  for (const Record record : business.RunSQL(ListStatement(query, business.Today()))) {
    JobsListRow row = ListedJob(record);
    if (seen.contains(row.entry)) continue;
    seen.insert(row.entry);
    if (!row.status.Is(EntryStatus::JobCancelled)) {
      ++list.totalNoOfJobs;
      list.totalAmountOfJobs += row.totalPrice;
      list.totalAmountOfGST += row.totalGST;
    }
    list.rows.push_back(std::move(row));
  }
  return list;
}

std::optional<Refusal> CheckJobSelected(JobsListCommand command, std::optional<Id<Entry>> entry) {
  if (entry) return std::nullopt;
  return Refusal{QString(kNothingSelected[static_cast<size_t>(command)]), {}};
}

bool DeleteJobAfterAsking(Business& business, Prompter& prompter, Id<Entry> entry) {
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you sure you want to delete this job?\n\n") + NameOfJob(business, entry));
  if (answer != Answer::Yes) return false;
  DeleteEntry(business, entry);
  return true;
}

}  // namespace quillary::diary
