#include "maintenance/CheckBusiness.h"
#include "maintenance/DatabaseVersion.h"
#include "setup/demo/DemoBusiness.h"
#include "support/BusinessTest.h"

namespace quillary::maintenance {
namespace {

class CheckTest : public BusinessTest {
 protected:
  void SetUp() override {
    BusinessTest::SetUp();
    setup::WriteDemoBusiness(business(), {.clients = 30, .months = 3, .seed = 5});
  }
  QStringList Found() {
    QStringList found;
    for (const Finding& finding : CheckTables(business())) {
      found += (finding.isNote ? "note " : "wrong ") + finding.table + ' ' + finding.what;
    }
    return found;
  }
};

TEST_F(CheckTest, AnInventedBusinessIsInOrder) {
  EXPECT_EQ(Found(), QStringList());
}

struct Spoilt {
  const char* fault;
  const char* statement;
  const char* finding;
};

TEST_F(CheckTest, EachFaultIsFoundAndNothingElse) {
  const Spoilt cases[] = {
      {"a line whose job is gone", "INSERT INTO Diary_Services (Diary_ID) VALUES (99999)",
       "note Diary_Services Diary_ID points to nothing in Diary, 1 row: "},
      {"a service whose client is gone",
       "INSERT INTO Client_Services (Client_ID, Service_ID) VALUES (99999, 1)",
       "wrong Client_Services Client_ID points to nothing in Clients"},
      {"an entry of an unknown client", "INSERT INTO Diary (Client_ID, Status) VALUES (777, 'V')",
       "wrong Diary Client_ID points to nothing in Clients"},
      {"a job of no client", "INSERT INTO Diary (Status) VALUES ('J')",
       "note Diary a job of no client, 1 row"},
      {"a ledger row of a deleted payment",
       "INSERT INTO General_Ledger_Entries (Payment_ID, GL_Account_ID) VALUES (99999, 1)",
       "wrong General_Ledger_Entries Payment_ID points to nothing in Payments"},
      {"a ledger row of nothing", "INSERT INTO General_Ledger_Entries (GL_Account_ID) VALUES (1)",
       "wrong General_Ledger_Entries an entry of neither"},
      {"an invoice to print that is gone",
       "INSERT INTO lstInvoicesToPrint (Invoice_ID) VALUES (99999)", "note lstInvoicesToPrint"},
      {"what an empty monthly run leaves", "UPDATE Diary SET Invoice_ID = 99999 WHERE Diary_ID = 1",
       "note Diary Invoice_ID"},
      {"a total beside its lines",
       "UPDATE Diary SET Total_Price = Total_Price + 1 WHERE Status = 'J'",
       "wrong Diary Total_Price is not the sum of its lines"},
      {"a stale balance",
       "UPDATE Clients SET Account_Balance = Account_Balance - .01 WHERE Client_ID = 1",
       "note Clients Account_Balance is not what"},
  };
  for (const Spoilt& spoilt : cases) {
    SCOPED_TRACE(spoilt.fault);
    const Transaction undone(business());
    Run(Sql(spoilt.statement));
    const QStringList found = Found();
    ASSERT_EQ(found.size(), 1) << found.join('\n').toStdString();
    EXPECT_TRUE(found.front().startsWith(spoilt.finding)) << found.front().toStdString();
  }
}

TEST_F(CheckTest, AJobWithoutLinesCostsNothingAndAnInvoiceMayBeOlderThanIts) {
  Run(Sql("DELETE FROM Invoice_Items"));
  EXPECT_EQ(Found(), QStringList());
  Run(
      Sql("DELETE FROM Diary_Services WHERE Diary_ID IN (SELECT TOP 1 Diary_ID FROM Diary "
          "WHERE Status = 'J' ORDER BY Diary_ID)"));
  const QStringList found = Found();
  ASSERT_EQ(found.size(), 2) << found.join('\n').toStdString();
  EXPECT_TRUE(found[0].startsWith("wrong Diary Total_Price is not the sum of its lines, 1 row: "));
  EXPECT_TRUE(found[0].endsWith(", lines $0.00)")) << found[0].toStdString();
  EXPECT_TRUE(found[1].startsWith("note Diary Total_GST"));
}

TEST_F(CheckTest, LookingChangesNoBalance) {
  Run(Sql("UPDATE Clients SET Account_Balance = 12345"));
  EXPECT_FALSE(Found().isEmpty());
  EXPECT_EQ(business().FirstField(Sql("SELECT Min(Account_Balance) FROM Clients")),
            Value(Money::FromUnits(123450000)));
}

struct VersionCase {
  const char* fault;
  std::optional<QString> typed;
  int version;
  bool asksForRestart;
};

TEST_F(BusinessTest, TheVersionIsSetOnlyToANumber) {
  const VersionCase cases[] = {
      {"cancelled", std::nullopt, 57, false},
      {"no number", "abc", 57, false},
      {"zero", "0", 57, false},
      {"below zero", "-3", 57, false},
      {"an older one", " 44 ", 44, true},
  };
  outside.headOffice.connected = true;
  for (const VersionCase& each : cases) {
    SCOPED_TRACE(each.fault);
    outside.prompter.Expect("Are you sure you want to reset your database version?", Answer::Yes);
    outside.prompter.Expect("changes to your database.\nContinue?", Answer::Yes);
    outside.prompter.ExpectText("Please enter DB Version", each.typed);
    if (each.asksForRestart) outside.prompter.Expect("take effect. \n\nRestart?", Answer::Yes);
    SetDatabaseVersion(business());
    EXPECT_EQ(outside.desktop.endedWith.has_value(), each.asksForRestart);
    EXPECT_EQ(business().LookupField("infSystem.Database_Version"), Value(each.version));
  }
}

TEST_F(BusinessTest, TheVersionStaysWhenDoubtRemains) {
  outside.prompter.Expect("Are you sure", Answer::Yes);
  outside.prompter.Expect("Continue?", Answer::No);
  SetDatabaseVersion(business());
  outside.prompter.Expect("Are you sure", Answer::No);
  SetDatabaseVersion(business());
  EXPECT_FALSE(outside.desktop.endedWith.has_value());
}

}  // namespace
}  // namespace quillary::maintenance
