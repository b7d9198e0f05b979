#include "data/jet/ScratchFile.h"
#include "data/store/TextOrder.h"

#include <gtest/gtest.h>

namespace quillary::jet {
namespace {

class TextsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    file_.RunAll(R"(CREATE TABLE People (Id Counter, Name TEXT(50), Town MEMO, Status TEXT(2))
CREATE TABLE Towns (Town TEXT(50), Rank LONG)
CREATE INDEX ByStatus ON People (Status)
INSERT INTO People (Name, Town, Status) VALUES ('Zoë', 'Kew', 'J')
INSERT INTO People (Name, Town, Status) VALUES ('ZOË', 'KÖLN', 'j')
INSERT INTO People (Name, Town, Status) VALUES ('Óscar', 'köln', 'JD')
INSERT INTO People (Name, Town, Status) VALUES ('oscar', ' kew', 'É')
INSERT INTO People (Name, Town) VALUES ('Paul', 'Łódź')
INSERT INTO Towns VALUES ('Köln', 1)
INSERT INTO Towns VALUES ('ŁÓDŹ', 2))");
  }

  std::string PlanOf(const char* statement) {
    const Translation translation = Translate(CutLiterals(statement), file_);
    return Shown(file_.Raw("EXPLAIN QUERY PLAN " + translation.statements.front()));
  }

  ScratchFile file_;
};

TEST_F(TextsTest, CaseCountsNowhereButBesideUCase) {
  const char* const cases[][3] = {
      {"case of a letter beyond ASCII", "Name = 'zoë'", "1 / 2"},
      {"an accent makes no difference", "Name = 'zoe'", ""},
      {"a literal on the left", "'ZoË' = Name", "1 / 2"},
      {"an expression minds case", "Trim(Town) = 'KEW'", "1 / 4"},
      {"an expression on the right", "'KEW' = Trim(Town)", "1 / 4"},
      {"the first letter", "Left(Status, 1) = 'J'", "1 / 2 / 3"},
      {"a joined text", "Name & '' <> 'ZOË' AND Name & Town <> 'paulŁÓDŹ'", "3 / 4"},
      {"a choice", "IIf(Id = 1, 'One', Status) = 'oNE'", "1"},
      {"two columns", "Name = Name & ''", "1 / 2 / 3 / 4 / 5"},
      {"two literals", "'É' = 'é' AND 'a' = 'A' AND Id = 1", "1"},
      {"a list", "Name IN ('ZOË', 'PAUL')", "1 / 2 / 5"},
      {"a list of expressions", "LEFT(Name, 3) IN ('zoë', UCase('pau'))", "1 / 2 / 5"},
      {"a list that excludes", "Town NOT IN ('KÖLN', 'kew')", "4 / 5"},
      {"a select", "Town IN (SELECT Town FROM Towns)", "2 / 3 / 5"},
      {"a select of expressions", "Town & '!' IN (SELECT UCase(Town) & '!' FROM Towns)",
       "2 / 3 / 5"},
      {"the value of a select", "Town = (SELECT Town FROM Towns WHERE Rank = 2)", "5"},
      {"a range beyond the plain letter", "Name BETWEEN 'OSCAR' AND 'p'", "3 / 4"},
      {"a sort order", "Name < 'P'", "3 / 4"},
      {"a pattern", "Name LIKE 'Z?Ë' OR Town LIKE '*ódŹ'", "1 / 2 / 5"},
      {"UCase beside a word", "UCase(Name) = 'PAUL'", "5"},
      {"UCase beside a word in mixed case", "UCase(Name) = 'Paul'", ""},
      {"a word in mixed case beside UCase", "'Paul' = UCase(Name)", ""},
      {"UCase beside a word beyond ASCII", "UCase(Name) = 'Zoë'", ""},
      {"UCase in a list", "UCase(Name) IN ('Paul', 'ZOË')", "1 / 2"},
      {"LCase beside a word", "LCase(Name) <> 'Paul' AND Id > 3", "4 / 5"},
      {"UCase beside a column", "UCase(Town) = Town AND Id = 2", "2"},
      {"UCase beside a column in other case", "UCase(Name) = Name AND Id = 1", "1"},
  };
  for (const auto& [fault, condition, ids] : cases) {
    SCOPED_TRACE(fault);
    EXPECT_EQ(
        Shown(file_.Run("SELECT Id FROM People WHERE " + std::string(condition) + " ORDER BY Id")),
        ids);
  }
}

TEST_F(TextsTest, RowsAreSortedAndGatheredAlike) {
  const char* const cases[][3] = {
      {"sorted by a column", "SELECT Id FROM People ORDER BY Name, Id", "4 / 3 / 5 / 1 / 2"},
      {"sorted by an expression", "SELECT Id FROM People ORDER BY Name & '' DESC, Id",
       "1 / 2 / 5 / 3 / 4"},
      {"ties of the first", "SELECT TOP 1 Id FROM People ORDER BY Name DESC", "1 / 2"},
      {"ties of distinct rows", "SELECT DISTINCT TOP 1 Town FROM People ORDER BY Town DESC",
       "Łódź"},
      {"distinct", "SELECT Count(*) FROM (SELECT DISTINCT Town FROM People) AS t", "4"},
      {"grouped by a column", "SELECT Count(*), Max(Name) FROM People GROUP BY Name ORDER BY Name",
       "1|oscar / 1|Óscar / 1|Paul / 2|Zoë"},
      {"grouped by an expression",
       "SELECT Count(*) FROM People GROUP BY Left(Status, 1) ORDER BY Left(Status, 1)",
       "1 / 1 / 3"},
      {"the least and the greatest", "SELECT Min(Name), Max(Name) FROM People WHERE Id <> 2",
       "oscar|Zoë"},
      {"a union",
       "SELECT Count(*) FROM (SELECT Town FROM People WHERE Id = 3 UNION SELECT UCase(Town) FROM "
       "Towns) AS t",
       "2"},
      {"a join",
       "SELECT Id, Rank FROM People LEFT JOIN Towns ON People.Town = Towns.Town WHERE Id > 1 "
       "ORDER BY Id",
       "2|1 / 3|1 / 4|NULL / 5|2"},
  };
  for (const auto& [fault, statement, rows] : cases) {
    SCOPED_TRACE(fault);
    EXPECT_EQ(Shown(file_.Run(statement)), rows);
  }
}

TEST_F(TextsTest, IndexesServeWordsOfAscii) {
  for (const char* served : {"Status = 'J'", "'J' = Status", "Status IN ('J', 'jd')"}) {
    EXPECT_NE(PlanOf(("SELECT Id FROM People WHERE " + std::string(served)).c_str())
                  .find("SEARCH People USING COVERING INDEX ByStatus"),
              std::string::npos)
        << served;
  }
  EXPECT_EQ(Shown(file_.Run("SELECT Id FROM People WHERE Status = 'é'")), "4");
}

TEST_F(TextsTest, TheFileNamesNothingThatOtherToolsLack) {
  file_.RunAll(R"(ALTER TABLE People ALTER COLUMN Status TEXT(5)
CREATE UNIQUE INDEX ByName ON People (Name, Id)
ALTER TABLE Towns ADD COLUMN Id Counter)");
  EXPECT_EQ(
      Shown(file_.Raw("SELECT count(*) FROM sqlite_master WHERE sql LIKE '%q\\_%' ESCAPE '\\'")),
      "0");
}

TEST(TextOrder, IsOneOrder) {
  // Ascending; neighbours in one line are equal.
  const std::vector<std::vector<const char*>> order{
      {""},       {" "},       {"1"},      {"A", "a"},   {"Á", "á", "A\u0301"},
      {"ab"},     {"áb"},      {"ad"},     {"æ", "Æ"},   {"az"},
      {"O"},      {"ó", "Ó"},  {"Oa"},     {"Óa"},       {"ob"},
      {"Øc"},     {"Strasse"}, {"straße"}, {"strassen"}, {"z"},
      {"Ж", "ж"}, {"日"},
  };
  for (size_t i = 0; i < order.size(); ++i) {
    for (size_t j = 0; j < order.size(); ++j) {
      for (const char* left : order[i]) {
        for (const char* right : order[j]) {
          const int compared = CompareTexts(left, right);
          EXPECT_EQ((compared > 0) - (compared < 0), (i > j) - (i < j)) << left << " " << right;
        }
      }
    }
  }
}

}  // namespace
}  // namespace quillary::jet
