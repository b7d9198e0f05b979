#include "CompanionFixture.h"

namespace quillary::cli {
namespace {

/// Over the payer 1 with the site 2, two jobs of the site and a revenue account.
class PaymentCommandsTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    Done({"new", "d.mdb"});
    for (const char* statement :
         {"UPDATE infOptions SET GST_Percentage = 0.1",
          "INSERT INTO Clients (Display_Name, Status, Is_Billed_To, Billing_Client_ID) "
          "VALUES ('Smith', 'Active', True, 1)",
          "INSERT INTO Clients (Display_Name, Status, Billing_Client_ID) "
          "VALUES ('Unit 2', 'Active', 1)",
          "INSERT INTO Clients (Display_Name, Status, Billing_Client_ID, Is_Billed_To) "
          "VALUES ('Brown', 'Active', 3, True)",
          "INSERT INTO lstPayment_Methods (Payment_Method) VALUES ('Cash')",
          "INSERT INTO lstPayment_Methods (Payment_Method) VALUES ('EFT')",
          "INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
          "VALUES ('Lawns', 'Revenue')",
          "INSERT INTO General_Ledger_Accounts (GL_Account_Name, GL_Account_Type) "
          "VALUES ('Fuel', 'Expense')",
          "INSERT INTO Diary (Client_ID, Status, Schedule_Date, Total_Price) "
          "VALUES (2, 'JI', #2026/10/5#, 55)",
          "INSERT INTO Diary (Client_ID, Status, Schedule_Date, Total_Price) "
          "VALUES (2, 'JI', #2026/10/12#, 66)",
          "INSERT INTO Diary (Client_ID, Status, Schedule_Date, Total_Price) "
          "VALUES (3, 'JI', #2026/10/12#, 66)"})
      Done({"sql", "d.mdb", statement});
  }
  QString Word(const QString& statement) {
    return Field("d.mdb", statement).toVariant().toString();
  }
  QString Link(int job) {
    return Word(
        QStringLiteral("SELECT Status & ' ' & Payment_ID FROM Diary WHERE Diary_ID = %1").arg(job));
  }
};

TEST_F(PaymentCommandsTest, OneJobIsPaidAsOnItsScreenSeveralAsByTicks) {
  const QJsonObject first =
      Json({"pay", "d.mdb", "--client", "2", "--amount", "$55.00", "--job", "1"})[0].toObject();
  EXPECT_EQ(first["Client_ID"].toInt(), 1) << "the payer of the site";
  EXPECT_EQ(first["GST_Included"].toDouble(), 5);
  EXPECT_EQ(first["Payment_Method"].toString(), "Cash");
  EXPECT_EQ(Link(1), "JD 1");
  const QJsonObject second =
      Json({"pay", "d.mdb", "--client=1", "--amount=121", "--method=eft", "--date=2026-10-30",
            "--job=1", "--job=2", "--revenue=1=100", "--revenue", "1=21"})[0]
          .toObject();
  EXPECT_EQ(second["Payment_Method"].toString(), "EFT") << "as the list spells it";
  EXPECT_EQ(Link(1), "JD 2");
  EXPECT_EQ(Link(2), "JI 2") << "a tick leaves the status";
  EXPECT_EQ(Word("SELECT COUNT(*) FROM General_Ledger_Entries WHERE Payment_ID = 2 "
                 "AND Entry_Date = #2026/10/30#"),
            "2");
  EXPECT_EQ(Word("SELECT SUM(GST_Included) FROM General_Ledger_Entries"), "11");
  EXPECT_EQ(Word("SELECT Account_Balance FROM Clients WHERE Client_ID = 1"), "55");
  EXPECT_EQ(Json({"pay", "d.mdb", "--client=1", "--amount=1"})[0].toObject()["Payment_Method"],
            "Cash")
      << "the habit is the latest payment's";

  const QJsonObject list =
      Json({"payments", "d.mdb", "--from=2026-10-01", "--to=2026-10-31"}).object();
  EXPECT_EQ(list["Total_Count"].toInt(), 1);
  EXPECT_EQ(list["Total_Amount"].toDouble(), 121);
  EXPECT_EQ(list["rows"].toArray()[0].toObject()["Display_Name"].toString(), "Smith");
  Done({"payment-delete", "d.mdb", "2"});
  EXPECT_EQ(Link(2), "JI ");
  EXPECT_EQ(Word("SELECT COUNT(*) FROM General_Ledger_Entries"), "0");
  EXPECT_EQ(Word("SELECT Account_Balance FROM Clients WHERE Client_ID = 1"), "-65");
}

TEST_F(PaymentCommandsTest, WhatTheScreenRefusesWritesNothing) {
  struct Case {
    const char* fault;
    QStringList words;
    int exitCode;
    const char* err;
  };
  const Case cases[] = {
      {"nobody", {"--client=9", "--amount=5"}, 1, "Please select a client."},
      {"nothing", {"--client=1", "--amount=0"}, 1, "Please enter the payment amount."},
      {"an unlisted method",
       {"--client=1", "--amount=5", "--method=barter"},
       1,
       "Please select the payment method."},
      {"a stranger's job", {"--client=1", "--amount=5", "--job=1", "--job=3"}, 1, "entry 3"},
      {"an expense account",
       {"--client=1", "--amount=5", "--job=1", "--revenue=2=5"},
       1,
       "no revenue account 2"},
      {"no amount", {"--client=1"}, 2, "--amount"},
      {"no number", {"--client=1", "--amount=five"}, 2, "no amount"},
      {"half a line", {"--client=1", "--amount=5", "--revenue=1"}, 2, "ACCOUNT_ID=AMOUNT"},
      {"a day that is none", {"--client=1", "--amount=5", "--date=2026-02-30"}, 1, "no date"},
  };
  const QStringList before = Dump("d.mdb");
  for (const Case& c : cases) {
    const Result result = Run(QStringList{"pay", "d.mdb"} + c.words);
    EXPECT_EQ(result.exitCode, c.exitCode) << c.fault << ": " << result.err.toStdString();
    EXPECT_TRUE(result.err.contains(c.err)) << c.fault << ": " << result.err.toStdString();
  }
  EXPECT_EQ(Run({"payment-delete", "d.mdb", "7"}).exitCode, 1);
  EXPECT_EQ(Run({"payments", "d.mdb", "--from=2026-10-02", "--to=2026-10-01"}).exitCode, 1);
  EXPECT_EQ(Dump("d.mdb"), before);
}

TEST_F(PaymentCommandsTest, TheTaxIsRepairedWithoutAsking) {
  EXPECT_EQ(Done({"gst-recalculate", "d.mdb"}), "Re-calculation done.\n");
  EXPECT_EQ(Word("SELECT Total_GST FROM Diary WHERE Diary_ID = 1"), "5");
}

}  // namespace
}  // namespace quillary::cli
