#include "CompanionFixture.h"

namespace quillary::cli {
namespace {

class QuoteCommandsTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    Done({"new", "d.mdb"});
    for (const char* statement :
         {"DELETE FROM Services", "DELETE FROM General_Ledger_Accounts",
          "INSERT INTO Services (Service_ID, Service) VALUES (1, 'Lawn')",
          "INSERT INTO Services (Service_ID, Service) VALUES (2, 'Hedge')",
          "INSERT INTO General_Ledger_Accounts (GL_Account_ID, GL_Account_Name, GL_Account_Type, "
          "Budget_Amount) VALUES (1, 'Lawns', 'Revenue', 1200)",
          "INSERT INTO Clients (Status, Display_Name) VALUES ('Quote only', 'Zimmer')"})
      Done({"sql", "d.mdb", statement});
  }
};

TEST_F(QuoteCommandsTest, FromQuoteToActiveClient) {
  const auto made = Json({"quote", "d.mdb", "--client", "1", "--line", "1=45.50:front: only",
                          "--line", "2=80", "--date", "2026-11-05"})
                        .array()[0]
                        .toObject();
  EXPECT_EQ(made["Quote_ID"].toInt(), 1);
  EXPECT_EQ(made["Description"].toString(), "Lawn, Hedge");
  EXPECT_EQ(Field("d.mdb", "SELECT Notes FROM Quote_Services WHERE Service_ID = 1").toString(),
            "front: only");
  Done({"quote", "d.mdb", "--client", "1", "--line", "2=10"});
  EXPECT_EQ(Json({"quotes", "d.mdb"}).array().size(), 2);
  EXPECT_EQ(Json({"quotes", "d.mdb", "--client", "9"}).array().size(), 0);
  Done({"quote-delete", "d.mdb", "2"});
  Done({"quote-activate", "d.mdb", "--client", "1", "--quote", "1"});
  EXPECT_EQ(Field("d.mdb", "SELECT Status FROM Clients").toString(), "Active");
  EXPECT_EQ(Field("d.mdb", "SELECT COUNT(*) AS N FROM Client_Services WHERE Frequency = 0").toInt(),
            2);
  struct Case {
    QStringList command;
    int code;
    const char* told;
  };
  for (const Case& c :
       {Case{{"quote", "d.mdb", "--client", "9"}, 1, "there is no client 9"},
        Case{{"quote", "d.mdb"}, 2, "--client"},
        Case{{"quote", "d.mdb", "--client", "1", "--line", "1"}, 2, "--line takes"},
        Case{{"quote", "d.mdb", "--client", "1", "--line", "7=1"}, 1, "no service 7"},
        Case{{"quote-delete", "d.mdb", "2"}, 1, "there is no quote 2"},
        Case{{"quote-activate", "d.mdb", "--client", "1"}, 1, "no quote client"}}) {
    const Result result = Run(c.command);
    EXPECT_EQ(result.exitCode, c.code) << c.command.join(' ').toStdString();
    EXPECT_TRUE(result.err.contains(c.told)) << result.err.toStdString();
  }
}

TEST_F(QuoteCommandsTest, BudgetsOfAYear) {
  EXPECT_EQ(Run({"budgets", "d.mdb"}).exitCode, 1) << "no year has been opened";
  Done({"start", "d.mdb"});
  Done({"sql", "d.mdb",
        "INSERT INTO General_Ledger_Entries (GL_Account_ID, Entry_Date, GL_Amount) VALUES (1, "
        "#2026/8/1#, 300)"});
  Done({"budget", "d.mdb", "--account", "1", "--year", "2026", "--amount", "2400"});
  const auto line = Json({"budgets", "d.mdb", "--year", "2026"}).array()[0].toObject();
  EXPECT_EQ(line["Budget_Amount"].toDouble(), 2400);
  EXPECT_EQ(line["Actual"].toDouble(), 300);
  EXPECT_EQ(line["Difference"].toDouble(), -2100);
  EXPECT_EQ(Done({"budgets-recalculate", "d.mdb"}),
            "All of the budgets have been verified. 2 budget(s) were incorrect, and have been "
            "repaired.\n");
  EXPECT_EQ(Run({"budgets", "d.mdb", "--year", "2031"}).exitCode, 1);
  EXPECT_EQ(
      Run({"budget", "d.mdb", "--account", "1", "--year", "2026", "--amount", "lots"}).exitCode, 2);
}

}  // namespace
}  // namespace quillary::cli
