#include "data/jet/Parser.h"

#include <algorithm>
#include <array>

namespace quillary::jet {
namespace {

// Real statements nest some six levels deep.
constexpr int kDeepestNesting = 150;

// Words that no name is spelt with unless it stands in brackets: those that go on or end a clause.
constexpr std::array<std::string_view, 32> kReserved{
    "SELECT", "FROM",  "WHERE", "GROUP", "ORDER", "HAVING", "UNION",   "JOIN",
    "INNER",  "LEFT",  "RIGHT", "ON",    "AND",   "OR",     "XOR",     "NOT",
    "IN",     "IS",    "LIKE",  "AS",    "SET",   "VALUES", "INTO",    "NULL",
    "TRUE",   "FALSE", "YES",   "NO",    "BY",    "EXISTS", "BETWEEN", "MOD"};

}  // namespace

Parser::Level::Level(Parser& parser) : parser_(parser) {
  if (++parser_.level_ > kDeepestNesting) {
    --parser_.level_;
    parser_.Fail(parser_.Peek(), "this is nested too deeply");
  }
}

Parser::Parser(const CutStatement& statement)
    : statement_(statement), tokens_(Tokenize(statement)) {}

Statement Parser::Parse() {
  const auto parse = [&]() -> Statement {
    if (AtWord("SELECT") || AtSign("(")) return std::move(*ParseSelect());
    if (AtWord("INSERT")) return ParseInsert();
    if (AtWord("UPDATE")) return ParseUpdate();
    if (AtWord("DELETE")) return ParseDelete();
    if (AtWord("CREATE")) return ParseCreate();
    if (AtWord("ALTER")) return ParseAlter();
    if (AtWord("DROP")) return ParseDrop();
    Fail(Peek(), "this begins no statement");
  };
  Statement statement = parse();
  TakeSign(";");
  if (Peek().kind != Token::Kind::End) Fail(Peek(), "the statement should end here");
  return statement;
}

const Token& Parser::Peek(size_t ahead) const {
  return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

const Token& Parser::Next() {
  const Token& token = Peek();
  if (at_ + 1 < tokens_.size()) ++at_;
  return token;
}

bool Parser::TakeWord(std::string_view word) {
  if (!AtWord(word)) return false;
  Next();
  return true;
}

bool Parser::TakeSign(std::string_view sign) {
  if (!AtSign(sign)) return false;
  Next();
  return true;
}

const Token& Parser::ExpectWord(std::string_view word) {
  if (!AtWord(word)) Fail(Peek(), std::string(word) + " is missing");
  return Next();
}

void Parser::ExpectSign(std::string_view sign) {
  if (!TakeSign(sign)) Fail(Peek(), "\"" + std::string(sign) + "\" is missing");
}

bool Parser::AtName(size_t ahead) const {
  const Token& token = Peek(ahead);
  if (token.kind == Token::Kind::Name) return !token.text.empty();
  if (token.kind != Token::Kind::Word) return false;
  return std::none_of(kReserved.begin(), kReserved.end(),
                      [&](std::string_view word) { return token.IsWord(word); });
}

const Token& Parser::ExpectName(const char* ofWhat) {
  if (!AtName()) Fail(Peek(), std::string("the name of ") + ofWhat + " is missing");
  return Next();
}

int Parser::ExpectLiteral(Mark mark, const char* ofWhat) {
  const bool wide = mark == Mark::Text && Peek().mark == Mark::WideText;
  if (Peek().kind != Token::Kind::Literal || (Peek().mark != mark && !wide)) {
    Fail(Peek(), std::string(ofWhat) + " is missing");
  }
  return Next().literal;
}

void Parser::Fail(const Token& token, const std::string& what) const {
  FailAt(statement_, token, what);
}

Insert Parser::ParseInsert() {
  Insert insert;
  insert.token = ExpectWord("INSERT");
  ExpectWord("INTO");
  insert.token = ExpectName("a table");
  insert.table = NameOf(insert.token);
  if (AtSign("(") && !AtWord("SELECT", 1)) {
    ExpectSign("(");
    do {
      const Token* name = &ExpectName("a column");
      if (TakeSign(".")) name = &ExpectName("a column");
      insert.columns.push_back(*name);
    } while (TakeSign(","));
    ExpectSign(")");
  }
  if (!TakeWord("VALUES")) {
    insert.select = AtSign("(") ? ParseSelectInParentheses() : ParseSelect();
    return insert;
  }
  ExpectSign("(");
  do {
    insert.values.push_back(ParseExpression());
  } while (TakeSign(","));
  ExpectSign(")");
  return insert;
}

Update Parser::ParseUpdate() {
  Update update;
  update.token = ExpectWord("UPDATE");
  TakeWord("DISTINCTROW");  // each row is changed once whatever is joined to it
  update.from = ParseSources(nullptr);
  ExpectWord("SET");
  do {
    Update::Assignment assignment;
    assignment.token = ExpectName("a column");
    if (TakeSign(".")) {
      assignment.qualifier = NameOf(assignment.token);
      assignment.token = ExpectName("a column");
    }
    assignment.name = NameOf(assignment.token);
    ExpectSign("=");
    assignment.value = ParseExpression();
    update.assignments.push_back(std::move(assignment));
  } while (TakeSign(","));
  if (TakeWord("WHERE")) update.where = ParseExpression();
  return update;
}

Delete Parser::ParseDelete() {
  Delete statement;
  statement.token = ExpectWord("DELETE");
  TakeWord("DISTINCTROW");
  if (!TakeSign("*") && !AtWord("FROM")) {
    statement.token = ExpectName("a table");
    statement.target = NameOf(statement.token);
    ExpectSign(".");
    ExpectSign("*");
  }
  ExpectWord("FROM");
  statement.from = ParseSources(nullptr);
  if (TakeWord("WHERE")) statement.where = ParseExpression();
  return statement;
}

}  // namespace quillary::jet
