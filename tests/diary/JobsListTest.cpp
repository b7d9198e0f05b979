#include "diary/DiaryCommands.h"
#include "diary/JobPicker.h"
#include "diary/JobsList.h"
#include "roll/ScheduleTest.h"

namespace quillary::diary {
namespace {

/// Client 1 pays for itself and for client 2.
class JobsListTest : public ScheduleTest {
 protected:
  void SetUp() override {
    ScheduleTest::SetUp();
    payer = AddClient();
    site = AddClient();
    Run(Sql("UPDATE Clients SET Billing_Client_ID = {}", payer));
    Run(Sql("UPDATE Clients SET Display_Name = 'Payer' WHERE Client_ID = {}", payer));
  }
  Id<Entry> AddJob(Id<Client> client, const char* day, const char* status) {
    const auto entry = AddEntry(client, Day(day), status);
    Run(Sql("UPDATE Diary SET Total_Price = 11, Total_GST = 1 WHERE Diary_ID = {}", entry));
    return entry;
  }
  QString PayersBalance() {
    return business()
        .FirstField(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = {}", payer))
        .ToText();
  }
  QString StatusOf(Id<Entry> entry) {
    return business()
        .FirstField(Sql("SELECT Status FROM Diary WHERE Diary_ID = {}", entry))
        .ToText();
  }

  Id<Client> payer{0};
  Id<Client> site{0};
};

TEST_F(JobsListTest, FiltersAndTotals) {
  for (const char* status : {"J", "JD", "JP", "JU", "JI", "JC", "V", "Q"}) {
    AddJob(site, "2026-11-03", status);
  }
  struct Case {
    JobFilter filter;
    const char* words;
    QStringList statuses;  // the newest entry first
    int counted;
  };
  const Case cases[] = {
      {JobFilter::AllJobs, "- All Jobs -", {"JC", "JI", "JU", "JP", "JD", "J"}, 5},
      {JobFilter::UncancelledJobs,
       "- Uncancelled Jobs - ",
       {"Q", "V", "JI", "JU", "JP", "JD", "J"},
       7},
      {JobFilter::NotDone, "Job NOT DONE", {"J"}, 1},
      {JobFilter::Done, "Job DONE", {"JI", "JU", "JP", "JD"}, 4},
      {JobFilter::Cancelled, "Job CANCELLED", {"JC"}, 0},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.words);
    JobsListQuery query = JobsOfMonth(business().Today());
    query.filter = expected.filter;
    const JobsList list = LoadJobsList(business(), query);
    QStringList statuses;
    for (const JobsListRow& row : list.rows) statuses += row.status.Text();
    EXPECT_EQ(statuses, expected.statuses);
    EXPECT_EQ(list.totalNoOfJobs, expected.counted);
    EXPECT_EQ(list.totalAmountOfJobs, Money::FromWhole(11) * expected.counted);
    EXPECT_EQ(list.totalAmountOfGST, Money::FromWhole(expected.counted));
    EXPECT_EQ(JobFilterWords().at(static_cast<int>(expected.filter)), expected.words);
  }
}

TEST_F(JobsListTest, TheMonthWithBothItsEnds) {
  const JobsListQuery february = JobsOfMonth(QDate(2028, 2, 10));
  EXPECT_EQ(february.days.from, QDate(2028, 2, 1));
  EXPECT_EQ(february.days.to, QDate(2028, 2, 29));
  AddJob(site, "2028-01-31", "J");
  const auto twoLines = AddJob(site, "2028-02-01", "J");
  Run(Sql("INSERT INTO Diary_Services (Diary_ID, Service_ID) VALUES ({}, 2)", twoLines));
  const auto atAnHour = AddJob(site, "2028-02-29", "J");
  Run(Sql("UPDATE Diary SET Schedule_Date = {} WHERE Diary_ID = {}",
          DateTime(QDate(2028, 2, 29), QTime(16, 0)), atAnHour));
  AddJob(site, "2028-03-01", "J");
  const JobsList list = LoadJobsList(business(), february);
  ASSERT_EQ(list.rows.size(), 2u) << "an entry stands once for each line, or an end is missing";
  EXPECT_EQ(list.rows[0].entry, twoLines);
  EXPECT_EQ(list.rows[1].entry, atAnHour);
}

TEST_F(JobsListTest, EachCommandAsksForAJobInItsOwnWords) {
  const std::pair<JobsListCommand, const char*> cases[] = {
      {JobsListCommand::EditCell, "Please select a job to update."},
      {JobsListCommand::ViewJob, "Please select a job to edit."},
      {JobsListCommand::ClientDetails, "Please select a job."},
      {JobsListCommand::Delete, "Please select a job to delete."},
  };
  for (const auto& [command, message] : cases) {
    EXPECT_EQ(CheckJobSelected(command, {})->message, message);
    EXPECT_FALSE(CheckJobSelected(command, Id<Entry>(1)));
  }
}

TEST_F(JobsListTest, ADeletedJobIsNoLongerOwed) {
  const auto job = AddJob(site, "2026-11-03", "J");
  ChangeJobStatus(business(), job, EntryStatus::JobDone);
  outside.prompter.Expect("Client, 3 Nov 2026", Answer::No);
  EXPECT_FALSE(DeleteJobAfterAsking(business(), outside.prompter, job));
  EXPECT_EQ(PayersBalance(), "-11");
  outside.prompter.Expect("Are you sure you want to delete this job?", Answer::Yes);
  EXPECT_TRUE(DeleteJobAfterAsking(business(), outside.prompter, job));
  EXPECT_EQ(PayersBalance(), "0");
  EXPECT_EQ(Count("Diary_Services"), 0);
}

TEST_F(JobsListTest, EveryChangeOfAStatusReachesTheOneWhoPays) {
  const auto job = AddJob(site, "2026-11-03", "J");
  using enum EntryStatus;
  const std::pair<EntryStatus, const char*> steps[] = {{JobDone, "-11"},     {JobOpen, "0"},
                                                       {JobInvoiced, "-11"}, {JobCancelled, "0"},
                                                       {JobDonePaid, "-11"}, {VisitDone, "0"}};
  for (const auto& [status, balance] : steps) {
    ChangeJobStatus(business(), job, status);
    EXPECT_EQ(PayersBalance(), balance) << TextOf(status).toStdString();
  }

  outside.prompter.Expect("This job has been paid.", Answer::Yes);
  Run(Sql("UPDATE Diary SET Payment_ID = 5"));
  MarkDoneUnpaid(business(), outside.prompter, job);
  EXPECT_EQ(PayersBalance(), "-11");
  EXPECT_EQ(Rows("SELECT Status, Payment_ID FROM Diary"), QStringList("JD -"));
}

TEST_F(JobsListTest, ReschedulingOffersToCancelTheJobFirst) {
  const auto job = AddJob(site, "2026-11-03", "J");
  ChangeJobStatus(business(), job, EntryStatus::JobDone);
  outside.prompter.Expect("Do you want to Cancel this job first?", Answer::No);
  OfferToCancelJob(business(), outside.prompter, job);
  EXPECT_EQ(StatusOf(job), "JD");
  outside.prompter.Expect("Do you want to Cancel this job first?", Answer::Yes);
  OfferToCancelJob(business(), outside.prompter, job);
  EXPECT_EQ(StatusOf(job), "JC");
  EXPECT_EQ(PayersBalance(), "0");
}

TEST_F(JobsListTest, AnInvoiceCanTakeTheJobsOfTheWholeBillingGroup) {
  const auto stranger = AddClient();
  AddJob(stranger, "2026-11-03", "J");
  AddJob(payer, "2026-11-05", "J");
  AddJob(site, "2026-11-05", "JD");
  AddJob(site, "2026-11-03", "JU");
  AddJob(site, "2026-11-03", "JC");
  AddJob(site, "2026-12-01", "JD");
  Run(Sql("UPDATE Diary SET Invoice_ID = 4 WHERE Status = 'JU'"));
  QStringList picked;
  for (const PickableJob& job :
       ListPickableJobs(business(), payer, DateRange::MonthOf(Day("2026-11-02")))) {
    picked += QStringLiteral("%1 %2 %3 %4")
                  .arg(job.displayName, job.status.Text(), job.HasInvoiceWord())
                  .arg(static_cast<int>(job.RowHue()));
    EXPECT_EQ(job.IsOn(Id<Invoice>(4)), job.status.Is(EntryStatus::JobDoneUnpaid));
    EXPECT_FALSE(job.IsOn({})) << "what is on no invoice is not on a new one";
  }
  EXPECT_EQ(picked, (QStringList{"Client JU Yes 7", "Client JD No 2", "Payer J No 1"}));
}

TEST_F(JobsListTest, ThePickersMonthsSpanThreeYears) {
  const QDate today(2026, 11, 2);
  const std::vector<MonthChoice> months = ListPickerMonths(today);
  ASSERT_EQ(months.size(), 36u);
  EXPECT_EQ(months.front().words, "January 2025");
  EXPECT_EQ(months.back().days.to, QDate(2027, 12, 31));
  EXPECT_EQ(PickerMonthOf(today, QDate(2026, 2, 28)), 13u);
  EXPECT_FALSE(PickerMonthOf(today, QDate(2024, 12, 31)));
}

}  // namespace
}  // namespace quillary::diary
