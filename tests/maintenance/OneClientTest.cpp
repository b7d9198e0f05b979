#include "balances/ClientBalance.h"
#include "clients/DeleteClient.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "maintenance/CheckBusiness.h"
#include "maintenance/backups/Backups.h"
#include "maintenance/oneclient/BringBack.h"
#include "support/BusinessTest.h"
#include "support/Contents.h"

#include <QFile>

namespace quillary::maintenance {
namespace {

/// A client with a bit of everything, a backup of it, and what happened since.
class OneClientTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    business().values.daysToAdvanceSchedule = 30;
    business().values.gstPercentage = 0.1F;
    Build().Add<Service>({{"Service", "Mowing"}, {"Service_Code", "LM"}});
    client_ = AddClient("Abbott");
    other_ = AddClient("Baker");
    AddMoneyOf(client_);
    AddMoneyOf(other_);
    Run(Sql("UPDATE infSystem SET Invoice_Number = 102"));
    for (const Id<Client> client : {client_, other_, client_, other_})
      balances::RecalculateClientBalance(business(), client);  // a debtor of before has a date
    backup_ = folder.filePath("Mine.mdb");
    BackupDatabaseTo(business(), "before", backup_);
  }

  Id<Client> AddClient(const char* name) {
    const auto client = Build().Add<Client>({{"Display_Name", name},
                                             {"Status", "Active"},
                                             {"Notes", "The gate sticks"},
                                             {"Phone_1", "555"}});
    Run(Sql("UPDATE Clients SET Billing_Client_ID = Client_ID WHERE Client_ID = {}", client));
    Build().Add<ClientService>({{"Client_ID", client},
                                {"Service_ID", 1},
                                {"Employee_ID", 1},
                                {"Status", "Regular"},
                                {"Price", 55},
                                {"Frequency", 14},
                                {"Next_Visit", QDate(2026, 11, 9)}});
    return client;
  }
  /// Two done jobs, the first invoiced and paid for.
  void AddMoneyOf(Id<Client> client) {
    const qint64 number = 100 + client.Number();
    const auto invoice = Build().Add<Invoice>(
        {{"Client_ID", client}, {"Invoice_Number", QString::number(number)}, {"Total_Amount", 55}});
    Run(
        Sql("INSERT INTO Invoice_Items (Invoice_ID, Item_Description, Item_Amount) "
            "VALUES ({}, 'Mowing', 55)",
            invoice));
    const auto payment = Build().Add<Payment>({{"Client_ID", client},
                                               {"Amount", 55},
                                               {"Payment_Method", "CASH"},
                                               {"Payment_Date", QDate(2026, 10, 20)}});
    Build().Add<LedgerEntry>({{"Payment_ID", payment}, {"GL_Amount", 55}});
    for (int job = 0; job < 2; ++job) {
      const auto entry = Build().Add<Entry>({{"Client_ID", client},
                                             {"Status", job == 0 ? "JI" : "JD"},
                                             {"Schedule_Date", QDate(2026, 10, 5 + 14 * job)},
                                             {"Total_Price", 55},
                                             {"Invoice_ID", job == 0 ? Value(invoice) : Value()},
                                             {"Payment_ID", job == 0 ? Value(payment) : Value()}});
      Build().Add<EntryLine>({{"Diary_ID", entry}, {"Service_ID", 1}, {"Price", 55}});
    }
  }

  void DeleteClient() {
    outside.prompter.Expect("Are you really sure", Answer::Yes);
    ASSERT_TRUE(clients::DeleteClientAfterAsking(business(), outside.prompter, client_));
  }
  std::unique_ptr<ClientComparison> Compare() {
    const OpenedBackup opened(outside.Ports(), backup_);
    return std::make_unique<ClientComparison>(business(), opened, client_);
  }
  /// "Missing: Payment of 20 Oct 2026", a line each.
  QStringList Listed() {
    static const char* const kSince[] = {"Missing: ", "Changed: ", "New: "};
    QStringList lines;
    const auto comparison = Compare();
    for (const ClientDifference& difference : comparison->Differences())
      lines += QLatin1StringView(kSince[static_cast<int>(difference.since)]) + difference.what;
    return lines;
  }
  BroughtBack BringBackAll() {
    const auto comparison = Compare();
    return BringBack(business(), *comparison, comparison->AllThatCanComeBack());
  }
  size_t PlaceOf(const ClientComparison& comparison, const QString& what) {
    for (size_t at = 0; at < comparison.Differences().size(); ++at)
      if (comparison.Differences()[at].what == what) return at;
    ADD_FAILURE() << what.toStdString() << " is not listed";
    return 0;
  }
  void ExpectInOrder() {
    business().CloseConnection();
    for (const Finding& finding : CheckBusiness(outside.Ports(), business().DatabaseFile()))
      EXPECT_TRUE(finding.isNote) << finding.table.toStdString() << ": "
                                  << finding.what.toStdString();
  }
  Contents WithoutOpenDiary() {
    Run(
        Sql("DELETE FROM Diary_Services WHERE Diary_ID IN "
            "(SELECT Diary_ID FROM Diary WHERE Status = 'J')"));
    Run(Sql("DELETE FROM Diary WHERE Status = 'J'"));
    Contents contents = ContentsOf(business());
    contents.rows["Invoice_Items"].clear();  // known by no number of their own
    return contents;
  }

  Id<Client> client_{1};
  Id<Client> other_{2};
  QString backup_;
};

TEST_F(OneClientTest, WhatIsAsItWasIsNotListed) {
  EXPECT_EQ(Listed(), QStringList());
  // What the roll and the balances move by themselves is no difference.
  Run(Sql("UPDATE Client_Services SET Next_Visit = #2026/12/07#"));
  Run(Sql("UPDATE Clients SET Debtor_Since = #2026/10/31#"));
  Run(Sql("INSERT INTO Diary (Client_ID, Status, Schedule_Date) VALUES ({}, 'J', #2026/11/09#)",
          client_));
  EXPECT_EQ(Listed(), QStringList());
}

TEST_F(OneClientTest, ADeletedClientComesBackAsItWasUnderItsNumber) {
  const Contents before = WithoutOpenDiary();
  DeleteClient();
  EXPECT_EQ(Listed(), (QStringList{"Missing: The client", "Missing: Service Mowing",
                                   "Missing: Invoice 101", "Missing: Payment of 20 Oct 2026",
                                   "Missing: Job of 5 Oct 2026", "Missing: Job of 19 Oct 2026"}));
  const BroughtBack back = BringBackAll();
  EXPECT_EQ(back.words,
            "Brought back for Abbott: 1 detail, 1 service, 2 jobs, 1 invoice, 1 payment");
  EXPECT_EQ(back.told, QStringList());
  EXPECT_GT(Run(Sql("SELECT Diary_ID FROM Diary WHERE Client_ID = {} AND Status = 'J'", client_))
                .RowCount(),
            0)
      << "its diary is filled again";
  EXPECT_EQ(Listed(), QStringList());
  ExpectInOrder();
  EXPECT_EQ(Difference(before, WithoutOpenDiary()), "");
}

TEST_F(OneClientTest, EachRowComesBackAlone) {
  const struct {
    const char* fault;
    const char* since;
    QStringList listed;
  } cases[] = {
      {"a note that was written over",
       "UPDATE Clients SET Notes = 'x' WHERE Client_ID = 1",
       {"Changed: Notes"}},
      {"a price of a service",
       "UPDATE Client_Services SET Price = 1 WHERE Client_ID = 1",
       {"Changed: Service Mowing"}},
      {"a job marked cancelled",
       "UPDATE Diary SET Status = 'JC' WHERE Diary_ID = 2",
       {"Changed: Job of 19 Oct 2026"}},
      {"a line of a job",
       "UPDATE Diary_Services SET Price = 1 WHERE Diary_ID = 2",
       {"Changed: Job of 19 Oct 2026"}},
      {"a deleted line",
       "DELETE FROM Diary_Services WHERE Diary_ID = 2",
       {"Changed: Job of 19 Oct 2026"}},
      {"the booking of a payment",
       "UPDATE General_Ledger_Entries SET GL_Amount = 1 WHERE Payment_ID = 1",
       {"Changed: Payment of 20 Oct 2026"}},
  };
  const Contents before = WithoutOpenDiary();
  for (const auto& c : cases) {
    Run(Sql(c.since));
    EXPECT_EQ(Listed(), c.listed) << c.fault;
    BringBackAll();
    EXPECT_EQ(Difference(before, WithoutOpenDiary()), "") << c.fault;
  }
}

TEST_F(OneClientTest, LinesThatWereLeftBehindAreNotDoubled) {
  Run(Sql("DELETE FROM Payments WHERE Payment_ID = 1"));  // as a foreign tool would
  BringBackAll();
  EXPECT_EQ(Run(Sql("SELECT Sum(GL_Amount) FROM General_Ledger_Entries WHERE Payment_ID = 1"))
                .Field(size_t{0}),
            Value(Money::FromWhole(55)));
  EXPECT_EQ(Listed(), QStringList());
}

TEST_F(OneClientTest, WhatCameSinceIsShownAndStays) {
  Run(Sql("INSERT INTO Payments (Client_ID, Amount, Payment_Date) VALUES ({}, 7, #2026/11/01#)",
          client_));
  ASSERT_EQ(Listed(), QStringList{"New: Payment of 1 Nov 2026"});
  const auto comparison = Compare();
  EXPECT_EQ(comparison->AllThatCanComeBack().size(), 0u);
  EXPECT_FALSE(BringBackAfterAsking(business(), outside.prompter, *comparison, {0}));
  EXPECT_EQ(outside.prompter.TakeTold(),
            QStringList{"The backup has nothing to bring back of what is ticked."});
  EXPECT_EQ(Count("Payments"), 3);
}

TEST_F(OneClientTest, WhatAJobPointsAtIsNeverMadeUp) {
  DeleteClient();
  const auto comparison = Compare();
  const size_t job = PlaceOf(*comparison, "Job of 5 Oct 2026");
  EXPECT_EQ(comparison->Differences()[job].remark,
            "Its invoice is gone: comes back as done and not invoiced, unless that is ticked too. "
            "Its payment is gone: comes back as unpaid, unless that is ticked too.");
  const BroughtBack back = BringBack(business(), *comparison, {job});
  EXPECT_EQ(back.words, "Brought back for Abbott: 1 detail, 1 job") << "the client comes with it";
  EXPECT_EQ(back.told, (QStringList{"Its invoice is gone: comes back as done and not invoiced.",
                                    "Its payment is gone: comes back as unpaid."}));
  const Recordset stored =
      Run(Sql("SELECT Status, Invoice_ID, Payment_ID FROM Diary WHERE Diary_ID = 1"));
  const Record row = stored.Row(0);
  EXPECT_EQ(row[u"Status"].ToText(), "JD");
  EXPECT_TRUE(row[u"Invoice_ID"].IsNull());
  EXPECT_TRUE(row[u"Payment_ID"].IsNull());
  EXPECT_EQ(business().FirstField(Sql("SELECT Account_Balance FROM Clients WHERE Client_ID = 1")),
            Value(Money::FromWhole(-55)));
  ExpectInOrder();
  BringBackAll();
  EXPECT_EQ(Run(Sql("SELECT Payment_ID FROM Diary WHERE Diary_ID = 1")).Field(size_t{0}).ToLong(),
            1);
  ExpectInOrder();
}

TEST_F(OneClientTest, ANumberThatAnotherRowHasIsNotTakenFromIt) {
  DeleteClient();
  // As after going back to an older file, whose numbers were handed out again.
  // The dialect changes no counter.
  for (const char* statement :
       {"UPDATE Diary SET Diary_ID = 1 WHERE Diary_ID = 3",
        "UPDATE Diary_Services SET Diary_ID = 1 WHERE Diary_ID = 3",
        "UPDATE Payments SET Payment_ID = 1 WHERE Payment_ID = 2",
        "UPDATE General_Ledger_Entries SET Payment_ID = 1 WHERE Payment_ID = 2",
        "UPDATE Diary SET Payment_ID = 1 WHERE Payment_ID = 2"})
    Execute(business().StoreConnection().Handle(), statement);
  BringBackAll();
  const Recordset stored =
      Run(Sql("SELECT Diary_ID, Payment_ID FROM Diary WHERE Client_ID = {} AND "
              "Schedule_Date = #2026/10/05#",
              client_));
  const Record back = stored.Row(0);
  EXPECT_NE(back[u"Diary_ID"].ToLong(), 1);
  EXPECT_EQ(
      Run(Sql("SELECT Client_ID FROM Payments WHERE Payment_ID = {}", back[u"Payment_ID"].ToLong()))
          .Field(size_t{0}),
      Value(client_));
  EXPECT_EQ(Run(Sql("SELECT Client_ID FROM Diary WHERE Diary_ID = 1")).Field(size_t{0}),
            Value(other_));
  EXPECT_EQ(Listed(), QStringList()) << "nor does it come back twice";
  ExpectInOrder();
}

TEST_F(OneClientTest, TheNumberOfAnInvoiceIsNeitherHandedOutAgainNorTakenTwice) {
  DeleteClient();
  Run(Sql("UPDATE infSystem SET Invoice_Number = 5"));
  BringBackAll();
  EXPECT_EQ(Run(Sql("SELECT Invoice_Number FROM infSystem")).Field(size_t{0}).ToLong(), 101);
  DeleteClient();
  Run(Sql("UPDATE Invoices SET Invoice_Number = '101'"));
  const auto comparison = Compare();
  const ClientDifference& invoice = comparison->Differences()[PlaceOf(*comparison, "Invoice 101")];
  EXPECT_FALSE(invoice.canComeBack);
  EXPECT_EQ(invoice.remark, "Another invoice has its number now: stays in the backup.");
}

TEST_F(OneClientTest, ComingBackIsTakenBackWhole) {
  DeleteClient();
  const Contents deleted = ContentsOf(business());
  {
    const CommandScope command(business(), "bring back");
    BringBackAll();
  }
  EXPECT_EQ(business().PastCommands().ToUndo().value(0),
            "Brought back for Abbott: 1 detail, 1 service, 2 jobs, 1 invoice, 1 payment");
  EXPECT_FALSE(business().PastCommands().Undo());
  EXPECT_EQ(Difference(deleted, ContentsOf(business())), "");
}

TEST_F(OneClientTest, WhatWasChangedIsLostOnlyAfterAQuestion) {
  Run(Sql("UPDATE Clients SET Phone_1 = '777' WHERE Client_ID = 1"));
  const auto comparison = Compare();
  EXPECT_EQ(comparison->Differences()[0].then, "555");
  EXPECT_EQ(comparison->Differences()[0].now, "777");
  outside.prompter.Expect("1 row of what you ticked was changed", Answer::No);
  EXPECT_FALSE(BringBackAfterAsking(business(), outside.prompter, *comparison, {0}));
  outside.prompter.Expect("1 row of what you ticked was changed", Answer::Yes);
  EXPECT_TRUE(BringBackAfterAsking(business(), outside.prompter, *comparison, {0}));
  EXPECT_EQ(outside.prompter.TakeTold(), QStringList{"Brought back for Abbott: 1 detail."});
  EXPECT_EQ(Listed(), QStringList());
}

TEST_F(OneClientTest, TheBackupIsOnlyReadWhateverItsVersion) {
  {
    Business older(outside.Ports(), backup_);
    older.RunSQL(Sql("ALTER TABLE infOptions DROP COLUMN CompactDatabaseBeforeUpload"));
    older.RunSQL(Sql("UPDATE infSystem SET Database_Version = 55"));
    older.CloseConnection();
  }
  const auto bytes = [this] {
    QFile file(backup_);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  };
  const QByteArray before = bytes();
  ASSERT_FALSE(CheckComparable(business(), backup_));
  DeleteClient();
  BringBackAll();
  EXPECT_EQ(Listed(), QStringList());
  EXPECT_EQ(bytes(), before);
  {
    Business newer(outside.Ports(), backup_);
    newer.ConnectToDatabase();
    newer.RunSQL(Sql("UPDATE infSystem SET Database_Version = {}", kSchemaVersion + 1));
    newer.CloseConnection();
  }
  EXPECT_TRUE(CheckComparable(business(), backup_)->message.contains("newer version"));
}

}  // namespace
}  // namespace quillary::maintenance
