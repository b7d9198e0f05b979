#include "data/jet/ScratchFile.h"

#include <gtest/gtest.h>

namespace quillary::jet {
namespace {

struct Refused {
  const char* statement;
  int line;
  int column;
  const char* near;
};

class RefusalTest : public ::testing::Test {
 protected:
  void SetUp() override {
    file_.RunAll(
        R"(CREATE TABLE Clients (Client_ID Counter, Name TEXT(50), Active YESNO, Since DATE)
CREATE TABLE Jobs (Job_ID Counter, Client_ID LONG, Price CURRENCY))");
  }

  ScratchFile file_;
};

TEST_F(RefusalTest, TellsThePlace) {
  const Refused cases[] = {
      {"SELECT Nam FROM Clients", 1, 8, "Nam"},
      {"SELECT Name\nFROM Clients\n  WHERE Nme = 'a'", 3, 9, "Nme"},
      {"SELECT 'two\nlines', x FROM Clients", 2, 9, "x"},
      {"SELECT 'it''s', #2019/3/5 1:2:3#, 1.50, x FROM Clients", 1, 41, "x"},
      {"SELECT * FROM Client", 1, 15, "Client"},
      {"SELECT Client_ID FROM Clients, Jobs", 1, 8, "Client_ID"},
      {"SELECT x.Name FROM Clients", 1, 10, "Name"},
      {"SELECT Clients.Name FROM Clients AS c", 1, 16, "Name"},
      {"SELECT Jobs.* FROM Clients", 1, 8, "Jobs"},
      {"SELECT * FROM Clients, Clients", 1, 24, "Clients"},
      {"SELECT Soundex(Name) FROM Clients", 1, 8, "Soundex"},
      {"SELECT Now(1) FROM Clients", 1, 8, "Now"},
      {"SELECT Switch(Active) FROM Clients", 1, 8, "Switch"},
      {"SELECT a + 1 AS b, b + 1 AS a FROM Clients", 1, 8, "a"},
      {"SELECT Name AS n FROM Clients WHERE n = 'a'", 1, 37, "n"},
      {"SELECT TOP 101 PERCENT Name FROM Clients", 1, 1, "SELECT"},
      {"SELECT DISTINCTROW t.Name FROM (SELECT Name FROM Clients) AS t, Jobs", 1, 1, "SELECT"},
      {"SELECT Left(Name) FROM Clients", 1, 8, "Left"},
      {"SELECT Name FROM Clients WHERE", 1, 31, ""},
      {"SELECT Name FROM Clients WHERE Name = = 'a'", 1, 39, "="},
      {"SELECT Name FROM Clients WHERE (Name = 'a'", 1, 43, ""},
      {"SELECT Name FROM Clients WHERE Name = 'O'Brien'", 1, 47, "'"},
      {"SELECT Name FROM Clients; SELECT 1", 1, 27, "SELECT"},
      {"SELECT Name AS FROM Clients", 1, 16, "FROM"},
      {"SELECT FROM Clients", 1, 8, "FROM"},
      {"SELECT Name FROM Clients WHERE Name = [x", 1, 39, "[x"},
      {"SELECT Name FROM Clients WHERE Since > #2019/2/30#", 1, 40, "#2019/2/30#"},
      {"SELECT Name FROM Clients WHERE Name", 1, 32, "Name"},
      {"SELECT Name FROM Clients WHERE Active = Name", 1, 41, "Name"},
      {"SELECT Name, Count(*) FROM Clients", 1, 8, "Name"},
      {"SELECT Name FROM Clients GROUP BY Active", 1, 8, "Name"},
      {"SELECT Count(*) FROM Clients ORDER BY Name", 1, 39, "Name"},
      {"SELECT Name FROM Clients WHERE Count(*) > 1", 1, 32, "Count"},
      {"SELECT Sum(Max(Client_ID)) FROM Clients", 1, 12, "Max"},
      {"SELECT Sum(Name) FROM Clients", 1, 12, "Name"},
      {"SELECT Name FROM Clients ORDER BY 2", 1, 35, "2"},
      {"SELECT Name FROM Clients WHERE Client_ID IN (SELECT * FROM Jobs)", 1, 42, "IN"},
      {"SELECT (SELECT Job_ID, Price FROM Jobs) FROM Clients", 1, 8, "("},
      {"SELECT Name FROM Clients UNION SELECT Job_ID, Price FROM Jobs", 1, 32, "SELECT"},
      {"SELECT a.Name FROM Clients a INNER JOIN Jobs b ON c.Name = 1", 1, 53, "Name"},
      {"INSERT INTO Clients (Name, Nme) VALUES ('a', 'b')", 1, 28, "Nme"},
      {"INSERT INTO Clients (Name, name) VALUES ('a', 'b')", 1, 28, "name"},
      {"INSERT INTO Clients (Name) VALUES ('a', 'b')", 1, 13, "Clients"},
      {"INSERT INTO Clients (Name) VALUES (Name)", 1, 36, "Name"},
      {"UPDATE Clients SET Nme = 'a'", 1, 20, "Nme"},
      {"UPDATE Clients SET Client_ID = 5", 1, 20, "Client_ID"},
      {"SELECT 1 FROM Clients HAVING Name = 'a'", 1, 35, "="},
      {"UPDATE Clients SET Name 'a'", 1, 25, "'a'"},
      {"UPDATE Clients INNER JOIN Jobs ON Clients.Client_ID = Jobs.Client_ID SET Name = 'a', Price "
       "= 1",
       1, 86, "Price"},
      {"DELETE FROM Clients INNER JOIN Jobs ON Clients.Client_ID = Jobs.Client_ID", 1, 1, "DELETE"},
      {"DELETE Gone.* FROM Clients", 1, 8, "Gone"},
      {"DELETE Clients", 1, 15, ""},
      {"TRUNCATE Clients", 1, 1, "TRUNCATE"},
      {"", 1, 1, ""},
      {"SELECT \"a", 1, 8, "\"a"},
      {"SELECT Name FROM Clients -- all", 1, 26, "-"},
      {"SELECT Name FROM Clients WHERE Client_ID = ?", 1, 44, "?"},
      {"SELECT TOP 1.5 Name FROM Clients", 1, 12, "1.5"},
      {"SELECT TOP 'ö' Name FROM Clients", 1, 12, "'ö'"},
  };
  for (const Refused& each : cases) {
    try {
      file_.Run(each.statement);
      ADD_FAILURE() << "accepted: " << each.statement;
    } catch (const StatementError& error) {
      EXPECT_EQ(error.line(), each.line) << each.statement;
      EXPECT_EQ(error.column(), each.column) << each.statement << "\n" << error.what();
      EXPECT_EQ(error.near(), each.near) << each.statement << "\n" << error.what();
    } catch (const std::exception& error) {
      ADD_FAILURE() << each.statement << "\n" << error.what();
    }
  }
}

TEST_F(RefusalTest, NestingHasALimit) {
  const auto many = [](const char* part) {
    std::string all;
    for (int i = 0; i < 10'000; ++i) all += part;
    return all;
  };
  for (const std::string& text :
       {"SELECT " + many("(") + "1" + many(")"), "SELECT " + many("NOT ") + "1",
        "SELECT " + many("- ") + "1", "SELECT 1" + many(" + 1"), "SELECT 1" + many(" = 1"),
        "SELECT * FROM " + many("(") + "Clients" + many(")"), "SELECT " + many("IIf(1,2,"),
        many("(") + "SELECT 1", "SELECT " + many("(SELECT "), "SELECT 1 WHERE 1" + many(" IS NULL"),
        "SELECT 1 FROM Clients" + many(" INNER JOIN Clients ON 1"),
        "SELECT 1 IN " + many("(") + "SELECT 1", "SELECT " + many("Left(")}) {
    EXPECT_THROW(file_.Run(text), StatementError) << text.substr(0, 40);
  }
  std::string doubling = "Name";
  for (int i = 0; i < 40; ++i) doubling = "(" + doubling + " & " + doubling.substr(0, 4) + ")";
  EXPECT_THROW(file_.Run("SELECT " + doubling + " FROM Clients"), StatementError)
      << "a rewrite that doubles its text";
  EXPECT_NO_THROW(
      file_.Run("SELECT Count(*) FROM Clients WHERE Client_ID IN (1" + many(", 1") + ")"));
}

}  // namespace
}  // namespace quillary::jet
