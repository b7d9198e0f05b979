#include "data/jet/ScratchFile.h"

#include <gtest/gtest.h>

namespace quillary::jet {
namespace {

class WritingTest : public ::testing::Test {
 protected:
  std::string RowsAfter(const char* statement, const char* query) {
    file_.Run(statement);
    return Shown(file_.Run(query));
  }

  ScratchFile file_;
};

TEST_F(WritingTest, InsertsConvertIntoTheColumns) {
  file_.Run(
      "CREATE TABLE t (Id Counter, Name TEXT(5), Amount CURRENCY, Done YESNO, Day DATE, Share "
      "SINGLE, "
      "Many LONG, Notes MEMO)");
  const char* const all = "SELECT * FROM t WHERE Id = (SELECT Max(Id) FROM t)";
  EXPECT_EQ(
      RowsAfter("INSERT INTO t VALUES (7, 12.50, '1,234.50', Null, '2019-03-05', .125, 2.5, 3)",
                all),
      "7|12.5|1234.5|False|2019-03-05 00:00:00|0.125|2|3");
  EXPECT_EQ(RowsAfter("INSERT INTO t (Name) VALUES ('a longer text than fits');", all),
            "8|a longer text than fits|NULL|False|NULL|NULL|NULL|NULL");
  EXPECT_EQ(
      RowsAfter("INSERT INTO t (Done, Many, [Name]) VALUES (-1, '3.5', #2019/3/5 14:7:9#)", all),
      "9|5/03/2019 2:07:09 PM|NULL|True|NULL|NULL|4|NULL");
  EXPECT_EQ(
      RowsAfter("INSERT INTO t (Amount, Done, Name) SELECT Many, Many, Many FROM t WHERE Id = 9",
                all),
      "10|4|4|True|NULL|NULL|NULL|NULL");
  EXPECT_EQ(
      RowsAfter("INSERT INTO t (Amount, Name) SELECT TOP 1 '$5', 'x' FROM t ORDER BY Id DESC", all),
      "11|x|5|False|NULL|NULL|NULL|NULL");
  file_.Run("DELETE FROM t WHERE Id = 11");
  EXPECT_EQ(RowsAfter("INSERT INTO t (Done) SELECT b.Done FROM t AS a LEFT JOIN t AS b ON b.Id = "
                      "a.Many WHERE a.Id = 9",
                      all),
            "12|NULL|NULL|False|NULL|NULL|NULL|NULL")
      << "a missing row's yes or no is no";
  file_.Run("DELETE FROM t WHERE Id = 12");
  EXPECT_EQ(RowsAfter("INSERT INTO t (Name) VALUES (null)", "SELECT MAX(Id) FROM t"), "13")
      << "a counter value was handed out twice";
  for (const char* refused :
       {"INSERT INTO t (Amount) VALUES ('twelve')", "INSERT INTO t (Day) VALUES ('31/2/2019')",
        "INSERT INTO t (Many) SELECT Name FROM t WHERE Id = 8"}) {
    EXPECT_THROW(file_.Run(refused), std::runtime_error) << refused;
  }
}

class JoinedWritingTest : public WritingTest {
 protected:
  void SetUp() override {
    file_.RunAll(R"(CREATE TABLE Payments (Payment_ID Counter, Amount CURRENCY, Day DATE)
CREATE TABLE Entries (Entry_ID Counter, Payment_ID LONG, Account_ID LONG, Amount CURRENCY, Open
  YESNO)
CREATE TABLE Jobs (Job_ID Counter, Payment_ID LONG, Account_ID LONG, c1 LONG)
INSERT INTO Payments (Amount) VALUES (10)
INSERT INTO Payments (Amount) VALUES (20)
INSERT INTO Entries (Payment_ID, Account_ID) VALUES (1, 0)
INSERT INTO Entries (Payment_ID) VALUES (1)
INSERT INTO Entries (Payment_ID, Account_ID) VALUES (3, 5)
INSERT INTO Entries (Account_ID) VALUES (6)
INSERT INTO Jobs (Payment_ID, Account_ID) VALUES (1, 8)
INSERT INTO Jobs (Payment_ID, Account_ID) VALUES (2, 9))");
  }
};

TEST_F(JoinedWritingTest, UpdateChangesTheTableThatSetNames) {
  const char* const entries = "SELECT Entry_ID, Account_ID, Amount FROM Entries ORDER BY Entry_ID";
  EXPECT_EQ(
      RowsAfter("UPDATE Entries LEFT JOIN Payments ON Entries.Payment_ID = Payments.Payment_ID "
                "SET Entries.Amount = IIf(IsNull(Payments.Amount), -1, Payments.Amount)",
                entries),
      "1|0|10 / 2|NULL|10 / 3|5|-1 / 4|6|-1")
      << "rows without a match are updated too";
  EXPECT_EQ(
      RowsAfter("UPDATE (Payments LEFT JOIN Entries ON Payments.Payment_ID = Entries.Payment_ID) "
                "INNER JOIN Jobs ON Payments.Payment_ID = Jobs.Payment_ID Set "
                "Entries.Account_ID = Jobs.Account_ID Where (((Entries.Account_ID) = 0)) Or "
                "(((IsNull([Entries].[Account_ID])) <> False))",
                entries),
      "1|8|10 / 2|8|10 / 3|5|-1 / 4|6|-1")
      << "the null side of the join gains no row";
  EXPECT_EQ(
      RowsAfter("UPDATE Entries AS e SET Account_ID = e.Account_ID + 1, Amount = '$2.50' WHERE "
                "e.Payment_ID IN (SELECT Payment_ID FROM Payments)",
                entries),
      "1|9|2.5 / 2|9|2.5 / 3|5|-1 / 4|6|-1");
  EXPECT_EQ(RowsAfter("UPDATE Entries INNER JOIN Entries AS other ON Entries.Payment_ID = "
                      "other.Payment_ID SET other.Open = Yes WHERE Entries.Entry_ID = 1",
                      "SELECT Entry_ID FROM Entries WHERE Open = True"),
            "1 / 2");
}

TEST_F(JoinedWritingTest, DeleteRemovesRowsOfTheNamedTableOnly) {
  const char* const entries = "SELECT Entry_ID FROM Entries ORDER BY Entry_ID";
  EXPECT_EQ(
      RowsAfter(
          "DELETE Entries.* FROM Payments RIGHT JOIN Entries ON Payments.Payment_ID = "
          "Entries.Payment_ID WHERE Isnull(Entries.Account_ID) AND Isnull(Payments.Payment_ID)",
          entries),
      "1 / 2 / 3 / 4");
  EXPECT_EQ(RowsAfter("DELETE Entries.* FROM Payments RIGHT JOIN Entries ON Payments.Payment_ID = "
                      "Entries.Payment_ID WHERE Isnull(Payments.Payment_ID);",
                      entries),
            "1 / 2");
  EXPECT_EQ(Shown(file_.Run("SELECT Count(*) FROM Payments")), "2");
  EXPECT_EQ(RowsAfter("DELETE e.* FROM Entries e INNER JOIN Jobs ON e.Payment_ID = Jobs.Payment_ID "
                      "WHERE e.Account_ID = 0",
                      entries),
            "2");
  EXPECT_EQ(RowsAfter("DELETE * FROM Entries", entries), "");
}

TEST_F(JoinedWritingTest, SelectIntoTellsTheTableToMake) {
  const CutStatement cut = CutLiterals(
      "SELECT Entries.*, Payments.Day INTO Kept IN 'ö.mdb' FROM Entries LEFT JOIN "
      "Payments ON Entries.Payment_ID = Payments.Payment_ID WHERE Entry_ID < 3");
  const Translation translation = Translate(cut, file_);
  ASSERT_TRUE(translation.into);
  EXPECT_EQ(translation.into->table, u"Kept");
  EXPECT_EQ(translation.into->file, u"ö.mdb");
  EXPECT_FALSE(translation.givesRows || translation.mayBeCached || translation.sourceFile);
  ASSERT_EQ(translation.into->columns.size(), 6u);
  EXPECT_EQ(translation.into->columns[0].type, ColumnType::Long);
  EXPECT_EQ(translation.into->columns[5].type, ColumnType::Date);
  EXPECT_EQ(file_.Run(cut, translation).size(), 2u);
  EXPECT_THROW(file_.Run("SELECT * INTO Jobs FROM Entries"), StatementError);
}

TEST_F(JoinedWritingTest, SelectReadsTheFileThatFromNames) {
  ScratchFile other;
  other.Run("CREATE TABLE Moved (Moved_ID Counter, Status TEXT(20))");
  file_.AddFile(QStringLiteral("C:\\DATA.MDB"), &other);
  const Translation translation = Translate(
      CutLiterals(
          "SELECT * INTO Moved FROM Moved IN \"C:\\DATA.MDB\" WHERE Status = 'Transferred';"),
      file_);
  EXPECT_EQ(translation.sourceFile, u"C:\\DATA.MDB");
  EXPECT_FALSE(translation.into->file);
  EXPECT_EQ(translation.into->columns.size(), 2u);
  for (const char* refused :
       {"SELECT * INTO Moved FROM Moved IN 'gone.mdb'",
        "INSERT INTO Jobs (Job_ID) SELECT Moved_ID FROM Moved IN 'C:\\DATA.MDB'",
        "SELECT 1 FROM Jobs WHERE 1 IN (SELECT Moved_ID FROM Moved IN 'C:\\DATA.MDB')"}) {
    EXPECT_THROW(file_.Run(refused), StatementError) << refused;
  }
}

TEST_F(WritingTest, ColdAndWarmTranslationsAgree) {
  file_.Run("CREATE TABLE t (Id Counter, Name TEXT(5), Amount CURRENCY, Day DATE)");
  const char* const texts[][2] = {
      {"INSERT INTO t (Name, Amount, Day) VALUES ('a', 1, #2019/3/5#)",
       "INSERT INTO t (Name, Amount, Day) VALUES ('O''B', 20, #2020/12/31 23:59:00#)"},
      {"SELECT Name FROM t WHERE Amount = -1 OR Day BETWEEN #2019/1/1# AND #2019/12/31#",
       "SELECT Name FROM t WHERE Amount = -7 OR Day BETWEEN #2020/1/1# AND #2020/12/31 23:59:00#"},
      {"SELECT TOP 1 Id FROM t ORDER BY Id", "SELECT TOP 2 Id FROM t ORDER BY Id"},
      {"SELECT Name & 'x' FROM t WHERE Id IN (1, 5)",
       "SELECT Name & 'yz' FROM t WHERE Id IN (9, 2)"}};
  for (const auto& pair : texts) {
    const CutStatement first = CutLiterals(pair[0]);
    const CutStatement second = CutLiterals(pair[1]);
    EXPECT_EQ(first.shape, second.shape) << pair[1];
    const Translation warm = Translate(first, file_);
    ASSERT_TRUE(warm.mayBeCached);
    file_.Run(first, warm);
    const Translation cold = Translate(second, file_);
    EXPECT_EQ(warm.statements, cold.statements);
    if (cold.givesRows) {
      EXPECT_EQ(file_.Run(second, warm), file_.Run(second, cold)) << pair[1];
    } else {
      file_.Run(second, warm);
    }
  }
  EXPECT_EQ(Shown(file_.Run("SELECT Name, Amount FROM t WHERE Id > 1")), "O'B|20");
  EXPECT_FALSE(Translate(CutLiterals("SELECT Name FROM t ORDER BY 1"), file_).mayBeCached);
}

}  // namespace
}  // namespace quillary::jet
