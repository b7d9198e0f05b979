#include "balances/Debtors.h"
#include "support/BusinessTest.h"
#include "today/Attention.h"
#include "today/Figures.h"

namespace quillary::today {
namespace {

using balances::DebtAge;

QDate On(const char* iso) {
  return QDate::fromString(QString(iso), Qt::ISODate);
}

/// On Monday 2 November 2026, over the clients of a case.
class FiguresTest : public BusinessTest {
 protected:
  /// The columns with those of `more` in their place.
  static Columns With(Columns columns, const Columns& more) {
    for (const auto& [name, value] : more) {
      std::erase_if(columns, [&](const auto& one) { return QString(one.first) == name; });
      columns.emplace_back(name, value);
    }
    return columns;
  }
  Id<Client> AddClient(const Columns& more = {}) {
    const Columns columns =
        With({{"Display_Name", "Able"}, {"Status", "Active"}, {"Is_Billed_To", true}}, more);
    const Id<Client> client = Build().Add<Client>(columns);
    Run(
        Sql("UPDATE Clients SET Billing_Client_ID = Client_ID WHERE Client_ID = {} "
            "AND Billing_Client_ID IS NULL",
            client));
    return client;
  }
  Id<Entry> AddJob(Id<Client> client, const char* day, const char* status, const Value& price,
                   const Columns& more = {}) {
    return Build().Add<Entry>(With({{"Client_ID", client},
                                    {"Schedule_Date", On(day)},
                                    {"Status", status},
                                    {"Total_Price", price},
                                    {"Employee_ID", 1}},
                                   more));
  }
  void AddPayment(const char* day, const Value& amount, const char* method = "CASH") {
    Run(Sql("INSERT INTO Payments (Payment_Date, Amount, Payment_Method) VALUES ({}, {}, {})",
            On(day), amount, method));
  }
  Id<Invoice> AddInvoice(Id<Client> client, const char* day, const Value& total,
                         bool isPaid = false, const char* type = "With Job") {
    return Build().Add<Invoice>({{"Client_ID", client},
                                 {"Generation_Date", On(day)},
                                 {"Total_Amount", total},
                                 {"Statement_Type", type},
                                 {"IsPaid", isPaid}});
  }
};

TEST_F(FiguresTest, OfAnEmptyBusinessAreNothing) {
  EXPECT_EQ(LoadJobsFigures(business(), DateRange::Of(business().Today())).jobs, 0);
  EXPECT_EQ(LoadOwed(business()).total, Money());
  EXPECT_FALSE(LoadOwed(business()).since);
  const YearFigures year = LoadYear(business());
  ASSERT_EQ(year.months.size(), 13U);
  EXPECT_EQ(year.months.front().month.from, On("2025-11-01"));
  EXPECT_EQ(year.ThisMonth().month.to, On("2026-11-30"));
  EXPECT_FALSE(year.Growth());
  const AttentionFigures attention = LoadAttention(business(), {.archive = folder.path()});
  EXPECT_EQ(attention.dueForInvoice.count + attention.overdue.count, 0);
  EXPECT_EQ(CountClientsWithSchedulingProblem(business()), 0);
}

TEST_F(FiguresTest, OfADayCountWhatTheDiaryCounts) {
  const auto client = AddClient();
  const auto left = AddClient({{"Status", "Cancelled"}});
  AddJob(client, "2026-11-02", "J", 10, {{"Employee_ID", Value()}});
  AddJob(client, "2026-11-02", "JD", 20, {{"Employee_ID", 0}});
  AddJob(client, "2026-11-02", "JD", 40, {{"Invoice_ID", 7}});
  AddJob(client, "2026-11-02", "JI", 80);
  AddJob(client, "2026-11-02", "JU", 160);
  for (const char* other : {"JC", "V", "VD", "Q"}) AddJob(client, "2026-11-02", other, 1000);
  AddJob(left, "2026-11-02", "J", 1000);
  AddJob(client, "2026-11-01", "JD", 1000);
  AddJob(client, "2026-11-03", "J", 1000);
  const JobsFigures day = LoadJobsFigures(business(), DateRange::Of(On("2026-11-02")));
  EXPECT_EQ(day.jobs, 5);
  EXPECT_EQ(day.amount, Money::FromWhole(310));
  EXPECT_EQ(day.open, 1);
  EXPECT_EQ(day.done, 2);
  EXPECT_EQ(day.invoiced, 2);
  EXPECT_EQ(day.withoutEmployee, 2);
  AddJob(left, "2026-11-01", "JD", 5);
  EXPECT_EQ(LoadJobsFigures(business(), {On("2026-11-01"), On("2026-11-03")}).jobs, 8)
      << "what a client had before it left counts";
}

struct Debt {
  const char* fault;
  int balance;
  std::vector<std::pair<const char*, int>> jobs;
  std::array<int, 4> ages;
};

TEST_F(FiguresTest, DebtsAreAgedByTheirNewestJobs) {
  const Debt debts[] = {
      {"one job on the last day of its age", -50, {{"2026-10-03", 50}}, {50, 0, 0, 0}},
      {"a day older", -50, {{"2026-10-02", 50}}, {0, 50, 0, 0}},
      {"60 days", -50, {{"2026-09-03", 50}}, {0, 50, 0, 0}},
      {"61 days", -50, {{"2026-09-02", 50}}, {0, 0, 50, 0}},
      {"90 days", -50, {{"2026-08-04", 50}}, {0, 0, 50, 0}},
      {"91 days", -50, {{"2026-08-03", 50}}, {0, 0, 0, 50}},
      {"the oldest is paid first", -60, {{"2026-11-01", 50}, {"2026-09-20", 50}}, {50, 10, 0, 0}},
      {"a debt that no job explains", -70, {{"2026-11-01", 50}}, {50, 0, 0, 20}},
      {"done ahead of its day", -50, {{"2026-11-20", 50}}, {50, 0, 0, 0}},
      {"a job of less than nothing", -50, {{"2026-11-01", -30}, {"2026-09-20", 80}}, {0, 50, 0, 0}},
      {"who has paid too much owes nothing", 50, {{"2026-11-01", 50}}, {0, 0, 0, 0}},
  };
  for (const Debt& debt : debts) {
    SCOPED_TRACE(debt.fault);
    Run(Sql("DELETE FROM Diary"));
    Run(Sql("DELETE FROM Clients"));
    const auto client = AddClient({{"Account_Balance", debt.balance}});
    for (const auto& [day, price] : debt.jobs) AddJob(client, day, "JD", price);
    AddJob(client, "2026-11-01", "J", 1000);
    const OwedFigures owed = LoadOwed(business());
    for (size_t age = 0; age < 4; ++age) {
      EXPECT_EQ(owed.ages[age], Money::FromWhole(debt.ages[age])) << age;
      const auto listed =
          balances::ListDebtors(business(), balances::DebtorFilter::All, balances::kDebtAges[age]);
      EXPECT_EQ(listed.size(), debt.ages[age] > 0 ? 1U : 0U) << "the list behind the figure";
      for (const auto& debtor : listed) EXPECT_EQ(debtor.amountOwing, owed.ages[age]);
    }
    EXPECT_EQ(owed.total, Money::FromWhole(std::max(0, -debt.balance)));
  }
}

TEST_F(FiguresTest, DebtsOfSitesAreThePayers) {
  const auto payer = AddClient({{"Account_Balance", -100}, {"Debtor_Since", On("2026-08-01")}});
  const auto site = AddClient({{"Billing_Client_ID", payer}, {"Is_Billed_To", false}});
  AddClient({{"Account_Balance", -5}, {"Debtor_Since", On("2026-09-01")}});
  AddJob(site, "2026-10-30", "JI", 60);
  AddJob(payer, "2026-09-10", "JP", 60);
  const OwedFigures owed = LoadOwed(business());
  EXPECT_EQ(owed.ages[0], Money::FromWhole(60));
  EXPECT_EQ(owed.ages[1], Money::FromWhole(40));
  EXPECT_EQ(owed.ages[3], Money::FromWhole(5));
  EXPECT_EQ(owed.clients, 2);
  EXPECT_EQ(owed.since, On("2026-08-01"));
}

TEST_F(FiguresTest, MonthsHoldTheirOwnDaysAndNoOthers) {
  const auto client = AddClient();
  for (const auto& [day, price] :
       {std::pair("2025-10-31", 1), std::pair("2025-11-01", 2), std::pair("2025-11-02", 4),
        std::pair("2025-11-03", 8), std::pair("2026-10-31", 16), std::pair("2026-11-01", 32),
        std::pair("2026-11-02", 64), std::pair("2026-11-30", 128), std::pair("2026-12-01", 256)}) {
    AddJob(client, day, "JD", price);
    AddJob(client, day, "J", 1000);
    AddInvoice(client, day, price);
    AddPayment(day, price);
  }
  AddInvoice(client, "2026-11-02", 1000, false, "Statement");
  const YearFigures year = LoadYear(business());
  for (const auto sum : {&MonthFigures::done, &MonthFigures::invoiced, &MonthFigures::received}) {
    EXPECT_EQ(year.months[0].*sum, Money::FromWhole(14));
    EXPECT_EQ(year.months[11].*sum, Money::FromWhole(16));
    EXPECT_EQ(year.months[12].*sum, Money::FromWhole(224));
  }
  EXPECT_EQ(year.soFar, Money::FromWhole(96));
  EXPECT_EQ(year.soFarLastYear, Money::FromWhole(6));
  EXPECT_EQ(year.Growth(), 1500);
}

TEST_F(FiguresTest, JobsAreDueForTheirInvoiceByHowTheirPayerIsBilled) {
  struct Case {
    const char* fault;
    const char* type;
    const char* day;
    const char* status;
    Columns more;
    int due;
  };
  const Case cases[] = {
      {"with each job, at once", "With Job", "2026-11-02", "JD", {}, 1},
      {"not before its day", "With Job", "2026-11-03", "JD", {}, 0},
      {"not before it is done", "With Job", "2026-10-30", "J", {}, 0},
      {"not twice", "With Job", "2026-10-30", "JD", {{"Invoice_ID", 4}}, 0},
      {"not what was paid on the day", "With Job", "2026-10-30", "JD", {{"Payment_ID", 4}}, 0},
      {"by the month, once it is over", "Monthly", "2026-10-31", "JU", {}, 1},
      {"by the month, while it lasts", "Monthly", "2026-11-01", "JD", {}, 0},
      {"who gets none", "None", "2026-10-01", "JD", {}, 0},
  };
  for (const Case& one : cases) {
    SCOPED_TRACE(one.fault);
    Run(Sql("DELETE FROM Diary"));
    const auto payer = AddClient({{"Statement_Type", one.type}});
    AddJob(AddClient({{"Billing_Client_ID", payer}, {"Is_Billed_To", false}}), one.day, one.status,
           30, one.more);
    const AttentionFigures attention = LoadAttention(business(), {});
    EXPECT_EQ(attention.dueForInvoice.count, one.due);
    EXPECT_EQ(attention.dueForInvoice.amount, Money::FromWhole(30 * one.due));
    EXPECT_EQ(attention.daysOfDue.to, business().Today());
  }
}

TEST_F(FiguresTest, InvoicesAreOverdueAfterThirtyDaysWhileTheirClientOwes) {
  const auto owes = AddClient({{"Account_Balance", -10}});
  const auto paid = AddClient({{"Account_Balance", 0}});
  const auto late = AddInvoice(owes, "2026-10-02", 30);
  const auto older = AddInvoice(owes, "2026-07-02", 40);
  AddInvoice(owes, "2026-10-03", 1000);
  AddInvoice(owes, "2026-09-01", 1000, true);
  AddInvoice(owes, "2026-09-01", 1000, false, "Statement");
  AddInvoice(paid, "2026-09-01", 1000);
  const AttentionFigures attention = LoadAttention(business(), {});
  EXPECT_EQ(attention.overdueInvoices, (std::vector{late, older}));
  EXPECT_EQ(attention.overdue.amount, Money::FromWhole(70));
  EXPECT_EQ(attention.daysOfOverdue, (DateRange{On("2026-07-02"), On("2026-10-02")}));
}

TEST_F(FiguresTest, TakingsAreCountedByTheWayTheyAreBanked) {
  AddPayment("2026-10-30", 60, "Cash");
  AddPayment("2026-10-30", 5, "CASH");
  AddPayment("2026-10-30", 40, "cheque");
  AddPayment("2026-10-30", 30, "VISA");
  AddPayment("2026-10-30", 1000, "DIRECT DEBIT");
  Run(Sql("INSERT INTO Bankings (Total_Banked) VALUES (9)"));
  AddPayment("2026-10-30", 9, "CASH");
  Run(Sql("UPDATE Payments SET Banking_ID = 1 WHERE Amount = 9"));
  AddPayment("2026-10-30", 7, "CASH");
  Run(Sql("UPDATE Payments SET Banking_ID = 99 WHERE Amount = 7"));
  const AttentionFigures attention = LoadAttention(business(), {});
  EXPECT_EQ(attention.toBank[0].total, Money::FromWhole(72)) << "its deposit has gone";
  EXPECT_EQ(attention.toBank[1].count, 1);
  EXPECT_EQ(attention.toBank[1].total, Money::FromWhole(40));
  EXPECT_EQ(attention.toBank[2].total, Money::FromWhole(30));
}

TEST_F(FiguresTest, AClientWithSeveralMissingVisitsIsOneProblem) {
  const auto client = AddClient();
  const auto inOrder = AddClient();
  business().values.daysToAdvanceSchedule = 10;
  Run(Sql("UPDATE infSystem SET Last_Schedule_Ending = {}", On("2026-11-12")));
  for (const auto& [of, frequency] :
       {std::pair(client, 7), std::pair(client, 5), std::pair(inOrder, 20)})
    Run(
        Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Status, Frequency, Next_Visit) "
            "VALUES ({}, 1, 'Regular', {}, {})",
            of, frequency, On("2026-11-03")));
  AddJob(inOrder, "2026-11-03", "J", 10);
  EXPECT_EQ(CountClientsWithSchedulingProblem(business()), 1);
}

TEST_F(FiguresTest, TheLastBackupIsTheNewestOfWhatTheArchiveAndTheBusinessTell) {
  const auto last = [&](const QString& archive) {
    return LoadAttention(business(), {.archive = archive});
  };
  EXPECT_FALSE(last(folder.path() + "/none").lastBackup);
  EXPECT_TRUE(last(folder.path() + "/none").backupIsOld);
  const QDir archive(folder.path() + "/Archive");
  archive.mkpath(".");
  const auto put = [&](const char* name, const QDateTime& when) {
    QFile file(archive.filePath(QString(name)));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_TRUE(file.setFileTime(when, QFileDevice::FileModificationTime));
  };
  put("Data1Mon.mdb", QDateTime(On("2026-10-26"), QTime(17, 0)));
  put("DATA 2026-11-01 090500.MDB", QDateTime(On("2026-11-01"), QTime(9, 5)));
  EXPECT_EQ(last(archive.path()).lastBackup, DateTime(On("2026-10-26"), QTime(17, 0)))
      << "what was put aside before a restoration is none";
  EXPECT_FALSE(last(archive.path()).backupIsOld) << "a week to the day";
  put("Data1Mon.mdb", QDateTime(On("2026-10-25"), QTime(17, 0)));
  EXPECT_TRUE(last(archive.path()).backupIsOld);
  Run(
      Sql("UPDATE infSystem SET Backup_Description = "
          "'Custom backup done on 1/11/2026 5:42:07 PM.'"));
  EXPECT_EQ(last(archive.path()).lastBackup, DateTime(On("2026-11-01"), QTime(17, 42, 7)));
}

}  // namespace
}  // namespace quillary::today
