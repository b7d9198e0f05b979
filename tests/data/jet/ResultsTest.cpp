#include "data/jet/RoutineTexts.h"
#include "data/jet/ScratchFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <stdexcept>

namespace quillary::jet {
namespace {

/// One case of results.txt, whose head tells what the marks mean.
struct StatementCase {
  int line = 0;
  std::vector<std::string> before;
  std::string statement;
  std::string check;
  std::string expected;
  bool refused = false;
  bool awaited = false;
};

std::ifstream Open(const std::string& name) {
  return std::ifstream(std::string(QUILLARY_TEST_DATA) + "/jet/" + name);
}

void Take(StatementCase& into, const std::string& line, int number) {
  const std::string rest = line.size() > 2 ? line.substr(2) : std::string();
  switch (line.front()) {
    case '#':
      break;
    case '<':
      into.before.push_back(rest);
      break;
    case '?':
      into.check = rest;
      break;
    case '=':
      into.expected = rest;
      break;
    case '!':
      into.refused = true;
      break;
    case '~':
      into.awaited = true;
      [[fallthrough]];
    default:
      into.statement = into.awaited ? rest : line;
      into.line = number;
  }
}

std::vector<StatementCase> Cases() {
  std::vector<StatementCase> cases;
  std::ifstream stream = Open("results.txt");
  StatementCase next;
  int number = 0;
  for (std::string line; std::getline(stream, line);) {
    ++number;
    if (!line.empty()) {
      Take(next, line, number);
    } else if (!next.statement.empty()) {
      cases.push_back(std::exchange(next, StatementCase()));
    }
  }
  if (!next.statement.empty()) cases.push_back(next);
  return cases;
}

void FillWith(ScratchFile& file, const char* name) {
  std::ifstream stream = Open(name);
  for (std::string line; std::getline(stream, line);) file.Run(line);
}

/// What the case comes to: its rows, or "refused" for the statement that is asked last.
std::string Answer(const StatementCase& each) {
  ScratchFile file;
  FillWith(file, "business.sql");
  FillWith(file, "rows.sql");
  for (const std::string& statement : each.before) file.Run(statement);
  if (!each.check.empty()) file.Run(each.statement);
  try {
    return Shown(file.Run(each.check.empty() ? each.statement : each.check));
  } catch (const std::runtime_error&) {
    return "refused";
  }
}

TEST(ResultsTest, EveryStatementComesToWhatItShould) {
  const std::vector<StatementCase> cases = Cases();
  ASSERT_GT(cases.size(), 150u);
  for (const StatementCase& each : cases) {
    EXPECT_EQ(Answer(each), each.refused ? "refused" : each.expected)
        << "results.txt:" << each.line << ": " << each.statement;
  }
}

// What is tried here is what the routines send, and not what somebody copied from them once.
TEST(ResultsTest, EveryStatementIsARoutinesOwn) {
  const RoutineTexts routines;
  for (const StatementCase& each : Cases()) {
    const std::string source = routines.SourceOf(each.statement);
    if (each.awaited) {
      EXPECT_EQ(source, "") << "results.txt:" << each.line
                            << ": take the mark off: " << each.statement;
    } else {
      EXPECT_NE(source, "") << "results.txt:" << each.line
                            << ": no routine has this: " << each.statement;
    }
  }
}

}  // namespace
}  // namespace quillary::jet
