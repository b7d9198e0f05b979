#include "billing/payments/JobsAndPaymentChecker.h"
#include "diary/DiaryCommands.h"
#include "support/BusinessTest.h"

namespace quillary::billing {
namespace {

/// Payer 1 pays for itself and for site 3, address 2 for itself.
class CheckerTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    AddClient("Payer", "Active", 1);
    AddClient("Address", "Billing address", 2);
    AddClient("Site", "Active", 1);
    AddJob(1, "JD", 10.005, "2026-10-01");
    AddJob(1, "JI", 10.005, "2026-10-08", 1);
    AddJob(3, "JU", 5);
    AddJob(3, "J", 99);
    Pay(1, 20);
    Pay(3, 7);
    Run(Sql("INSERT INTO General_Ledger_Accounts (GL_Account_Name) VALUES ('Mowing')"));
    for (int entry = 0; entry < 2; ++entry) {
      Run(Sql("INSERT INTO General_Ledger_Entries (Payment_ID, GL_Account_ID) VALUES (1, 1)"));
    }
  }

  void AddClient(const char* name, const char* status, int payer) {
    Build().Add<Client>({{"Display_Name", name},
                         {"Status", status},
                         {"Billing_Client_ID", payer},
                         {"Is_Billed_To", true}});
  }
  void AddJob(int client, const char* status, const Value& price, const char* day = "2026-10-01",
              const Value& payment = {}) {
    Build().Add<Entry>({{"Client_ID", client},
                        {"Status", status},
                        {"Total_Price", price},
                        {"Schedule_Date", QDate::fromString(day, Qt::ISODate)},
                        {"Payment_ID", payment}});
  }
  void Pay(int client, const Value& amount) {
    Run(Sql("INSERT INTO Payments (Client_ID, Amount) VALUES ({}, {})", client, amount));
  }
  /// "payer address site" as plain digits.
  QString Balances() {
    QStringList balances;
    for (const Record row : Run(Sql("SELECT Account_Balance FROM Clients ORDER BY Client_ID")))
      balances += row[u"Account_Balance"].ToText(QStringLiteral("-"));
    return balances.join(u' ');
  }
};

TEST_F(CheckerTest, ShowsWhatABalanceIsMadeOf) {
  const std::vector<CheckedClient> clients = ListCheckedClients(business());
  ASSERT_EQ(clients.size(), 3u);
  EXPECT_EQ(clients[1].billedClient, " (same as client) ");
  EXPECT_EQ(clients[2].billedClient, "Payer");

  Run(Sql("UPDATE Clients SET Display_Name = 'Same', Account_Balance = -7 * Client_ID"));
  Run(Sql("UPDATE Clients SET Surname = 'B', First_Name = 'B' WHERE Client_ID = 1"));
  Run(Sql("UPDATE Clients SET Surname = 'B', First_Name = 'A' WHERE Client_ID = 2"));
  Run(Sql("UPDATE Clients SET Surname = 'A', First_Name = 'Z' WHERE Client_ID = 3"));
  QStringList owing;
  for (const CheckedClient& client : ListCheckedClients(business()))
    owing += QStringLiteral("%1 %2 %3")
                 .arg(client.client.Number())
                 .arg(client.amountOwing.ToText(), client.billedClientOwes.ToText());
  EXPECT_EQ(owing.join(u','), "3 21 7,2 14 14,1 7 7") << "by surname and first name in the end";

  const CheckedJobs jobs = ListCheckedJobs(business(), Id<Client>(1));
  QStringList shown;
  for (const CheckedJob& job : jobs.rows) {
    shown += QStringLiteral("%1 %2%3")
                 .arg(job.entry.Number())
                 .arg(job.StatusWords(), job.isPaid ? QStringLiteral(" paid") : QString());
  }
  EXPECT_EQ(shown.join(u','), "2 Job INVOICED paid,1 Job DONE,3 Job DONE");
  EXPECT_EQ(jobs.total.ToText(), "25") << "10.005 and 10.005 round at each step: 10, 20";
  EXPECT_EQ(ListCheckedJobs(business(), Id<Client>(3)).rows.size(), 1u)
      << "a site has its own jobs";

  const CheckedPayments own = ListPaymentsOfClient(business(), Id<Client>(1));
  const CheckedPayments attached = ListPaymentsOfAttachedClients(business(), Id<Client>(1));
  ASSERT_EQ(own.rows.size(), 1u);
  ASSERT_EQ(attached.rows.size(), 1u);
  EXPECT_EQ(own.rows[0].accounts, "Mowing");
  EXPECT_EQ(attached.rows[0].accounts, "(None)");
  EXPECT_EQ(attached.total.ToText(), "7");
}

TEST_F(CheckerTest, DeletingRecomputesWhatIsLeft) {
  Run(Sql("INSERT INTO Diary_Services (Diary_ID) VALUES (1)"));
  diary::DeleteEntry(business(), Id<Entry>(1));
  EXPECT_EQ(Count("Diary_Services"), 0);
  EXPECT_EQ(Balances(), "5 - -");
  RemovePayment(business(), Id<Client>(1), Id<Payment>(1));
  EXPECT_EQ(Balances(), "-15 - -");
  EXPECT_EQ(Count("General_Ledger_Entries"), 0);
  EXPECT_EQ(Run(Sql("SELECT * FROM Diary WHERE Payment_ID = 1")).RowCount(), 0u);

  Run(Sql("UPDATE Diary SET Payment_ID = 9"));
  EXPECT_THROW(RemovePayment(business(), Id<Client>(1), Id<Payment>(9)), WriteFailed);
  EXPECT_EQ(Run(Sql("SELECT * FROM Diary WHERE Payment_ID = 9")).RowCount(), 3u)
      << "a payment that has gone lets its jobs go";
}

}  // namespace
}  // namespace quillary::billing
