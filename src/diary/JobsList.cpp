#include "diary/JobsList.h"

#include "diary/DiaryDay.h"
#include "diary/Jobs.h"
#include "lists/ListedAddress.h"

#include <QSet>

#include <array>

namespace quillary::diary {
namespace {

struct FilterChoice {
  const char16_t* words;
  const char* condition;
};

// In the order of JobFilter. The trailing blank of the second stands in the list as it is.
constexpr std::array kFilters = {
    FilterChoice{u"- All Jobs -", "LEFT(Diary.Status, 1) = 'J' "},
    FilterChoice{u"- Uncancelled Jobs - ", "Diary.Status <> 'JC' "},
    FilterChoice{u"Job NOT DONE", "Diary.Status = 'J' "},
    FilterChoice{u"Job DONE", "Diary.Status IN ('JD','JP','JU', 'JI') "},
    FilterChoice{u"Job CANCELLED", "Diary.Status = 'JC' "},
};

// In the order of JobsListCommand.
constexpr std::array kNothingSelected = {
    "Please select a job to update.",
    "Please select a job to edit.",
    "Please select a job.",
    "Please select a job to delete.",
};

Sql ListStatement(const JobsListQuery& query) {
  return Sql("SELECT Diary.Diary_ID, Diary.Client_ID, Diary.Sequence, Diary.Schedule_Date, "
             "Clients.Display_Name, Clients.Suburb, Clients.Post_Code, Clients.Street, "
             "Clients.Street_Number, Diary.Description, Diary.Total_Price, Diary.Total_GST, "
             "Diary.Status, Diary.Payment_ID "
             "FROM (Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) "
             "LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID "
             "WHERE Schedule_Date >= {} AND Schedule_Date <= {} AND ",
             query.from, EndOfDay(query.to)) +
         Sql(kFilters[static_cast<size_t>(query.filter)].condition) +
         Sql("ORDER BY Diary.Schedule_Date, Diary.Diary_ID DESC;");
}

JobsListRow ListedJob(const Record& record) {
  return {.diaryId = record[u"Diary_ID"].ToLong(),
          .clientId = record[u"Client_ID"].ToLong(),
          .sequence = static_cast<int>(record[u"Sequence"].ToLong()),
          .scheduleDate = record[u"Schedule_Date"].ToDate(),
          .displayName = record[u"Display_Name"].ToText(),
          .address = lists::ListedAddress(record),
          .description = record[u"Description"].ToText(),
          .totalPrice = record[u"Total_Price"].ToMoney(),
          .totalGST = record[u"Total_GST"].ToMoney(),
          .status = record[u"Status"].ToText(),
          .isPaid = !record[u"Payment_ID"].IsNull()};
}

QString NameOfJob(Business& business, qint64 diaryId) {
  const Recordset job =
      business.RunSQL(Sql("SELECT Clients.Display_Name, Diary.Schedule_Date, Diary.Description "
                          "FROM Diary LEFT JOIN Clients ON Diary.Client_ID = Clients.Client_ID "
                          "WHERE Diary_ID = {}",
                          diaryId));
  if (job.EndOfFile()) return {};
  return QStringLiteral("%1, %2: %3")
      .arg(job.Field(u"Display_Name").ToText(),
           ToShortDateText(job.Field(u"Schedule_Date").ToDate()),
           job.Field(u"Description").ToText());
}

}  // namespace

QStringList JobFilterWords() {
  QStringList words;
  for (const FilterChoice& filter : kFilters) words += QString::fromUtf16(filter.words);
  return words;
}

QString JobsListRow::StatusWords() const {
  const std::optional<int> position = JobStatusPosition(status);
  return position ? JobStatusWords().at(*position) : DiaryStatusWords(status);
}

JobsListQuery JobsOfMonth(QDate today) {
  const QDate first(today.year(), today.month(), 1);
  return {.from = first, .to = first.addMonths(1).addDays(-1), .filter = JobFilter::AllJobs};
}

JobsList LoadJobsList(Business& business, const JobsListQuery& query) {
  const BusyWhile busy(business.World().busy);
  JobsList list;
  QSet<qint64> seen;
  // The join with the lines repeats an entry for each of them.
  for (const Record record : business.RunSQL(ListStatement(query))) {
    JobsListRow row = ListedJob(record);
    if (seen.contains(row.diaryId)) continue;
    seen.insert(row.diaryId);
    if (row.status.toUpper() != u"JC") {
      ++list.totalNoOfJobs;
      list.totalAmountOfJobs += row.totalPrice;
      list.totalAmountOfGST += row.totalGST;
    }
    list.rows.push_back(std::move(row));
  }
  return list;
}

std::optional<Refusal> CheckJobSelected(JobsListCommand command, std::optional<qint64> diaryId) {
  if (diaryId) return std::nullopt;
  return Refusal{QString(kNothingSelected[static_cast<size_t>(command)]), {}};
}

bool DeleteJobAfterAsking(Business& business, Prompter& prompter, qint64 diaryId) {
  const Answer answer =
      prompter.AskBeforeLosing(QStringLiteral("Are you sure you want to delete this job?\n\n") +
                               NameOfJob(business, diaryId));
  if (answer != Answer::Yes) return false;
  DeleteJob(business, diaryId);
  return true;
}

}  // namespace quillary::diary
