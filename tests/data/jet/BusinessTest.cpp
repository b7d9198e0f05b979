#include "data/jet/ScratchFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>

namespace quillary::jet {
namespace {

std::vector<std::string> LinesOf(const std::string& name) {
  std::ifstream stream(std::string(QUILLARY_TEST_DATA) + "/jet/" + name);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

class BusinessStatements : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const std::string& line : LinesOf("business.sql")) file_.Run(line);
  }

  ScratchFile file_;
};

TEST_F(BusinessStatements, AllRunOnTheTablesOfABusiness) {
  const std::vector<std::string> statements = LinesOf("statements.sql");
  ASSERT_GT(statements.size(), 200u);
  for (const std::string& statement : statements) {
    EXPECT_NO_THROW(file_.Run(statement)) << statement;
  }
}

TEST_F(BusinessStatements, ColumnsCarryNamesAndTypes) {
  const auto columns = [&](const char* text) {
    std::string all;
    for (const ResultColumn& column : Translate(CutLiterals(text), file_).columns) {
      all += (all.empty() ? "" : ", ") + column.name.toStdString() + ":" +
             std::to_string(static_cast<int>(column.type));
    }
    return all;
  };
  EXPECT_EQ(columns("SELECT cs.*, s.Service_Code FROM lstBanks cs, Services s"),
            "Bank_ID:0, Bank:7, Service_Code:7");
  EXPECT_EQ(
      columns("SELECT Diary.Status, Clients.Status, Total_Price FROM Diary INNER JOIN Clients ON "
              "Diary.Client_ID = Clients.Client_ID"),
      "Diary.Status:7, Clients.Status:7, Total_Price:4");
  EXPECT_EQ(columns("SELECT Suburb, Post_Code, Suburb FROM Clients"),
            "Suburb:7, Post_Code:7, Suburb:7");
  EXPECT_EQ(columns("SELECT Count(*), Max(Schedule_Date) AS Last, Sum(Total_Price), Sum(Sequence), "
                    "Avg(Sequence)"
                    " FROM Diary"),
            "Expr1000:1, Last:5, Expr1001:4, Expr1002:1, Expr1003:3");
  EXPECT_EQ(
      columns(
          "SELECT Total_Price / 2, Total_Price * 2, Total_Price * 1.5, IIf(Sequence = 1, 0, 'a'), "
          "IsNull(Notes), Nz(Notes, ''), Schedule_Date + 1, IIf(Sequence = 1, Total_Price, 0) FROM "
          "Diary"),
      "Expr1000:3, Expr1001:4, Expr1002:3, Expr1003:7, Expr1004:6, Expr1005:8, Expr1006:5, "
      "Expr1007:4");
}

/// Whatever comes of a text, it must be an answer or a refusal.
void Endure(ScratchFile& file, const std::string& text) {
  try {
    const CutStatement cut = CutLiterals(text);
    file.Run(cut, Translate(cut, file));
  } catch (const std::runtime_error&) {
    return;
  }
}

TEST_F(BusinessStatements, MutationsAreAnsweredOrRefused) {
  const std::vector<std::string> statements = LinesOf("statements.sql");
  std::mt19937 random(20261102);
  const auto pick = [&](size_t count) { return static_cast<size_t>(random()) % count; };
  const std::vector<std::string> pieces{
      "(",     ")",       "'",       "\"",   "#",     "[",         "]",        ",",
      ".",     "*",       "-",       "NOT ", " IN ",  " SELECT ",  " FROM ",   "IIf(",
      " AND ", "\x01",    "\xC3",    "{}",   ";",     " IS NULL",  "5",        "1e9",
      " AS ",  " UNION ", " TOP 1 ", "Null", "=",     " BETWEEN ", " & ",      "\\",
      " Mod ", " JOIN ",  " ON ",    "Sum(", "Left(", " SET ",     " VALUES ", "\n"};
  for (int round = 0; round < 4000; ++round) {
    std::string text = statements[pick(statements.size())];
    for (size_t change = pick(3) + 1; change > 0 && !text.empty(); --change) {
      const size_t at = pick(text.size());
      switch (pick(4)) {
        case 0:
          text.erase(at, pick(12) + 1);
          break;
        case 1:
          text.insert(at, pieces[pick(pieces.size())]);
          break;
        case 2:
          text[at] = static_cast<char>(random());
          break;
        default: {
          const std::string& other = statements[pick(statements.size())];
          text = text.substr(0, at) + other.substr(pick(other.size()));
        }
      }
    }
    Endure(file_, text);
  }
}

TEST_F(BusinessStatements, RandomWordsAreAnsweredOrRefused) {
  const std::vector<std::string> words{"SELECT",
                                       "FROM",
                                       "WHERE",
                                       "Diary",
                                       "Clients",
                                       "Diary_ID",
                                       "Client_ID",
                                       "Status",
                                       "Total_Price",
                                       "(",
                                       ")",
                                       "(",
                                       ")",
                                       ",",
                                       "=",
                                       "<>",
                                       "AND",
                                       "OR",
                                       "NOT",
                                       "*",
                                       "+",
                                       "-",
                                       "&",
                                       "'J'",
                                       "5",
                                       ".1",
                                       "#2026/11/2#",
                                       "True",
                                       "Null",
                                       "IN",
                                       "IS",
                                       "LIKE",
                                       "BETWEEN",
                                       "INNER",
                                       "LEFT",
                                       "JOIN",
                                       "ON",
                                       "GROUP",
                                       "BY",
                                       "ORDER",
                                       "DESC",
                                       "TOP",
                                       "DISTINCT",
                                       "AS",
                                       "x",
                                       "Count",
                                       "Max",
                                       "IIf",
                                       "IsNull",
                                       "Left",
                                       "UNION",
                                       "ALL",
                                       "INSERT",
                                       "INTO",
                                       "VALUES",
                                       "UPDATE",
                                       "SET",
                                       "DELETE",
                                       ".",
                                       "HAVING",
                                       "Schedule_Date",
                                       "Sequence",
                                       ";"};
  std::mt19937 random(7);
  for (int round = 0; round < 6000; ++round) {
    std::string text = round % 2 == 0 ? "SELECT " : "SELECT Diary_ID FROM Diary WHERE ";
    for (size_t length = random() % 20 + 1; length > 0; --length) {
      text += words[random() % words.size()] + " ";
    }
    Endure(file_, text);
  }
}

}  // namespace
}  // namespace quillary::jet
