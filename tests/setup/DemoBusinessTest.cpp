#include "data/schema/Schema.h"
#include "diary/DiaryDay.h"
#include "roll/ScheduleEngine.h"
#include "setup/demo/DemoBusiness.h"
#include "support/BusinessTest.h"

#include <QElapsedTimer>

#include <map>
#include <stdexcept>

namespace quillary::setup {
namespace {

class DemoTest : public BusinessTest {
 protected:
  DemoCount Write(const DemoOptions& options = {}) {
    const DemoCount count = WriteDemoBusiness(business(), options);
    business().values.daysToAdvanceSchedule = 60;
    business().values.gstPercentage = 0.1F;
    return count;
  }

  /// Every row of every table, as text.
  QStringList AllRows() {
    QStringList rows;
    for (const QString& table : BusinessTables()) {
      for (const Record record : business().RunSQL(QStringLiteral("SELECT * FROM %1").arg(table))) {
        QStringList fields{table};
        for (size_t field = 0; field < record.Size(); ++field) {
          const auto moment = record[field].ToDateTime();
          fields += moment ? ToIsoText(*moment) : record[field].ToText(QStringLiteral("-"));
        }
        rows += fields.join(u'|');
      }
    }
    return rows;
  }
  qint64 Number(const char* statement) {
    return business().RunSQL(QString(statement)).Field(size_t{0}).ToLong();
  }
};

struct Oddity {
  const char* fault;
  const char* statement;  // counts the rows that are wrong
};

const Oddity kOddities[] = {
    {"entry's price is not the sum of its lines",
     "SELECT COUNT(*) FROM Diary WHERE Status <> 'V' AND Status <> 'VD' AND Status <> 'VC' AND "
     "Total_Price <> (SELECT SUM(Price) FROM Diary_Services WHERE Diary_Services.Diary_ID = "
     "Diary.Diary_ID)"},
    {"entry's tax is not the sum of its lines",
     "SELECT COUNT(*) FROM Diary WHERE Status IN ('J', 'JD', 'JI', 'JC') AND "
     "Total_GST <> (SELECT SUM(GST) FROM Diary_Services WHERE Diary_Services.Diary_ID = "
     "Diary.Diary_ID)"},
    {"invoiced without invoice, or the reverse",
     "SELECT COUNT(*) FROM Diary WHERE (Status = 'JI') <> (Invoice_ID IS NOT NULL)"},
    {"invoice's total is not that of its jobs",
     "SELECT COUNT(*) FROM Invoices WHERE Total_Amount <> (SELECT SUM(Total_Price) FROM Diary "
     "WHERE Diary.Invoice_ID = Invoices.Invoice_ID)"},
    {"job on the invoice or payment of a stranger",
     "SELECT COUNT(*) FROM (Diary INNER JOIN Clients ON Diary.Client_ID = Clients.Client_ID) "
     "INNER JOIN Payments ON Diary.Payment_ID = Payments.Payment_ID "
     "WHERE Clients.Billing_Client_ID <> Payments.Client_ID"},
    {"payment is not what its jobs cost",
     "SELECT COUNT(*) FROM Payments WHERE Amount <> (SELECT SUM(Total_Price) FROM Diary "
     "WHERE Diary.Payment_ID = Payments.Payment_ID)"},
    {"revenue lines do not make up their payment",
     "SELECT COUNT(*) FROM Payments WHERE Amount <> (SELECT SUM(GL_Amount) FROM "
     "General_Ledger_Entries WHERE General_Ledger_Entries.Payment_ID = Payments.Payment_ID)"},
    {"paid mark without payment",
     "SELECT COUNT(*) FROM Diary INNER JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID "
     "WHERE Invoices.IsPaid <> (Diary.Payment_ID IS NOT NULL)"},
    {"something happened in the future",
     "SELECT COUNT(*) FROM Payments WHERE Payment_Date > #2026/11/2#"},
    {"work in the future before any roll",
     "SELECT COUNT(*) FROM Diary WHERE Schedule_Date > #2026/11/2#"},
    {"open job in the past",
     "SELECT COUNT(*) FROM Diary WHERE Status = 'J' AND Schedule_Date < #2026/11/2#"},
    {"a telephone number somebody may have",
     "SELECT COUNT(*) FROM Clients WHERE Left(Phone_1, 8) <> '0412 555' OR "
     "(Phone_2 IS NOT NULL AND Left(Phone_2, 7) <> '03 9555')"},
    {"an address that somebody may have",
     "SELECT COUNT(*) FROM Clients WHERE Email IS NOT NULL AND Right(Email, 12) <> '@example.com'"},
    {"client billed to a client that is not billed",
     "SELECT COUNT(*) FROM Clients INNER JOIN Clients AS Payer "
     "ON Clients.Billing_Client_ID = Payer.Client_ID WHERE Payer.Is_Billed_To = False"},
    {"debtor without a date, or the reverse",
     "SELECT COUNT(*) FROM Clients WHERE (Account_Balance < 0) <> (Debtor_Since IS NOT NULL)"},
};

TEST_F(DemoTest, BooksAddUp) {
  Write();
  for (const Oddity& oddity : kOddities) EXPECT_EQ(Number(oddity.statement), 0) << oddity.fault;
  EXPECT_EQ(Number("SELECT Invoice_Number FROM infSystem"),
            Number("SELECT MAX(CLng(Invoice_Number)) FROM Invoices"));
  for (const Record entry : business().RunSQL(QStringLiteral("SELECT Schedule_Date FROM Diary"))) {
    ASSERT_LT(entry[u"Schedule_Date"].ToDate().dayOfWeek(), 6) << "work on a weekend";
  }
}

TEST_F(DemoTest, BalancesArePaymentsLessDoneJobsOfTheGroup) {
  Write();
  std::map<qint64, Money> expected;
  for (const Record row : business().RunSQL(
           QStringLiteral("SELECT Billing_Client_ID, SUM(Total_Price) AS Jobs FROM Diary INNER "
                          "JOIN Clients ON Diary.Client_ID = Clients.Client_ID WHERE "
                          "Diary.Status IN ('JD', 'JI') GROUP BY Billing_Client_ID"))) {
    expected[row[u"Billing_Client_ID"].ToLong()] -= row[u"Jobs"].ToMoney();
  }
  for (const Record row : business().RunSQL(QStringLiteral(
           "SELECT Client_ID, SUM(Amount) AS Paid FROM Payments GROUP BY Client_ID"))) {
    expected[row[u"Client_ID"].ToLong()] += row[u"Paid"].ToMoney();
  }
  int groups = 0;
  for (const Record row : business().RunSQL(QStringLiteral("SELECT * FROM Clients"))) {
    const qint64 client = row[u"Client_ID"].ToLong();
    EXPECT_EQ(row[u"Account_Balance"].ToMoney().ToText(), expected[client].ToText()) << client;
    groups += row[u"Billing_Client_ID"].ToLong() != client;
  }
  EXPECT_GT(groups, 10) << "several sites are billed at one address";
}

TEST_F(DemoTest, HoldsEveryKindOfRecord) {
  Write();
  EXPECT_EQ(Number("SELECT COUNT(*) FROM (SELECT DISTINCT Status FROM Clients) AS Found"), 7);
  EXPECT_EQ(Number("SELECT COUNT(*) FROM (SELECT DISTINCT Payment_Method FROM Payments) AS Found"),
            6);
  EXPECT_GT(Number("SELECT COUNT(*) FROM Clients WHERE Status = 'Active'"), 170);
  EXPECT_GT(Number("SELECT COUNT(*) FROM Clients WHERE Account_Balance < 0"), 10);
  EXPECT_GT(Number("SELECT COUNT(*) FROM Clients WHERE Account_Balance > 0"), 0);
  EXPECT_GT(Number("SELECT COUNT(*) FROM Client_Services WHERE Status = 'Casual'"), 5);
  EXPECT_GT(Number("SELECT COUNT(*) FROM Client_Services "
                   "WHERE Other_Schedule_Client_Service_ID > 0"),
            10);
  EXPECT_GT(Number("SELECT COUNT(*) FROM Clients WHERE Surname = 'O''Brien'"), 2);
  EXPECT_EQ(Number("SELECT COUNT(*) FROM Purchases WHERE Capital = True"), 1);
}

TEST_F(DemoTest, TodayIsAliveBeforeAndAfterTheFirstRoll) {
  Write();
  const diary::DiaryQuery today{.days = DateRange::Of(business().Today())};
  const diary::DiaryList before = diary::LoadDiary(business(), today);
  EXPECT_GT(roll::AdvanceScheduleGlobally(business()).entriesMade, 300);
  const diary::DiaryList after = diary::LoadDiary(business(), today);
  ASSERT_EQ(before.rows.size(), 13U);
  ASSERT_EQ(after.rows.size(), 13U);
  std::map<QString, int> statuses;
  int paid = 0;
  for (size_t place = 0; place < 13; ++place) {
    EXPECT_EQ(after.rows[place].sequence, static_cast<int>(place) + 1);
    EXPECT_EQ(after.rows[place].entry, before.rows[place].entry);
    ++statuses[after.rows[place].status.Text()];
    paid += after.rows[place].payment.has_value();
  }
  EXPECT_EQ(statuses,
            (std::map<QString, int>{{"J", 8}, {"JC", 1}, {"JD", 2}, {"JI", 1}, {"V", 1}}));
  EXPECT_EQ(paid, 1);
  EXPECT_TRUE(after.someHaveNoEmployee);
  EXPECT_GT(Number("SELECT COUNT(*) FROM Diary WHERE Status = 'Q'"), 5);
}

TEST_F(DemoTest, SameSeedGivesTheSameBusiness) {
  const auto written = [&](quint32 seed) {
    const Transaction undone(business());
    Write({.clients = 40, .months = 3, .seed = seed});
    return AllRows();
  };
  const QStringList first = written(7);
  EXPECT_EQ(written(7), first);
  EXPECT_NE(written(8), first);
}

TEST_F(DemoTest, OddSizesAndDaysAreTaken) {
  struct Size {
    int clients;
    int months;
    QDate today;
  };
  for (const Size& size :
       {Size{0, 12, {2026, 11, 2}}, Size{1, 12, {2026, 11, 2}}, Size{25, 0, {2026, 11, 2}},
        Size{30, 2, {2026, 11, 7}}, Size{30, 2, {2026, 12, 25}}, Size{30, 2, {2028, 2, 29}}}) {
    SCOPED_TRACE(::testing::Message()
                 << size.clients << ' ' << ToIsoText(size.today).toStdString());
    const Transaction undone(business());
    outside.clock.now.date = size.today;
    EXPECT_EQ(Write({.clients = size.clients, .months = size.months}).clients, size.clients);
    EXPECT_EQ(Count("Clients"), size.clients);
    roll::AdvanceScheduleGlobally(business());
    EXPECT_TRUE(outside.prompter.TakeTold().isEmpty());
  }
}

TEST_F(DemoTest, RefusesABusinessWithClients) {
  Run(Sql("INSERT INTO Clients (Status) VALUES ('Active')"));
  EXPECT_THROW(Write(), std::invalid_argument);
  EXPECT_EQ(Count("Employees"), 0);
}

}  // namespace
}  // namespace quillary::setup
