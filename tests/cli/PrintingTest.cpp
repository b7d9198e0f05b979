#include "CompanionFixture.h"

namespace quillary::cli {
namespace {

class PrintingTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    Done({"new", "n.mdb"});
    Done({"sql", "n.mdb",
          "INSERT INTO Clients (Display_Name, Status, Is_Billed_To, Account_Balance, Quote_Date, "
          "Notes) VALUES ('Müller \"Jo\"', 'Active', Yes, -1234.5, #2026/11/2 14:7:9#, 'a\nb')"});
  }
};

TEST_F(PrintingTest, JsonKeepsTypesAndTheOrderOfColumns) {
  EXPECT_EQ(Done({"--json", "sql", "n.mdb",
                  "SELECT Quote_Date, Client_ID, Display_Name, Account_Balance, Is_Billed_To, "
                  "Surname FROM Clients"}),
            "[\n{\"Quote_Date\": \"2026-11-02 14:07:09\", \"Client_ID\": 1, \"Display_Name\": "
            "\"Müller \\\"Jo\\\"\", \"Account_Balance\": -1234.5, \"Is_Billed_To\": true, "
            "\"Surname\": null}\n]\n");
  EXPECT_EQ(Done({"--json", "sql", "n.mdb", "SELECT Surname FROM Clients WHERE False"}), "[]\n");
  EXPECT_EQ(Done({"--json", "sql", "n.mdb", "DELETE FROM lstBanks"}), "[]\n");
  EXPECT_DOUBLE_EQ(Field("n.mdb", "SELECT GST_Percentage FROM infOptions").toDouble(), 0.1);
}

TEST_F(PrintingTest, TablesAlignNumbersToTheRight) {
  Done({"sql", "n.mdb", "INSERT INTO Clients (Display_Name, Account_Balance) VALUES ('Bo', 5)"});
  EXPECT_EQ(Done({"sql", "n.mdb",
                  "SELECT Display_Name, Account_Balance, Client_ID AS ID, Notes FROM Clients "
                  "ORDER BY Client_ID"}),
            "Display_Name  Account_Balance  ID  Notes\n"
            "Müller \"Jo\"          -1234.50   1  a b\n"
            "Bo                       5.00   2\n");
  EXPECT_EQ(Done({"sql", "n.mdb", "DELETE FROM lstBanks"}), "done\n");
}

TEST_F(PrintingTest, HelpIsThereForEveryCommand) {
  const QString all = Done({"--help"});
  for (const char* name : {"new", "demo", "convert", "sql", "start", "roll", "diary", "done"}) {
    EXPECT_TRUE(all.contains(QStringLiteral("\n  %1 ").arg(name))) << name;
    EXPECT_TRUE(Done({name, "--help"}).startsWith(QStringLiteral("quillaryctl %1 ").arg(name)));
  }
}

}  // namespace
}  // namespace quillary::cli
