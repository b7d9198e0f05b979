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
        R"(CREATE TABLE Clients (Client_ID Counter, Name TEXT(50), Billing_ID LONG, Balance
  CURRENCY, Active YESNO, Since DATE, Notes MEMO)
CREATE TABLE Jobs (Job_ID Autoincrement, Client_ID NUMBER, Price MONEY, Day DATETIME, Status
  TEXT(2), [Default] BIT, Position INT, Rate SINGLE)
INSERT INTO Clients (Name, Billing_ID, Balance, Active, Since) VALUES ('Adams', 1, '$1,234.50',
  True, #2019/3/5#)
INSERT INTO Clients (Name, Billing_ID, Balance, Active, Notes) VALUES ('baker', 1, '(5.00)', 0,
  'O''Brien')
INSERT INTO Clients (Name, Balance, Active) VALUES ('Clarke', -.01, -1)
INSERT INTO Jobs (Client_ID, Price, Day, Status, [Default], Position) VALUES (1, 110, #2026/11/2
  9:5:0#, 'J', Yes, 2)
INSERT INTO Jobs (Client_ID, Price, Day, Status, Default, Position) VALUES (1, .1, #2026/11/3#,
  'JD', No, 1)
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

TEST_F(MeaningTest, ComparesTexts) {
  Check({
      {"IN over a column minds case",
       "SELECT Job_ID FROM Jobs WHERE Status IN ('J', 'jd') ORDER BY 1", "1 / 2 / 3"},
      {"DISTINCT minds case",
       "SELECT DISTINCT(Status) FROM Jobs WHERE Status <> 'JX' ORDER BY Status", "J / JD"},
      {"grouping minds case", "SELECT Count(*) FROM Jobs GROUP BY Status ORDER BY Status",
       "2 / 1 / 1"},
      {"order minds case", "SELECT Name FROM Clients ORDER BY Name DESC", "Clarke / baker / Adams"},
      {"wildcards", "SELECT Name FROM Clients WHERE Name LIKE 'b*' OR Name LIKE '?dam[r-t]'",
       "Adams / baker"},
      {"a digit sign, an excluded range and a plain underscore",
       "SELECT 'a1' LIKE 'a#', 'ab' LIKE 'a#', 'ab' LIKE 'a[!b]', 'axb' LIKE 'a_b', '5#' LIKE "
       "'#[#]'",
       "True|False|False|False|True"},
      {"quotes inside a text", "SELECT Client_ID FROM Clients WHERE Notes = 'O''Brien'", "2"},
      {"double quotes hold a text", "SELECT Client_ID FROM Clients WHERE Name = \"baker\"", "2"},
  });
}

TEST_F(MeaningTest, KeepsNullsApart) {
  Check({
      {"IsNull and IS NULL differ",
       "SELECT Client_ID FROM Clients WHERE IsNull(Notes) AND Since IS NOT NULL", "1"},
      {"not is null", "SELECT Client_ID FROM Clients WHERE Not IsNull(Notes)", "2"},
      {"a comparison with null holds", "SELECT Client_ID FROM Clients WHERE Notes <> 'x'", "2"},
      {"IIf takes a null condition as true",
       "SELECT IIf(Notes = 'O''Brien', 'yes', 'no') FROM Clients ORDER BY Client_ID",
       "no / yes / no"},
      {"a sum with null is no null", "SELECT Name + Notes FROM Clients WHERE Client_ID = 1",
       "NULL"},
      {"a join takes null as null", "SELECT Name & Notes FROM Clients WHERE Client_ID = 1",
       "Adams"},
      {"two nulls join to a text", "SELECT Notes & Since FROM Clients WHERE Client_ID = 3", "NULL"},
      {"a number does not join",
       "SELECT Client_ID & '-' & Balance & True FROM Clients WHERE Client_ID = 2", "2--5-1"},
      {"nulls sort last", "SELECT Client_ID FROM Clients ORDER BY Billing_ID, Client_ID",
       "3 / 1 / 2"},
      {"an empty sum is 0", "SELECT Sum(Price), Count(*), Max(Day) FROM Jobs WHERE Job_ID = 77",
       "NULL|0|NULL"},
      {"a comparison within IsNull",
       "SELECT Count(*) FROM Clients WHERE (((IsNull([Clients].[Notes])) <> False))", "2"},
      {"Nz", "SELECT Nz(Notes, 'none'), Nz(Billing_ID) FROM Clients WHERE Client_ID = 3", "none|0"},
  });
}

TEST_F(MeaningTest, MatchesYesAndNo) {
  for (const char* yes : {"True", "Yes", "1", "-1", "'Yes'"}) {
    const std::string sql =
        "SELECT Client_ID FROM Clients WHERE Active = " + std::string(yes) + " ORDER BY Client_ID";
    EXPECT_EQ(Shown(file_.Run(sql)), "1 / 3") << yes;
  }
  for (const char* no : {"<> True", "= No", "= 0", "<> -1", "IN (0)", "= FALSE"}) {
    EXPECT_EQ(Shown(file_.Run("SELECT Client_ID FROM Clients WHERE Active " + std::string(no))),
              "2")
        << no;
  }
  Check({
      {"a yes/no column is no condition", "SELECT Client_ID FROM Clients WHERE NOT Active", "2"},
      {"yes sorts last", "SELECT Client_ID FROM Clients ORDER BY Active, Client_ID", "1 / 3 / 2"},
      {"yes counts 1",
       "SELECT Sum(Active), Active + 1 FROM Clients GROUP BY Active ORDER BY Active", "-2|0 / 0|1"},
      {"a value left out is null", "SELECT Job_ID FROM Jobs WHERE Default = False ORDER BY Job_ID",
       "2 / 3 / 4"},
      {"a missing row's no is no",
       "SELECT Jobs.Job_ID, Active FROM Jobs LEFT JOIN Clients ON "
       "Jobs.Client_ID = Clients.Client_ID WHERE Jobs.Job_ID = 4",
       "4|NULL"},
  });
  file_.Run("UPDATE Clients SET Active = Null WHERE Client_ID = 1");
  file_.Run("UPDATE Clients SET Active = Billing_ID WHERE Client_ID = 2");
  file_.Run("UPDATE Clients SET Active = 'no', Billing_ID = True WHERE Client_ID = 3");
  EXPECT_EQ(Shown(file_.Run("SELECT Active, Billing_ID FROM Clients ORDER BY Client_ID")),
            "False|1 / True|1 / False|-1");
}

TEST_F(MeaningTest, CountsMoneyExactly) {
  Check({
      {"a sum drifts", "SELECT Sum(Price) FROM Jobs WHERE Price < 1", "0.3"},
      {"a stored sum drifts", "SELECT Job_ID FROM Jobs WHERE Price + Price = .4", "3"},
      {"a chain drifts", "SELECT Price + Price + Price FROM Jobs WHERE Job_ID = 2", "0.3"},
      {"money times money is not cut to its decimals",
       "SELECT Price * Price * Price * Price FROM Jobs WHERE Job_ID = 2", "0.0001"},
      {"a count of money is no money", "SELECT Price * 3 FROM Jobs WHERE Job_ID = 2", "0.3"},
      {"a literal with a sign",
       "SELECT Client_ID FROM Clients WHERE Balance > (-.02) and Balance < (.01)", "3"},
      {"a text against money", "SELECT Client_ID FROM Clients WHERE Balance = '$1,234.50'", "1"},
      {"whole numbers divide whole",
       "SELECT Price / 100, Position / 4, 7 \\ 2, 7 Mod 4 FROM Jobs "
       "WHERE Job_ID = 1",
       "1.1|0.5|3|3"},
      {"rounding away from even", "SELECT CLng(2.5), CLng('3.5'), Round(0.125, 2), Round(2.5)",
       "2|4|0.12|2"},
      {"the average is no money", "SELECT Avg(Price) FROM Jobs WHERE Price < 1", "0.15"},
  });
  file_.Run("UPDATE Jobs SET Price = ((Price/110) * 10) WHERE Job_ID = 1");
  file_.Run("UPDATE Jobs SET Price = Price + 0.2 WHERE Job_ID = 2");
  EXPECT_EQ(Shown(file_.Run("SELECT Price FROM Jobs WHERE Price = .3 OR Price = 10")), "10 / 0.3");
  EXPECT_EQ(Shown(file_.Raw("SELECT typeof(Price), typeof(Client_ID) FROM Jobs WHERE Job_ID = 1")),
            "integer|integer");
}

TEST_F(MeaningTest, OrdersPrecedence) {
  Check({
      {"NOT ties tighter than =", "SELECT Client_ID FROM Clients WHERE NOT Client_ID = 1", "2 / 3"},
      {"AND ties no tighter than OR",
       "SELECT Client_ID FROM Clients WHERE Client_ID = 1 OR Client_ID = 2 AND Active = Yes", "1"},
      {"parentheses are lost",
       "SELECT Client_ID FROM Clients WHERE (Client_ID = 1 OR Client_ID = 2) AND Active = No", "2"},
      {"minus is right-associative", "SELECT 10 - 3 - 2, 10 - (3 - 2), - -5, -(-5), 2 - -3",
       "5|9|5|5|5"},
      {"\\ ties as *", "SELECT 20 \\ 2 * 3, 10 Mod 2 * 3, 2 + 3 & 4", "3|4|54"},
      {"a comparison joins first", "SELECT Client_ID FROM Clients WHERE Name & 'x' = 'Adamsx'",
       "1"},
      {"Mod ties tighter than minus, * as /", "SELECT 10 - 7 Mod 4, 8 / 2 * 4", "7|16"},
      {"the end of a range stops at a comparison", "SELECT 5 BETWEEN 1 AND 3 = False", "True"},
      {"NOT IN", "SELECT Client_ID FROM Clients WHERE Client_ID NOT IN (1, 2)", "3"},
      {"NOT BETWEEN", "SELECT Client_ID FROM Clients WHERE Client_ID NOT BETWEEN 2 AND 3", "1"},
      {"XOR", "SELECT Client_ID FROM Clients WHERE Active XOR Client_ID = 1", "3"},
  });
}

TEST_F(MeaningTest, CoercesByTheColumn) {
  Check({
      {"a number against a text column", "SELECT Client_ID FROM Clients WHERE Name = 5", ""},
      {"a text against a number column", "SELECT Name FROM Clients WHERE Client_ID = '2'", "baker"},
      {"a fraction is rounded to match", "SELECT Name FROM Clients WHERE Client_ID = 1.4", ""},
      {"a date text against a date", "SELECT Name FROM Clients WHERE Since = '5/3/2019'", "Adams"},
      {"a text column against a date",
       "SELECT t.d, Name FROM (SELECT '5/3/2019' & '' AS d FROM Jobs WHERE Job_ID = 1) AS t, "
       "Clients "
       "WHERE t.d = Since OR (Since = t.d AND Since >= t.d)",
       "5/3/2019|Adams"},
      {"a text column against a number column",
       "SELECT Job_ID FROM (SELECT '2' & '' AS d FROM Clients WHERE Client_ID = 1) AS t, Jobs "
       "WHERE "
       "t.d = Client_ID AND Client_ID = t.d",
       "3"},
      {"a date without a time",
       "SELECT Job_ID FROM Jobs WHERE Day BETWEEN #2026/11/2# AND "
       "#2026/11/2 23:59:0#",
       "1"},
      {"dates count days", "SELECT Day + 1, Day - #2026/11/1# FROM Jobs WHERE Job_ID = 2",
       "2026-11-04 00:00:00|2"},
      {"parts of a date",
       "SELECT Year(Since), Month(Since), Day(Since) FROM Clients WHERE Client_ID = 1", "2019|3|5"},
      {"branches of one type",
       "SELECT TOP 1 Name FROM Clients ORDER BY CLng(IIf(IsNull(Notes), 7, "
       "IIf(Client_ID = 2, '8', Notes))) DESC",
       "baker"},
  });
}

TEST_F(MeaningTest, CallsFunctions) {
  Check({
      {"sides",
       "SELECT Left(Name, 2), RIGHT(Name, 3), Right(Name, 99), Left(Name, 0), Mid(Name, 2, 3), "
       "Mid(Name, 4) FROM Clients WHERE Client_ID = 1",
       "Ad|ams|Adams||dam|ms"},
      {"case and blanks", "SELECT ucase('ä b'), LCASE('ÄB'), Trim('  x ') & '|', Len('abc')",
       "Ä B|äb|x||3"},
      {"places", "SELECT InStr('Quote', 'O'), InStr(4, 'banana', 'A'), InStr('a', 'b')", "3|4|0"},
      {"numbers",
       "SELECT Abs(-5), Int(-2.5), Fix(-2.5), Val('12.5kg'), CDbl('1.5'), CStr(1.50), Sgn(-3)",
       "5|-3|-2|12.5|1.5|1.5|-1"},
      {"amounts and dates", "SELECT CCur('$1.50'), CDate('2019-03-05 14:07'), CInt(True)",
       "1.5|2019-03-05 14:07:00|-1"},
      {"first and last", "SELECT First(Name), Last(Name) FROM Clients", "Adams|Clarke"},
  });
}

TEST_F(MeaningTest, JoinsTables) {
  Check({
      {"right join",
       "SELECT Clients.Name, Jobs.Job_ID FROM Clients RIGHT JOIN Jobs ON Clients.Client_ID "
       "= Jobs.Client_ID WHERE IsNull(Clients.Client_ID)",
       "NULL|4"},
      {"nested on the right",
       "SELECT a.Name, b.Name, Job_ID FROM Clients AS a LEFT JOIN (Clients AS b INNER "
       "JOIN Jobs ON b.Client_ID = Jobs.Client_ID) ON a.Billing_ID = b.Client_ID ORDER BY "
       "a.Client_ID, Job_ID",
       "Adams|Adams|1 / Adams|Adams|2 / baker|Adams|1 / baker|Adams|2 / Clarke|NULL|NULL"},
      {"inner join of a left join",
       "SELECT a.Name, Job_ID FROM Clients AS a INNER JOIN (Clients AS b LEFT JOIN "
       "Jobs ON b.Client_ID = Jobs.Client_ID) ON a.Client_ID = b.Client_ID WHERE IsNull(Job_ID)",
       "Clarke|NULL"},
      {"inner join of a left join that has more rows",
       "SELECT Name, b.Job_ID FROM Clients INNER JOIN (Jobs AS b LEFT JOIN Jobs AS c ON b.Job_ID = "
       "c.Client_ID) ON Clients.Client_ID = b.Client_ID WHERE b.Job_ID > 2",
       "baker|3"},
      {"inner join of inner joins and a left join",
       "SELECT Name, b.Job_ID FROM (Clients INNER JOIN Jobs AS a ON Clients.Client_ID = "
       "a.Client_ID) INNER JOIN (Jobs AS b LEFT JOIN Jobs AS c ON b.Job_ID = c.Client_ID) ON "
       "a.Job_ID = b.Job_ID AND b.Position = 2 ORDER BY b.Job_ID",
       "Adams|1 / Adams|1 / baker|3"},
      {"inner joins inside",
       "SELECT Job_ID FROM (Clients INNER JOIN ((Clients AS Clients_1 INNER JOIN Jobs ON "
       "Clients_1.Client_ID = Jobs.Client_ID)) ON Clients.Client_ID = Clients_1.Billing_ID) ORDER "
       "BY Job_ID",
       "1 / 2 / 3"},
      {"tables in parentheses", "SELECT Name FROM (Clients) WHERE Client_ID = 1", "Adams"},
      {"commas", "SELECT Count(*) FROM Clients, Jobs WHERE Clients.Client_ID = Jobs.Client_ID",
       "3"},
      {"sub-selects",
       "SELECT Name, (SELECT MIN(Price) FROM Jobs WHERE Jobs.Client_ID = Clients.Client_ID) AS "
       "Least FROM Clients WHERE EXISTS (SELECT * FROM Jobs WHERE Jobs.Client_ID = "
       "Clients.Client_ID) "
       "ORDER BY Least DESC",
       "baker|0.2 / Adams|0.1"},
      {"a number beside a select of yes and no",
       "SELECT Count(*) FROM Jobs WHERE 1 IN (SELECT Active FROM Clients WHERE Client_ID = 1)",
       "4"},
      {"yes and no beside a select of its kind",
       "SELECT Client_ID FROM Clients WHERE Active NOT IN (SELECT Default FROM Jobs WHERE Job_ID = "
       "1)",
       "2"},
      {"a text beside a select of amounts",
       "SELECT Count(*) FROM Jobs WHERE '$0.20' IN (SELECT Price FROM Jobs WHERE Client_ID = 2)",
       "4"},
      {"IN a select",
       "SELECT Name FROM Clients WHERE Client_ID NOT IN ((SELECT Client_ID FROM Jobs))", "Clarke"},
      {"a select as a table",
       "SELECT t.n, Name FROM (SELECT Client_ID, Count(*) AS n FROM Jobs GROUP BY "
       "Client_ID) AS t INNER JOIN Clients ON Clients.Client_ID = t.Client_ID ORDER BY n",
       "1|baker / 2|Adams"},
      {"union",
       "SELECT Name FROM Clients WHERE Client_ID < 3 UNION SELECT Status FROM Jobs WHERE Job_ID > "
       "3 ORDER BY Name",
       "Adams / baker / JX"},
      {"a union of types",
       "SELECT Client_ID FROM Clients UNION ALL SELECT Status FROM Jobs WHERE Job_ID = 2",
       "1 / 2 / 3 / JD"},
  });
}

TEST_F(MeaningTest, GroupsAndLimits) {
  Check({
      {"ties are cut off",
       "SELECT TOP 1 Job_ID FROM Jobs WHERE NOT IsNull(Position) ORDER BY Position DESC", "1 / 3"},
      {"without an order there are no ties", "SELECT TOP 2 Job_ID FROM Jobs", "1 / 2"},
      {"distinct rows tie", "SELECT DISTINCT TOP 1 Position FROM Jobs ORDER BY Position DESC", "2"},
      {"groups tie",
       "SELECT TOP 1 Client_ID, Count(*) FROM Jobs GROUP BY Client_ID ORDER BY Count(*)",
       "2|1 / 9|1"},
      {"having",
       "SELECT Client_ID, Sum(Price) AS Total FROM Jobs GROUP BY Client_ID HAVING Count(*) > 1",
       "1|110.1"},
      {"an expression is grouped",
       "SELECT Left(Status,1), Count(*) FROM Jobs GROUP BY Left(Status,1) ORDER BY "
       "Count(*)",
       "J|4"},
      {"a maximum within IIf",
       "SELECT IIF(MAX(Position) IS NULL, 0, MAX(Position)) FROM Jobs WHERE Job_ID = 99", "0"},
      {"a share of the rows", "SELECT TOP 50 PERCENT Job_ID FROM Jobs", "1 / 2"},
      {"a part of a row", "SELECT TOP 26 PERCENT Job_ID FROM Jobs", "1 / 2"},
      {"no row at all", "SELECT TOP 0 PERCENT Job_ID FROM Jobs", ""},
      {"a share and its ties", "SELECT TOP 25 PERCENT Job_ID FROM Jobs ORDER BY Day DESC", "2 / 3"},
      {"a share of distinct rows",
       "SELECT DISTINCT TOP 50 PERCENT Client_ID FROM Jobs ORDER BY Client_ID DESC", "9 / 2"},
      {"a row for each row of the tables that are shown",
       "SELECT DISTINCTROW Clients.Active FROM Clients INNER JOIN Jobs ON Clients.Client_ID = "
       "Jobs.Client_ID ORDER BY Clients.Client_ID",
       "True / False"},
      {"a row for each where all tables are shown",
       "SELECT DISTINCTROW Name, Job_ID FROM Clients INNER JOIN Jobs ON Clients.Client_ID = "
       "Jobs.Client_ID",
       "Adams|1 / Adams|2 / baker|3"},
      {"a row for each where no table is shown",
       "SELECT DISTINCTROW 1 FROM Clients, Jobs WHERE Job_ID = 1", "1 / 1 / 1"},
      {"the rows that are shown are summed",
       "SELECT DISTINCTROW Sum(Balance) FROM Clients INNER JOIN Jobs ON Clients.Client_ID = "
       "Jobs.Client_ID",
       "2464"},
      {"an alias within the select",
       "SELECT Price * 2 AS Twice, Twice + 1 AS More, Left(Word, 1) & More AS Said, 'ab' AS Word "
       "FROM Jobs WHERE Job_ID = 1",
       "220|221|a221|ab"},
      {"an alias of a sum, in the order too",
       "SELECT Client_ID, Sum(Position) AS Places, Places * 2 AS Doubled FROM Jobs GROUP BY "
       "Client_ID ORDER BY Places - 10, Client_ID",
       "9|NULL|NULL / 2|2|4 / 1|3|6"},
      {"a column before an alias of its name",
       "SELECT Client_ID AS Position, Position + 1 FROM Jobs WHERE Job_ID = 1", "1|3"},
      {"an ordinal", "SELECT Job_ID, Price FROM Jobs WHERE Price > 0 ORDER BY 2 DESC",
       "1|110 / 3|0.2 / 2|0.1"},
  });
  std::string longChain = "SELECT Job_ID FROM Jobs WHERE Job_ID = 1";
  for (int i = 0; i < 200; ++i) longChain += " OR Job_ID = 1";
  EXPECT_EQ(Shown(file_.Run(longChain)), "1");
}
}  // namespace
}  // namespace quillary::jet
