#include "diary/JobServices.h"
#include "diary/Jobs.h"
#include "diary/Visits.h"
#include "roll/ScheduleTest.h"

namespace quillary::diary {
namespace {

class JobsTest : public ScheduleTest {
 protected:
  void SetUp() override {
    ScheduleTest::SetUp();
    business().values.defaultEmployee = Id<Employee>(1);
    Run(Sql("UPDATE Services SET Service = 'Mowing' WHERE Service_Code = 'LM'"));
    Run(Sql("UPDATE Services SET Service = 'Hedges' WHERE Service_Code = 'HT'"));
    client = AddPayer();
  }
  /// A client who is billed for itself.
  qint64 AddPayer() {
    const qint64 payer = AddClient();
    Run(Sql("UPDATE Clients SET Billing_Client_ID = {}, Is_Billed_To = Yes WHERE Client_ID = {}",
            payer, payer));
    return payer;
  }
  Job SavedJob(int statusPosition) {
    Job job = NewJob(business(), client);
    job.statusPosition = statusPosition;
    EXPECT_FALSE(SaveJob(business(), job));
    return job;
  }
  QString Balance(qint64 of) {
    return business()
        .FirstField(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = {}", of))
        .ToText();
  }

  qint64 client = 0;
};

TEST_F(JobsTest, AJobIsRefusedForItsFirstFault) {
  struct Step {
    const char* fault;
    void (*mend)(Job&);
    const char* message;
    const char* field;
  };
  const Step steps[] = {
      {"job of nobody", [](Job&) {}, "Please select a client.", "cmbClient"},
      {"job that no one does", [](Job& job) { job.clientId = 1; }, "Please select an employee.",
       "cmbEmployee"},
      {"job of no status drops out of every list", [](Job& job) { job.employeeId = 1; },
       "Please select the status of the job.", "cmbStatus"},
      {"job placed on a holiday by hand", [](Job& job) { job.statusPosition = 1; },
       "The date you entered is a holiday.", "dtpDate"},
  };
  AddHoliday("25/12");
  Job job;
  job.date = Day("2026-12-25");
  for (const Step& step : steps) {
    step.mend(job);
    const std::optional<Refusal> refusal = SaveJob(business(), job);
    ASSERT_TRUE(refusal) << step.fault;
    EXPECT_EQ(refusal->message, step.message);
    EXPECT_EQ(refusal->field, step.field);
  }
  EXPECT_EQ(Count("Diary"), 0);
  job.date = Day("2026-12-26");
  EXPECT_FALSE(SaveJob(business(), job));
}

TEST_F(JobsTest, ANewJobComesFirstInItsDayAndHasNoPrice) {
  Job job = SavedJob(0);
  EXPECT_EQ(Rows("SELECT Diary_ID, Client_ID, Employee_ID, Schedule_Date, Status, Sequence, "
                 "Total_Price, Payment_ID FROM Diary"),
            QStringList("1 1 1 2026-11-02 J - - -"));
  job.notes = QStringLiteral("Mind the dog's \"friend\"");
  job.paymentId = 7;
  EXPECT_FALSE(SaveJob(business(), job));
  EXPECT_EQ(Rows("SELECT Diary_ID, Payment_ID, Notes FROM Diary"),
            QStringList("1 7 Mind the dog's \"friend\""));
}

TEST_F(JobsTest, StatusesByPositionAndBack) {
  struct Case {
    const char* stored;
    std::optional<int> position;
    const char* afterSave;
  };
  const Case cases[] = {
      {"J", 0, "J"},   {"JD", 1, "JD"}, {"JP", 1, "JD"}, {"JU", 1, "JD"},
      {"JC", 2, "JC"}, {"JI", 3, "JI"}, {"V", {}, "V"},  {"Q", {}, "Q"},
  };
  for (const Case& status : cases) {
    SCOPED_TRACE(status.stored);
    const Transaction undone(business());
    std::optional<Job> job =
        LoadJob(business(), AddEntry(client, Day("2026-11-03"), status.stored));
    ASSERT_TRUE(job);
    EXPECT_EQ(job->statusPosition, status.position);
    EXPECT_EQ(SaveJob(business(), *job).has_value(), !status.position);
    EXPECT_EQ(Rows("SELECT Status FROM Diary"), QStringList(status.afterSave));
  }
  EXPECT_EQ(JobStatusWords().size(), 4);
  EXPECT_FALSE(LoadJob(business(), 99));
}

TEST_F(JobsTest, AJobShowsItsInvoiceAndItsPayment) {
  Run(Sql("INSERT INTO Invoices (Invoice_Number) VALUES ('1004')"));
  const qint64 entry = AddEntry(client, Day("2026-11-03"), "JI");
  EXPECT_FALSE(LoadJob(business(), entry)->HasBeenPaid());
  EXPECT_EQ(LoadJob(business(), entry)->InvoiceWords(), "");
  Run(Sql("UPDATE Diary SET Invoice_ID = 1, Payment_ID = 3"));
  EXPECT_TRUE(LoadJob(business(), entry)->HasBeenPaid());
  EXPECT_EQ(LoadJob(business(), entry)->InvoiceWords(), "Inv No: 1004");
}

TEST_F(JobsTest, WhatIsOwedFollowsASavedMovedAndDeletedJob) {
  Job job = SavedJob(1);
  EXPECT_FALSE(SaveService(business(), job, {{}, 1, Money::FromWhole(110)}, SaveLine::AsNew));
  EXPECT_FALSE(SaveJob(business(), job));
  EXPECT_EQ(Balance(client), "-110");

  const qint64 other = AddPayer();
  job.clientId = other;
  EXPECT_FALSE(SaveJob(business(), job));
  EXPECT_EQ(Balance(client), "0") << "the former client still owes the job";
  EXPECT_EQ(Balance(other), "-110");

  DeleteJob(business(), job.diaryId);
  EXPECT_EQ(Balance(other), "0");
  EXPECT_EQ(Count("Diary") + Count("Diary_Services"), 0);
}

// The clock of a debt is looked at again after the balance, so it stands at the job's day at once.
TEST_F(JobsTest, ADebtIsAsOldAsItsJob) {
  const qint64 entry = AddEntry(client, Day("2026-10-05"), "J");
  Run(Sql("UPDATE Diary SET Total_Price = 55"));
  Job job = *LoadJob(business(), entry);
  job.statusPosition = 1;
  EXPECT_FALSE(SaveJob(business(), job));
  EXPECT_EQ(Rows("SELECT Debtor_Since FROM Clients"), QStringList("2026-10-05"));
}

TEST_F(JobsTest, ALineOfANewJobSavesTheJobFirst) {
  Job job;
  const JobServiceForm line{{}, 1, Money::FromWhole(55)};
  EXPECT_EQ(SaveService(business(), job, line, SaveLine::AsNew)->message,
            "Please select a client.");
  EXPECT_EQ(Count("Diary_Services"), 0);
  job = NewJob(business(), client);
  EXPECT_FALSE(SaveService(business(), job, line, SaveLine::AsNew));
  EXPECT_EQ(Rows("SELECT Diary_ID, Service_ID, Price, GST FROM Diary_Services"),
            QStringList(QStringLiteral("%1 1 55 5").arg(job.diaryId)));
}

TEST_F(JobsTest, TheTaxOfAJobIsThatOfItsSum) {
  Job job = NewJob(business(), client);
  const Money price = Money::FromUnits(10500);  // 10 cents of tax each, 19 cents in both
  EXPECT_FALSE(SaveService(business(), job, {{}, 1, price}, SaveLine::AsNew));
  EXPECT_FALSE(SaveService(business(), job, {{}, 2, price}, SaveLine::AsNew));
  EXPECT_EQ(Rows("SELECT SUM(GST) FROM Diary_Services"), QStringList("0.2"));
  EXPECT_EQ(Rows("SELECT Total_Price, Total_GST FROM Diary"), QStringList("2.1 0.19"));

  const JobServices lines = LoadServices(business(), job.diaryId);
  EXPECT_EQ(lines.TotalWords(), "Total = $2.10");
  EXPECT_EQ(lines.Description(), "HT, LM") << "not by name of the service";
  EXPECT_EQ(lines.rows[0].accountName,
            "(No selected revenue account ), Please update in the Services screen.");

  const JobServiceForm changed{lines.rows[0].diaryServiceId, 3, Money::FromWhole(110)};
  EXPECT_FALSE(SaveService(business(), job, changed, SaveLine::Selected));
  EXPECT_FALSE(RemoveService(business(), job.diaryId, lines.rows[1].diaryServiceId));
  EXPECT_EQ(Rows("SELECT Service_ID, Price, GST FROM Diary_Services"), QStringList("3 110 10"));
  EXPECT_EQ(Rows("SELECT Total_Price, Total_GST FROM Diary"), QStringList("110 10"));
}

TEST_F(JobsTest, LinesAreRefusedWithoutServiceOrSelection) {
  Job job = SavedJob(0);
  const Money price = Money::FromWhole(5);
  EXPECT_EQ(SaveService(business(), job, {{}, {}, price}, SaveLine::AsNew)->message,
            "Please select a service.");
  EXPECT_EQ(SaveService(business(), job, {{}, {}, price}, SaveLine::Selected)->message,
            "Please select a service.");
  EXPECT_EQ(SaveService(business(), job, {{}, 1, price}, SaveLine::Selected)->message,
            "Please select a record to update.");
  EXPECT_EQ(RemoveService(business(), job.diaryId, {})->message,
            "Please select a service to delete.");
}

TEST_F(JobsTest, AVisitKeepsItsStateAndMayFallOnAHoliday) {
  AddHoliday("02/11");
  Visit visit = NewVisit(business(), client);
  visit.employeeId = {};
  EXPECT_EQ(SaveVisit(business(), visit)->message, "Please select an employee.");
  EXPECT_EQ(Count("Diary"), 0);
  visit.employeeId = 1;
  visit.purpose = QStringLiteral("Measure the lawn");
  const std::pair<VisitState, const char*> states[] = {
      {VisitState::NotDone, "V"}, {VisitState::Done, "VD"}, {VisitState::Cancelled, "VC"}};
  for (const auto& [state, code] : states) {
    visit.state = state;
    EXPECT_FALSE(SaveVisit(business(), visit));
    EXPECT_EQ(Rows("SELECT Client_ID, Schedule_Date, Status, Description, Total_Price FROM Diary"),
              QStringList(QStringLiteral("1 2026-11-02 %1 Measure the lawn -").arg(code)));
    EXPECT_EQ(LoadVisit(business(), visit.diaryId)->state, state);
  }
  outside.prompter.Expect("Are you sure you want to delete this visit?", Answer::No);
  EXPECT_FALSE(DeleteVisit(business(), outside.prompter, visit.diaryId));
  outside.prompter.Expect("Are you sure you want to delete this visit?", Answer::Yes);
  EXPECT_TRUE(DeleteVisit(business(), outside.prompter, visit.diaryId));
  EXPECT_FALSE(LoadVisit(business(), visit.diaryId));
}

}  // namespace
}  // namespace quillary::diary
