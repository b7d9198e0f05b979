#include "CompanionFixture.h"

namespace quillary::cli {
namespace {

/// Over a bank account, a supplier's account of expense 1, an account of revenue 2 and takings.
class BankingCommandsTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    Done({"new", "d.mdb"});
    for (const char* statement :
         {"UPDATE infOptions SET GST_Percentage = 0.1",
          "INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
          "VALUES ('Fuel', 'Expense')",
          "INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
          "VALUES ('Lawns', 'Revenue')",
          "INSERT INTO Bank_Accounts (Bank_Account_Name) VALUES ('Business')",
          "INSERT INTO Payments (Payment_Method, Amount, Payment_Date) "
          "VALUES ('CASH', 60, #2026/10/30#)",
          "INSERT INTO Payments (Payment_Method, Amount, Payment_Date) "
          "VALUES ('cheque', 40, #2026/10/30#)",
          "INSERT INTO Payments (Payment_Method, Amount, Payment_Date) "
          "VALUES ('Direct debit', 5, #2026/10/30#)"})
      Done({"sql", "d.mdb", statement});
  }
  QString Word(const QString& statement) {
    return Field("d.mdb", statement).toVariant().toString();
  }
};

TEST_F(BankingCommandsTest, APurchaseByChequeIsBookedAndCleared) {
  const QJsonObject supplier =
      Json({"supplier", "d.mdb", "--name=Pump", "--account=1", "--method=CHEQUE"})[0].toObject();
  EXPECT_EQ(supplier["Supplier_ID"].toInt(), 1);
  const QJsonObject bought =
      Json({"purchase", "d.mdb", "--supplier=1", "--item=Petrol", "--amount=110", "--cheque=1001",
            "--line=1=66", "--line", "1=44"})[0]
          .toObject();
  EXPECT_EQ(bought["GST_Included"].toDouble(), 10);
  EXPECT_EQ(bought["Payment_Method"].toString(), "CHEQUE") << "the supplier's habit";
  Done({"purchase", "d.mdb", "--supplier=1", "--item=Tip", "--amount=-20", "--exempt",
        "--method=CASH", "--date=2026-10-05", "--capital", "--depreciation=12.5"});
  EXPECT_EQ(Word("SELECT COUNT(*) FROM General_Ledger_Entries WHERE Purchase_ID = 1 AND "
                 "Entry_Date = #2026/11/2# AND GL_Entry_Description = 'Petrol'"),
            "2");
  EXPECT_EQ(Word("SELECT GST_Included & ' ' & Depreciation FROM Purchases WHERE Purchase_ID = 2"),
            "0 12.5");
  const QJsonObject list =
      Json({"purchases", "d.mdb", "--from=2026-10-01", "--to=2026-11-30"}).object();
  EXPECT_EQ(list["Total_Amount"].toDouble(), 90);
  EXPECT_TRUE(list["rows"][0].toObject()["Matches"].toBool());
  EXPECT_EQ(list["rows"][1].toObject()["GL_Account_Name"].toString(), "(none)");

  EXPECT_EQ(Json({"cheques", "d.mdb"}).array().size(), 1);
  EXPECT_EQ(Run({"cheques-clear", "d.mdb", "1", "2"}).exitCode, 1) << "2 is no cheque";
  EXPECT_EQ(Json({"cheques", "d.mdb"}).array().size(), 1) << "all or none";
  Done({"cheques-clear", "d.mdb", "1"});
  EXPECT_EQ(Json({"cheques", "d.mdb"}).array().size(), 0);
  Done({"purchase-delete", "d.mdb", "1"});
  EXPECT_EQ(Word("SELECT COUNT(*) FROM General_Ledger_Entries"), "0");
}

TEST_F(BankingCommandsTest, TakingsAreBankedOnce) {
  const QJsonObject waiting = Json({"undeposited", "d.mdb"}).object();
  EXPECT_EQ(waiting["Total"].toDouble(), 100);
  EXPECT_EQ(waiting["On_No_Tab"].toInt(), 1);
  EXPECT_EQ(Run({"bank", "d.mdb", "--account=1", "--payments=1,2", "--cash=50"}).exitCode, 1)
      << "other cash than was received, and nobody said yes";
  const QJsonObject deposit =
      Json({"bank", "d.mdb", "--account=1", "--payments=1,2", "--cash=50", "--yes"})[0].toObject();
  EXPECT_EQ(deposit["Total_Banked"].toDouble(), 90);
  EXPECT_EQ(deposit["Cash_Unbanked"].toDouble(), 10);
  EXPECT_EQ(Word("SELECT COUNT(*) FROM Payments WHERE Banking_ID = 1"), "2");
  EXPECT_EQ(Json({"bankings", "d.mdb"}).array().size(), 1);
  Done({"banking-delete", "d.mdb", "1"});
  EXPECT_EQ(Word("SELECT COUNT(*) FROM Payments WHERE Banking_ID IS NULL"), "3");
}

TEST_F(BankingCommandsTest, WhatTheScreensRefuseWritesNothing) {
  Done({"supplier", "d.mdb", "--name=Pump", "--account=1"});
  Done({"bank", "d.mdb", "--account=1", "--payments=1"});
  struct Case {
    const char* fault;
    QStringList words;
    int exitCode;
    const char* err;
  };
  const Case cases[] = {
      {"nobody", {"purchase", "--supplier=9", "--item=x", "--amount=5"}, 1, "select a supplier"},
      {"nothing", {"purchase", "--supplier=1", "--item=x", "--amount=0"}, 1, "a valid amount."},
      {"half split",
       {"purchase", "--supplier=1", "--item=x", "--amount=5", "--line=1=4"},
       1,
       "the cost should match with the total amount of accounts."},
      {"an account of revenue",
       {"purchase", "--supplier=1", "--item=x", "--amount=5", "--line=2=5"},
       1,
       "Please select a Expense account."},
      {"no number", {"purchase", "--supplier=1", "--amount=five"}, 2, "no amount"},
      {"a percentage that is none",
       {"purchase", "--supplier=1", "--amount=5", "--depreciation=much"},
       2,
       "percentage"},
      {"a supplier without account", {"supplier", "--name=Shop"}, 1, "default Ledger account"},
      {"no bank account", {"bank", "--account=9", "--payments=2"}, 1, "which bank account"},
      {"banked twice", {"bank", "--account=1", "--payments=1"}, 1, "banked twice"},
      {"no such payment", {"bank", "--account=1", "--payments=77"}, 1, "no payment 77"},
      {"on no tab", {"bank", "--account=1", "--payments=3"}, 1, "DIRECT DEBIT"},
      {"no such deposit", {"banking-delete", "7"}, 1, "no deposit 7"},
      {"no such purchase", {"purchase-delete", "7"}, 1, "no purchase 7"},
      {"days the wrong way round",
       {"purchases", "--from=2026-10-02", "--to=2026-10-01"},
       1,
       "date range"},
  };
  const QStringList before = Dump("d.mdb");
  for (const Case& c : cases) {
    QStringList words = c.words;
    words.insert(1, "d.mdb");
    const Result result = Run(words);
    EXPECT_EQ(result.exitCode, c.exitCode) << c.fault << ": " << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(c.err)) << c.fault << ": " << result.err.toStdString();
  }
  EXPECT_EQ(Dump("d.mdb"), before);
}

}  // namespace
}  // namespace quillary::cli
