#include "diary/DiaryCommands.h"
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
  Id<Client> AddPayer() {
    const auto payer = AddClient();
    Run(Sql("UPDATE Clients SET Billing_Client_ID = {}, Is_Billed_To = Yes WHERE Client_ID = {}",
            payer, payer));
    return payer;
  }
  Job SavedJob(EntryStatus status) {
    Job job = NewJob(business(), client);
    job.status = status;
    EXPECT_FALSE(SaveJob(business(), job));
    return job;
  }
  QStringList Everything() {
    return Rows("SELECT Diary_ID, Client_ID, Status, Total_Price, Sequence FROM Diary") +
           Rows("SELECT * FROM Diary_Services") +
           Rows("SELECT Account_Balance FROM Clients WHERE Client_ID = 1");
  }
  QString Balance(Id<Client> of) {
    return business()
        .FirstField(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = {}", of))
        .ToText();
  }

  Id<Client> client{0};
};

TEST_F(JobsTest, AJobIsRefusedForItsFirstFault) {
  struct Step {
    const char* fault;
    void (*mend)(Job&);
    const char* message;
    const char* field;
  };
  const Step steps[] = {
      {"job of nobody", [](Job&) {}, "Please select a client.", "client"},
      {"job that no one does", [](Job& job) { job.client = Id<Client>(1); },
       "Please select an employee.", "employee"},
      {"job of no status drops out of every list", [](Job& job) { job.employee = Id<Employee>(1); },
       "Please select the status of the job.", "status"},
      {"job placed on a holiday by hand", [](Job& job) { job.status = EntryStatus::JobDone; },
       "The date you entered is a holiday.", "date"},
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
  Job job = SavedJob(EntryStatus::JobOpen);
  EXPECT_EQ(Rows("SELECT Diary_ID, Client_ID, Employee_ID, Schedule_Date, Status, Sequence, "
                 "Total_Price, Payment_ID FROM Diary"),
            QStringList("1 1 1 2026-11-02 J - - -"));
  job.notes = QStringLiteral("Mind the dog's \"friend\"");
  job.payment = Id<Payment>(7);
  EXPECT_FALSE(SaveJob(business(), job));
  EXPECT_EQ(Rows("SELECT Diary_ID, Payment_ID, Notes FROM Diary"),
            QStringList("1 7 Mind the dog's \"friend\""));
}

TEST_F(JobsTest, OlderFormsOfDoneAreSavedAsDone) {
  struct Case {
    const char* stored;
    std::optional<EntryStatus> shown;
    const char* afterSave;
  };
  const Case cases[] = {
      {"J", EntryStatus::JobOpen, "J"},
      {"JD", EntryStatus::JobDone, "JD"},
      {"JP", EntryStatus::JobDone, "JD"},
      {"JU", EntryStatus::JobDone, "JD"},
      {"JC", EntryStatus::JobCancelled, "JC"},
      {"JI", EntryStatus::JobInvoiced, "JI"},
      {"V", {}, "V"},
      {"Q", {}, "Q"},
      {"J9", {}, "J9"},
  };
  for (const Case& status : cases) {
    SCOPED_TRACE(status.stored);
    const Transaction undone(business());
    std::optional<Job> job =
        LoadJob(business(), AddEntry(client, Day("2026-11-03"), status.stored));
    ASSERT_TRUE(job);
    EXPECT_EQ(job->status, status.shown);
    EXPECT_EQ(SaveJob(business(), *job).has_value(), !status.shown);
    EXPECT_EQ(Rows("SELECT Status FROM Diary"), QStringList(status.afterSave));
  }
  EXPECT_FALSE(LoadJob(business(), Id<Entry>(99)));
}

TEST_F(JobsTest, AJobShowsItsInvoiceAndItsPayment) {
  Run(Sql("INSERT INTO Invoices (Invoice_Number) VALUES ('1004')"));
  const auto entry = AddEntry(client, Day("2026-11-03"), "JI");
  EXPECT_FALSE(LoadJob(business(), entry)->payment);
  EXPECT_EQ(LoadJob(business(), entry)->InvoiceWords(), "");
  Run(Sql("UPDATE Diary SET Invoice_ID = 1, Payment_ID = 3"));
  EXPECT_TRUE(LoadJob(business(), entry)->payment);
  EXPECT_EQ(LoadJob(business(), entry)->InvoiceWords(), "Inv No: 1004");
}

TEST_F(JobsTest, WhatIsOwedFollowsASavedMovedAndDeletedJob) {
  Job job = SavedJob(EntryStatus::JobDone);
  EXPECT_FALSE(
      SaveService(business(), job, {{}, Id<Service>(1), Money::FromWhole(110)}, SaveLine::AsNew));
  EXPECT_FALSE(SaveJob(business(), job));
  EXPECT_EQ(Balance(client), "-110");

  const auto other = AddPayer();
  job.client = other;
  EXPECT_FALSE(SaveJob(business(), job));
  EXPECT_EQ(Balance(client), "0") << "the former client still owes the job";
  EXPECT_EQ(Balance(other), "-110");

  DeleteEntry(business(), *job.entry);
  EXPECT_EQ(Balance(other), "0");
  EXPECT_EQ(Count("Diary") + Count("Diary_Services"), 0);
}

// The clock of a debt is looked at again after the balance, so it stands at the job's day at once.
TEST_F(JobsTest, ADebtIsAsOldAsItsJob) {
  const auto entry = AddEntry(client, Day("2026-10-05"), "J");
  Run(Sql("UPDATE Diary SET Total_Price = 55"));
  Job job = *LoadJob(business(), entry);
  job.status = EntryStatus::JobDone;
  EXPECT_FALSE(SaveJob(business(), job));
  EXPECT_EQ(Rows("SELECT Debtor_Since FROM Clients"), QStringList("2026-10-05"));
}

TEST_F(JobsTest, ALineOfANewJobSavesTheJobFirst) {
  Job job;
  const JobServiceForm line{{}, Id<Service>(1), Money::FromWhole(55)};
  EXPECT_EQ(SaveService(business(), job, line, SaveLine::AsNew)->message,
            "Please select a client.");
  EXPECT_EQ(Count("Diary_Services"), 0);
  job = NewJob(business(), client);
  EXPECT_FALSE(SaveService(business(), job, line, SaveLine::AsNew));
  EXPECT_EQ(Rows("SELECT Diary_ID, Service_ID, Price, GST FROM Diary_Services"),
            QStringList(QStringLiteral("%1 1 55 5").arg(job.entry->Number())));
}

TEST_F(JobsTest, TheTaxOfAJobIsThatOfItsSum) {
  Job job = NewJob(business(), client);
  const Money price = Money::FromUnits(10500);  // 10 cents of tax each, 19 cents in both
  EXPECT_FALSE(SaveService(business(), job, {{}, Id<Service>(1), price}, SaveLine::AsNew));
  EXPECT_FALSE(SaveService(business(), job, {{}, Id<Service>(2), price}, SaveLine::AsNew));
  EXPECT_EQ(Rows("SELECT SUM(GST) FROM Diary_Services"), QStringList("0.2"));
  EXPECT_EQ(Rows("SELECT Total_Price, Total_GST FROM Diary"), QStringList("2.1 0.19"));

  const JobServices lines = LoadServices(business(), *job.entry);
  EXPECT_EQ(lines.TotalWords(), "Total = $2.10");
  EXPECT_EQ(lines.Description(), "HT, LM") << "not by name of the service";
  EXPECT_EQ(lines.rows[0].accountName,
            "(No selected revenue account ), Please update in the Services screen.");

  const JobServiceForm changed{lines.rows[0].line, Id<Service>(3), Money::FromWhole(110)};
  EXPECT_FALSE(SaveService(business(), job, changed, SaveLine::Selected));
  EXPECT_FALSE(RemoveService(business(), *job.entry, lines.rows[1].line));
  EXPECT_EQ(Rows("SELECT Service_ID, Price, GST FROM Diary_Services"), QStringList("3 110 10"));
  EXPECT_EQ(Rows("SELECT Total_Price, Total_GST FROM Diary"), QStringList("110 10"));
}

TEST_F(JobsTest, LinesAreRefusedWithoutServiceOrSelection) {
  Job job = SavedJob(EntryStatus::JobOpen);
  const Money price = Money::FromWhole(5);
  EXPECT_EQ(SaveService(business(), job, {{}, {}, price}, SaveLine::AsNew)->message,
            "Please select a service.");
  EXPECT_EQ(SaveService(business(), job, {{}, {}, price}, SaveLine::Selected)->message,
            "Please select a service.");
  EXPECT_EQ(SaveService(business(), job, {{}, Id<Service>(1), price}, SaveLine::Selected)->message,
            "Please select a record to update.");
  EXPECT_EQ(RemoveService(business(), *job.entry, {})->message,
            "Please select a service to delete.");
}

TEST_F(JobsTest, AVisitKeepsItsStateAndMayFallOnAHoliday) {
  AddHoliday("02/11");
  Visit nobodys = NewVisit(business(), {});
  nobodys.employee = Id<Employee>(1);
  EXPECT_EQ(SaveVisit(business(), nobodys)->message, "Please select a client.");
  Visit visit = NewVisit(business(), client);
  visit.employee = {};
  EXPECT_EQ(SaveVisit(business(), visit)->message, "Please select an employee.");
  EXPECT_EQ(Count("Diary"), 0);
  visit.employee = Id<Employee>(1);
  visit.purpose = QStringLiteral("Measure the lawn");
  const std::pair<EntryStatus, const char*> states[] = {{EntryStatus::VisitOpen, "V"},
                                                        {EntryStatus::VisitDone, "VD"},
                                                        {EntryStatus::VisitCancelled, "VC"}};
  for (const auto& [state, code] : states) {
    visit.status = state;
    EXPECT_FALSE(SaveVisit(business(), visit));
    EXPECT_EQ(Rows("SELECT Client_ID, Schedule_Date, Status, Description, Total_Price FROM Diary"),
              QStringList(QStringLiteral("1 2026-11-02 %1 Measure the lawn -").arg(code)));
    EXPECT_EQ(LoadVisit(business(), *visit.entry)->status, state);
  }
  outside.prompter.Expect("Are you sure you want to delete this visit?", Answer::No);
  EXPECT_FALSE(DeleteVisit(business(), outside.prompter, *visit.entry));
  outside.prompter.Expect("Are you sure you want to delete this visit?", Answer::Yes);
  EXPECT_TRUE(DeleteVisit(business(), outside.prompter, *visit.entry));
  EXPECT_FALSE(LoadVisit(business(), *visit.entry));
}

TEST_F(JobsTest, AWriteThatIsRefusedOrHitsNothingLeavesAllAsItWas) {
  Job job = SavedJob(EntryStatus::JobDone);
  EXPECT_FALSE(
      SaveService(business(), job, {{}, Id<Service>(1), Money::FromWhole(110)}, SaveLine::AsNew));
  EXPECT_FALSE(SaveJob(business(), job));
  const QStringList before = Everything();
  Job gone = job;
  gone.entry = Id<Entry>(99);
  gone.client = AddPayer();
  Visit visit{.entry = gone.entry, .client = gone.client, .employee = Id<Employee>(1)};
  const JobServiceForm line{Id<EntryLine>(99), Id<Service>(1), Money::FromWhole(5)};
  const std::pair<const char*, std::function<void()>> cases[] = {
      {"a job that has gone is saved", [&] { SaveJob(business(), gone); }},
      {"a visit that has gone is saved", [&] { SaveVisit(business(), visit); }},
      {"a line goes to a job that has gone",
       [&] {
         SaveService(business(), gone, {{}, line.service, line.price}, SaveLine::AsNew);
       }},
      {"a line that has gone is changed",
       [&] { SaveService(business(), job, line, SaveLine::Selected); }},
      {"a line that has gone is deleted",
       [&] { RemoveService(business(), *job.entry, line.line); }},
      {"an entry that has gone is deleted", [&] { DeleteEntry(business(), *gone.entry); }},
      {"an entry that has gone is done",
       [&] { ChangeJobStatus(business(), *gone.entry, EntryStatus::JobDone); }},
      {"an order names an entry that has gone",
       [&] {
         StoreSequence(business(), {*job.entry, *gone.entry});
       }},
  };
  for (const auto& [fault, command] : cases) {
    EXPECT_THROW(command(), WriteFailed) << fault;
    EXPECT_EQ(Everything(), before) << fault;
  }
  // A column that will not take what is written stands for whatever the store refuses.
  Run(Sql("ALTER TABLE Diary DROP COLUMN Notes"));
  Job fresh = NewJob(business(), client);
  job.status = EntryStatus::JobOpen;
  for (Job* each : {&job, &fresh}) {
    try {
      SaveJob(business(), *each);
      ADD_FAILURE() << "a save that was refused is taken for done";
    } catch (const WriteFailed& failure) {
      EXPECT_EQ(failure.What().table, "Diary");
      EXPECT_TRUE(failure.What().statement.startsWith(u"UPDATE Diary SET")) << "nothing to mend by";
    }
  }
  EXPECT_EQ(Everything(), before);
  EXPECT_TRUE(fresh.IsNew()) << "the form takes a key that was undone";
}

}  // namespace
}  // namespace quillary::diary
