#include "data/jet/Parser.h"

#include <algorithm>
#include <array>

namespace quillary::jet {
namespace {

// SQLite refuses expressions more than 1000 levels deep, counting what is added on the way.
constexpr int kDeepestExpression = 300;

struct Rank {
  std::string_view sign;
  Operator op;
  int power;
};

// The more power, the closer an operator ties its operands.
constexpr int kNotBinding = 4;
constexpr int kCompareBinding = 5;
constexpr int kNegatePower = 11;
constexpr std::array<Rank, 17> kRanks{{
    {"XOR", Operator::Xor, 1},
    {"OR", Operator::Or, 2},
    {"AND", Operator::And, 3},
    {"=", Operator::Equal, kCompareBinding},
    {"<>", Operator::NotEqual, kCompareBinding},
    {"<", Operator::Less, kCompareBinding},
    {"<=", Operator::LessOrEqual, kCompareBinding},
    {">", Operator::Greater, kCompareBinding},
    {">=", Operator::GreaterOrEqual, kCompareBinding},
    {"LIKE", Operator::Like, kCompareBinding},
    {"&", Operator::Join, 6},
    {"+", Operator::Add, 7},
    {"-", Operator::Subtract, 7},
    {"MOD", Operator::Modulo, 8},
    {"\\", Operator::WholeDivide, 9},
    {"*", Operator::Multiply, 10},
    {"/", Operator::Divide, 10},
}};

const Rank* RankOf(const Token& token) {
  for (const Rank& rank : kRanks) {
    if (token.IsSign(rank.sign) || token.IsWord(rank.sign)) return &rank;
  }
  return nullptr;
}

}  // namespace

ExpressionPtr Parser::Make(Expression::Kind kind, const Token& token) {
  auto expression = std::make_unique<Expression>();
  expression->kind = kind;
  expression->token = token;
  return expression;
}

void Parser::Add(Expression& parent, ExpressionPtr operand) {
  parent.depth = std::max(parent.depth, operand->depth + 1);
  if (parent.depth > kDeepestExpression) Fail(parent.token, "this expression is too long");
  parent.operands.push_back(std::move(operand));
}

ExpressionPtr Parser::ParseBinary(int weakest) {
  const Level level(*this);
  ExpressionPtr left = ParsePrefix();
  for (;;) {
    if (kCompareBinding >= weakest) {
      if (ExpressionPtr predicate = ParsePredicate(left)) {
        left = std::move(predicate);
        continue;
      }
    }
    const Rank* rank = RankOf(Peek());
    if (!rank || rank->power < weakest) return left;
    ExpressionPtr binary = Make(Expression::Kind::Binary, Next());
    binary->op = rank->op;
    ExpressionPtr right = ParseBinary(rank->power + 1);
    Add(*binary, std::move(left));
    Add(*binary, std::move(right));
    left = std::move(binary);
  }
}

ExpressionPtr Parser::ParsePrefix() {
  if (AtWord("NOT")) {
    ExpressionPtr negation = Make(Expression::Kind::Not, Next());
    Add(*negation, ParseBinary(kNotBinding));
    return negation;
  }
  if (AtSign("-")) {
    ExpressionPtr negation = Make(Expression::Kind::Negate, Next());
    Add(*negation, ParseBinary(kNegatePower));
    return negation;
  }
  if (TakeSign("+")) return ParseBinary(kNegatePower);
  return ParsePrimary();
}

ExpressionPtr Parser::ParsePredicate(ExpressionPtr& left) {
  const Token& token = Peek();
  if (TakeWord("IS")) {
    ExpressionPtr test = Make(Expression::Kind::IsNull, token);
    test->negated = TakeWord("NOT");
    ExpectWord("NULL");
    Add(*test, std::move(left));
    return test;
  }
  const bool negated = AtWord("NOT");
  const size_t ahead = negated ? 1 : 0;
  if (AtWord("BETWEEN", ahead)) {
    at_ += ahead + 1;
    ExpressionPtr between = Make(Expression::Kind::Between, token);
    between->negated = negated;
    Add(*between, std::move(left));
    Add(*between, ParseBinary(kCompareBinding + 1));
    ExpectWord("AND");
    Add(*between, ParseBinary(kCompareBinding + 1));
    return between;
  }
  if (AtWord("IN", ahead) && AtSign("(", ahead + 1)) {
    at_ += ahead + 1;
    return ParseIn(token, std::move(left), negated);
  }
  if (negated && AtWord("LIKE", 1)) {
    at_ += 2;
    ExpressionPtr like = Make(Expression::Kind::Binary, token);
    like->op = Operator::Like;
    Add(*like, std::move(left));
    Add(*like, ParseBinary(kCompareBinding + 1));
    ExpressionPtr negation = Make(Expression::Kind::Not, token);
    Add(*negation, std::move(like));
    return negation;
  }
  return nullptr;
}

ExpressionPtr Parser::ParseIn(const Token& token, ExpressionPtr left, bool negated) {
  size_t open = 1;
  while (AtSign("(", open)) ++open;
  if (AtWord("SELECT", open)) {
    ExpressionPtr in = Make(Expression::Kind::InSelect, token);
    in->negated = negated;
    Add(*in, std::move(left));
    in->select = ParseSelectInParentheses();
    return in;
  }
  ExpressionPtr in = Make(Expression::Kind::InList, token);
  in->negated = negated;
  Add(*in, std::move(left));
  ExpectSign("(");
  do {
    Add(*in, ParseExpression());
  } while (TakeSign(","));
  ExpectSign(")");
  return in;
}

ExpressionPtr Parser::ParsePrimary() {
  const Token& token = Peek();
  if (token.kind == Token::Kind::Literal) {
    Next();
    return Make(token.mark == Mark::Null ? Expression::Kind::Null : Expression::Kind::Literal,
                token);
  }
  if (AtSign("(")) return ParseParenthesis();
  if (TakeWord("NULL")) return Make(Expression::Kind::Null, token);
  if (TakeWord("TRUE") || TakeWord("YES")) return Make(Expression::Kind::True, token);
  if (TakeWord("FALSE") || TakeWord("NO")) return Make(Expression::Kind::False, token);
  if (AtWord("EXISTS") && AtSign("(", 1)) {
    Next();
    ExpressionPtr exists = Make(Expression::Kind::Exists, token);
    exists->select = ParseSelectInParentheses();
    return exists;
  }
  return ParseNameOrCall();
}

ExpressionPtr Parser::ParseParenthesis() {
  if (AtWord("SELECT", 1)) {
    ExpressionPtr select = Make(Expression::Kind::SubSelect, Peek());
    select->select = ParseSelectInParentheses();
    return select;
  }
  ExpectSign("(");
  ExpressionPtr inner = ParseExpression();
  ExpectSign(")");
  return inner;
}

ExpressionPtr Parser::ParseNameOrCall() {
  const Token& token = Peek();
  // Left and Right are joins as well as functions: the parenthesis tells.
  if (token.kind == Token::Kind::Word && AtSign("(", 1) &&
      (AtName() || AtWord("LEFT") || AtWord("RIGHT"))) {
    Next();
    return ParseCall(token);
  }
  if (!AtName()) Fail(token, "a value is missing");
  ExpressionPtr column = Make(Expression::Kind::Column, Next());
  if (TakeSign(".")) {
    column->qualifier = NameOf(token);
    column->token = ExpectName("a column");
  }
  column->name = NameOf(column->token);
  return column;
}

ExpressionPtr Parser::ParseCall(const Token& name) {
  ExpressionPtr call = Make(Expression::Kind::Call, name);
  call->name = NameOf(name).toUpper();
  ExpectSign("(");
  if (call->name == u"COUNT" && AtSign("*")) {
    Next();
    ExpectSign(")");
    call->kind = Expression::Kind::CountRows;
    return call;
  }
  if (TakeSign(")")) return call;
  do {
    Add(*call, ParseExpression());
  } while (TakeSign(","));
  ExpectSign(")");
  return call;
}

}  // namespace quillary::jet
