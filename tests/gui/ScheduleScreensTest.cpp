#include "balances/ClientBalance.h"
#include "base/ports/requests/Billing.h"
#include "base/ports/requests/Clients.h"
#include "base/ports/requests/Documents.h"
#include "base/ports/requests/Scheduling.h"
#include "billing/screens/PaymentScreens.h"
#include "gui/ScreenFixture.h"
#include "roll/ScheduleCheck.h"

#include <QCheckBox>
#include <QLabel>

namespace quillary {
namespace {

/// Over rescheduling, the check of the schedule and the checker of jobs and payments.
class ScheduleScreensTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    business().values.daysToAdvanceSchedule = 30;
    Run(
        Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price, "
            "Frequency, Next_Visit) VALUES (1, 2, 1, 'Regular', 50, 14, {})",
            QDate(2026, 11, 4)));
  }
  QStringList Days() {
    QStringList days;
    for (const Record row : Run(Sql("SELECT Schedule_Date FROM Diary ORDER BY Schedule_Date")))
      days += row[u"Schedule_Date"].ToDate().toString("d/M");
    return days;
  }
};

TEST_F(ScheduleScreensTest, RecreatesTheScheduleOnlyWhenAsked) {
  UseDialog(OpenReschedule{}, [&](Dialog& reschedule) {
    QTest::keyClick(&reschedule, Qt::Key_Return);
    EXPECT_EQ(Count("Diary"), 0) << "Enter alone does not start it";
    ClickOn(&reschedule, "cmdCancel");
  });
  EXPECT_EQ(Count("Diary"), 0);
  UseDialog(OpenReschedule{}, [&](Dialog& reschedule) {
    PressAlt(&reschedule, Qt::Key_R);
    EXPECT_FALSE(reschedule.isVisible());
  });
  EXPECT_EQ(Days(), (QStringList{"4/11", "18/11", "2/12"}));
  EXPECT_EQ(outside.busy.depth, 0);
}

TEST_F(ScheduleScreensTest, GivesAClientANewRhythm) {
  constexpr int kFrequency = 4;
  constexpr int kStart = 5;
  const bool done = UseDialog(RescheduleFutureJobs{Id<Client>(1)}, [&](Dialog& future) {
    auto* grid = Find<Grid>(&future, "grdServices");
    auto* go = Find<QPushButton>(&future, "cmdReschedule");
    EXPECT_FALSE(go->isEnabled()) << "nothing has changed";
    TypeInto(grid, 0, kStart, "no date");
    EXPECT_EQ(Told(), "Please enter a valid start date.");
    EXPECT_FALSE(go->isEnabled());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);  // it stands open for another try
    TypeInto(grid, 0, kStart, "10/11");
    EXPECT_EQ(grid->model()->index(0, kStart).data().toString(), "10 Nov 2026");
    TypeInto(grid, 0, kFrequency, "7");
    EXPECT_TRUE(go->isEnabled());
    go->click();
  });
  EXPECT_TRUE(done);
  EXPECT_EQ(Days(), (QStringList{"10/11", "17/11", "24/11", "1/12"}));
}

TEST_F(ScheduleScreensTest, CancellingANewRhythmWritesNothing) {
  EXPECT_FALSE(UseDialog(RescheduleFutureJobs{Id<Client>(1)}, [&](Dialog& future) {
    TypeInto(Find<Grid>(&future, "grdServices"), 0, 4, "7");
    ClickOn(&future, "cmdCancel");
    EXPECT_FALSE(future.isVisible());
  }));
  EXPECT_EQ(Number(Sql("SELECT Frequency FROM Client_Services")), 14);
}

TEST_F(ScheduleScreensTest, ProblemListShowsItselfAtStartUpOnlyWithReason) {
  const auto starts = [&] {
    host.shown.reset();
    navigator.Open(OpenListOfClientsWithSchedulingProblem{true});
    return host.shown != nullptr;
  };
  EXPECT_TRUE(starts()) << "a visit is missing";
  auto* grid = Find<Grid>(host.shown.get(), "grdClients");
  EXPECT_TRUE(RowText(grid, 0).startsWith("Abbott|Active|")) << RowText(grid, 0).toStdString();
  Find<QCheckBox>(host.shown.get(), "chkShowAfterStartup")->click();
  EXPECT_FALSE(starts()) << "switched off";
  OpenTab(OpenListOfClientsWithSchedulingProblem{});
  EXPECT_FALSE(Find<QCheckBox>(host.shown.get(), "chkShowAfterStartup")->isChecked());
  Find<QCheckBox>(host.shown.get(), "chkShowAfterStartup")->click();
  Run(Sql("UPDATE Client_Services SET Status = 'Casual'"));
  EXPECT_FALSE(starts()) << "nothing is found";
}

TEST_F(ScheduleScreensTest, ProblemListLeadsToTheClientAndToPaper) {
  qint64 opened = 0;
  PrintList printed;
  navigator.Register<OpenClient>(
      [&](const OpenClient& request) { opened = request.client.Number(); });
  navigator.Register<PrintList>([&](const PrintList& list) { printed = list; });
  Screen& problems = OpenTab(OpenListOfClientsWithSchedulingProblem{});
  QTest::keyClick(Find<Grid>(&problems, "grdClients"), Qt::Key_Return);
  EXPECT_EQ(opened, 1);
  ClickOn(&problems, "cmdPrint");
  EXPECT_EQ(printed.title, "List of clients with job scheduling problem");
  EXPECT_EQ(printed.rows.size(), 1U);
}

class CheckerTest : public ScheduleScreensTest {
 protected:
  void SetUp() override {
    ScheduleScreensTest::SetUp();
    billing::RegisterPaymentScreens(business(), {navigator, host, runner});
    Run(
        Sql("UPDATE Clients SET Billing_Client_ID = 1, Is_Billed_To = False "
            "WHERE Client_ID = 2"));
    for (const int client : {1, 2})
      Run(
          Sql("INSERT INTO Diary (Client_ID, Status, Schedule_Date, Total_Price) "
              "VALUES ({}, 'JD', {}, 100)",
              client, QDate(2026, 10, client)));
    for (const int client : {1, 2})
      Run(Sql("INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES ({}, {}, 30)", client,
              QDate(2026, 10, 9)));
    balances::RecalculateClientBalance(business(), Id<Client>(1));
    checker = &OpenTab(OpenJobsAndPaymentChecker{});
  }
  QString Text(const char* label) { return Find<QLabel>(checker, label)->text(); }
  Grid* List(const char* name) { return Find<Grid>(checker, name); }

  Screen* checker = nullptr;
};

TEST_F(CheckerTest, ShowsWhatABalanceIsMadeOf) {
  EXPECT_EQ(RowText(List("grdClients"), 0), "Abbott|Active|(same as client)|$170.00|$170.00");
  EXPECT_EQ(RowText(List("grdClients"), 1), "Brown|Active|Abbott|$0.00|$170.00");
  EXPECT_EQ(Text("txtTotalNoOfJobs"), "2 jobs");
  EXPECT_EQ(Text("txtTotalJobAmount"), "$200.00");
  EXPECT_EQ(Text("txtTotalNoOfPayments"), "1 payment");
  EXPECT_EQ(Text("txtTotalNoOfPayments2"), "1 payment");
  EXPECT_EQ(Text("txtTotalPayments"), "$30.00");
  EXPECT_EQ(Text("txtTotalPayments2"), "$30.00");
  List("grdClients")->setFocus();
  QTest::keyClick(List("grdClients"), Qt::Key_Down);
  EXPECT_EQ(Text("txtTotalJobAmount"), "$100.00") << "the other client's own";
  EXPECT_EQ(Text("txtTotalNoOfPayments2"), "0 payments");
}

TEST_F(CheckerTest, AStatusHasItsColour) {
  const std::pair<const char*, Hue> cases[] = {
      {"Active", Hue::Green},  {"QUOTE ONLY", Hue::Yellow}, {"Billing address", Hue::PaleBlue},
      {"Cancelled", Hue::Red}, {"Bad debtor", Hue::Blue},   {"Transferred", Hue::Neutral},
  };
  for (const auto& [status, hue] : cases) {
    Run(Sql("UPDATE Clients SET Status = {}", status));
    checker->Reload();
    EXPECT_EQ(List("grdClients")->Rows().front().hue, hue) << status;
  }
}

TEST_F(CheckerTest, DeletesOnlyAfterAskingAndRecomputes) {
  ClickOn(checker, "cmdDeleteJob");
  ClickOn(checker, "cmdDeletePayment");
  EXPECT_EQ(Told(), "Please select a job to delete.|Please select a payment.");
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect("delete this job?", answer);
    List("grdJobs")->SelectFirst();
    ClickOn(checker, "cmdDeleteJob");
    EXPECT_EQ(Count("Diary"), answer == Answer::Yes ? 1 : 2);
  }
  List("grdPayments2")->SelectFirst();
  List("grdPayments")->SelectFirst();
  EXPECT_FALSE(List("grdPayments2")->SelectedRow()) << "one payment is selected at a time";
  outside.prompter.Expect("delete this payment?", Answer::Yes);
  ClickOn(checker, "cmdDeletePayment");
  EXPECT_EQ(Number(Sql("SELECT Client_ID FROM Payments")), 2);
  EXPECT_EQ(RowText(List("grdClients"), 0).section('|', 3, 3), "$100.00");
}

TEST_F(CheckerTest, RecomputesAllAmountsOnYes) {
  Run(Sql("UPDATE Clients SET Account_Balance = 0"));
  checker->Reload();
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    outside.prompter.Expect("re-calculate and update the Amount owing", answer);
    ClickOn(checker, "cmdRecalculateAmountOwing");
    const bool done = RowText(List("grdClients"), 0).endsWith("$170.00|$170.00");
    EXPECT_EQ(done, answer == Answer::Yes);
  }
  EXPECT_EQ(Told(), "Re-calculation done.");
}

}  // namespace
}  // namespace quillary
