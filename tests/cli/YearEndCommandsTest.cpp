#include "CompanionFixture.h"

namespace quillary::cli {
namespace {

class YearEndCommandsTest : public CompanionTest {
 protected:
  void SetUp() override {
    CompanionTest::SetUp();
    Done({"new", "d.mdb"});
    for (const char* statement :
         {"INSERT INTO Clients (Display_Name, First_Name, Surname) VALUES ('Ant', 'Ann', 'Ant')",
          "INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES (1, #2026/1/5#, 20)",
          "INSERT INTO Payments (Client_ID, Payment_Date, Amount) VALUES (1, #2026/8/5#, 0)"})
      Done({"sql", "d.mdb", statement});
  }
};

TEST_F(YearEndCommandsTest, NothingIsDoneWithoutYes) {
  struct Case {
    QStringList command;
    const char* told;  // of what it would do
    const char* after;
    int kept;  // before --yes
    int left;
  };
  const Case cases[] = {
      {{"sort-out", "d.mdb"},
       "payments of nothing or of nobody deleted",
       "SELECT COUNT(*) AS N FROM Payments",
       2,
       1},
      {{"delete-financial", "d.mdb", "--from", "2026-01-01", "--to", "2026-06-30"},
       "payments",
       "SELECT COUNT(*) AS N FROM Payments",
       1,
       0},
      {{"billing-names", "d.mdb", "sf"},
       "billing names",
       "SELECT COUNT(*) AS N FROM Clients WHERE Display_Name = 'Ant, Ann'",
       0,
       1},
      {{"revenue-accounts", "d.mdb"},
       "services of paid jobs",
       "SELECT COUNT(*) AS N FROM Services",
       0,
       0},
  };
  for (const Case& each : cases) {
    const QString name = each.command.front();
    const auto count = [&] {
      return Json({"sql", "d.mdb", each.after})[0].toObject()["N"].toInt();
    };
    EXPECT_TRUE(Done(each.command).contains(each.told)) << name.toStdString();
    EXPECT_EQ(count(), each.kept) << name.toStdString();
    Done(each.command + QStringList{"--yes"});
    EXPECT_EQ(count(), each.left) << name.toStdString();
  }
  EXPECT_EQ(Run({"billing-names", "d.mdb", "XY"}).exitCode, 2);
  EXPECT_EQ(
      Run({"delete-financial", "d.mdb", "--from", "2026-07-01", "--to", "2026-06-30"}).exitCode, 1);
}

}  // namespace
}  // namespace quillary::cli
