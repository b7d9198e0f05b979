#include "data/jet/ScratchFile.h"

#include <gtest/gtest.h>

namespace quillary::jet {
namespace {

struct Case {
  const char* fault;
  const char* statement;
  const char* rows;
};

class MeaningTest : public ::testing::Test {
 protected:
  void SetUp() override {
    file_.RunAll(
        R"(CREATE TABLE Clients (Client_ID Counter, Name TEXT(50), Billing_ID LONG, Balance CURRENCY, Active YESNO, Since DATE, Notes MEMO)
CREATE TABLE Jobs (Job_ID Autoincrement, Client_ID NUMBER, Price MONEY, Day DATETIME, Status TEXT(2), [Default] BIT, Position INT, Rate SINGLE)
INSERT INTO Clients (Name, Billing_ID, Balance, Active, Since) VALUES ('Adams', 1, '$1,234.50', True, #2019/3/5#)
INSERT INTO Clients (Name, Billing_ID, Balance, Active, Notes) VALUES ('baker', 1, '(5.00)', 0, 'O''Brien')
INSERT INTO Clients (Name, Balance, Active) VALUES ('Clarke', -.01, -1)
INSERT INTO Jobs (Client_ID, Price, Day, Status, [Default], Position) VALUES (1, 110, #2026/11/2 9:5:0#, 'J', Yes, 2)
INSERT INTO Jobs (Client_ID, Price, Day, Status, Default, Position) VALUES (1, .1, #2026/11/3#, 'JD', No, 1)
INSERT INTO Jobs (Client_ID, Price, Day, Status, Position) VALUES (2, .2, #2026/11/3#, 'j', 2)
INSERT INTO Jobs (Client_ID, Status) VALUES (9, 'JX'))");
  }

  void Check(const std::vector<Case>& cases) {
    for (const Case& each : cases) {
      SCOPED_TRACE(each.fault);
      try {
        EXPECT_EQ(Shown(file_.Run(each.statement)), each.rows) << each.statement;
      } catch (const std::exception& error) {
        ADD_FAILURE() << each.statement << "\n" << error.what();
      }
    }
  }

  ScratchFile file_;
};

TEST_F(MeaningTest, Selects) {
  Check({
      {"plain", "SELECT Name FROM Clients ORDER BY Name", "Adams / baker / Clarke"},
      {"column compares with case", "SELECT Client_ID FROM Clients WHERE Name = 'ADAMS'", "1"},
      {"case function compares without case",
       "SELECT Client_ID FROM Clients WHERE UCase(Name) = 'Adams'", ""},
      {"money text", "SELECT Balance FROM Clients ORDER BY Client_ID;", "1234.5 / -5 / -0.01"},
      {"join",
       "SELECT c.Name, Price FROM Clients c INNER JOIN Jobs AS j ON c.Client_ID = j.Client_ID "
       "ORDER BY Price",
       "Adams|0.1 / baker|0.2 / Adams|110"},
  });
}

}  // namespace
}  // namespace quillary::jet
