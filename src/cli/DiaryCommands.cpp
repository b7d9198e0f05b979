#include "diary/DiaryCommands.h"

#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "diary/DiaryDay.h"
#include "diary/Jobs.h"

#include <algorithm>
#include <limits>

namespace quillary::cli {
namespace {

diary::DiaryQuery QueryOf(const Arguments& arguments) {
  const auto from = arguments.Date("from");
  if (!from) throw WrongUsage(QStringLiteral("diary needs --from"));
  diary::DiaryQuery query;
  query.days = {*from, arguments.Date("to").value_or(*from)};
  query.employee =
      IdFrom<Employee>(arguments.Number("employee", 0, std::numeric_limits<qint32>::max()));
  if (query.days.from > query.days.to)
    throw CommandFailure(QString::fromLatin1(diary::kInvalidDateRange));
  return query;
}

/// Everything the screen's list holds, under the names of the columns it comes from.
ResultTable AllColumns(const diary::DiaryList& list) {
  ResultTable table({"Sequence", "Diary_ID", "Client_ID", "Billing_Client_ID", "Display_Name",
                     "Address", "Phones", "Description", "Total_Price", "Status", "Status_Words",
                     "Employee_ID", "Invoice_ID", "Schedule_Date", "Payment_ID"});
  for (const diary::DiaryRow& row : list.rows) {
    table.AddRow({row.sequence, row.entry, row.client, row.payer, row.displayName, row.address,
                  row.phones, row.description, row.totalPrice, row.status, WordsOf(row.status),
                  NumberOrZero(row.employee), row.invoice, row.scheduleDate, row.payment});
  }
  return table;
}

/// What a person at a terminal looks for.
ResultTable ShortColumns(const diary::DiaryList& list) {
  ResultTable table({"Date", "Seq", "Diary_ID", "Client", "Address", "Description", "Price",
                     "Status", "Employee", "Paid"});
  for (const diary::DiaryRow& row : list.rows) {
    table.AddRow({row.scheduleDate.toString(Qt::ISODate), row.sequence, row.entry, row.displayName,
                  row.address, row.description, row.totalPrice, WordsOf(row.status),
                  NumberOrZero(row.employee), row.payment ? QStringLiteral("paid") : QString()});
  }
  return table;
}

void RunDiary(const Call& call) {
  const diary::DiaryQuery query = QueryOf(call.arguments);
  const auto business = OpenCurrentBusiness(call);
  const diary::DiaryList list = diary::LoadDiary(*business, query);
  business->CloseConnection();
  if (call.json) {
    call.out << "{\"rows\": ";
    AllColumns(list).PrintJson(call.out);
    call.out << ", \"Total_Amount_Of_Jobs\": " << list.totalAmountOfJobs.ToText()
             << ", \"Total_No_Of_Jobs\": " << list.totalNoOfJobs << "}\n";
    return;
  }
  ShortColumns(list).PrintAligned(call.out);
  call.out << "total amount of jobs: " << list.totalAmountOfJobs.ToCurrencyText() << '\n'
           << "total no of jobs:     " << list.totalNoOfJobs << '\n';
  if (list.someHaveNoEmployee) call.out << "Some jobs have no assigned employee.\n";
}

void RequireOpenJob(Business& business, Id<Entry> entry) {
  const auto job = diary::LoadJob(business, entry);
  if (!job) throw CommandFailure(QStringLiteral("there is no entry %1").arg(entry.Number()));
  const StoredEntryStatus& status = job->storedStatus;
  if (status.Is(EntryStatus::JobOpen)) return;
  throw CommandFailure(QStringLiteral("entry %1 is no job to be done: its status is %2")
                           .arg(entry.Number())
                           .arg(status.Text().isEmpty() ? QStringLiteral("empty") : status.Text()));
}

void RunDone(const Call& call) {
  const auto jobs = ParseIds<Entry>(call.arguments.positional.mid(1));
  const auto business = OpenCurrentBusiness(call);
  Transaction all(*business);
  for (const Id<Entry> job : jobs) RequireOpenJob(*business, job);
  for (const Id<Entry> job : jobs) diary::MarkDoneUnpaid(*business, call.world.prompter, job);
  all.Commit();
  business->CloseConnection();
  ResultTable table({"Diary_ID", "Status"});
  for (const Id<Entry> job : jobs) table.AddRow({job, EntryStatus::JobDone});
  if (call.json) {
    table.PrintJson(call.out);
    call.out << '\n';
  } else {
    table.PrintAligned(call.out);
  }
}

}  // namespace

std::vector<Command> DiaryCommands() {
  return {
      {"diary",
       "FILE --from DATE [--to DATE] [--employee ID]",
       "Lists the diary of a day or of several, in the order of the diary screen, with its totals.",
       {{"from", "DATE", "the first day, YYYY-MM-DD"},
        {"to", "DATE", "the last day; the first one when missing"},
        {"employee", "ID", "only this employee's entries"}},
       1,
       1,
       RunDiary},
      {"done",
       "FILE DIARY_ID...",
       "Marks open jobs as done and computes what their clients owe. Does nothing at all when one "
       "of them is no open job.",
       {},
       2,
       std::numeric_limits<int>::max(),
       RunDone},
  };
}

}  // namespace quillary::cli
