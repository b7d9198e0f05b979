#include "data/jet/Lexer.h"

#include <algorithm>

namespace quillary::jet {
namespace {

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
         static_cast<unsigned char>(c) >= 128;
}

bool IsLetterOrDigit(char c) {
  return IsLetter(c) || (c >= '0' && c <= '9');
}

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

size_t LengthOfSign(std::string_view rest) {
  if (rest.size() < 2) return 1;
  const std::string_view pair = rest.substr(0, 2);
  return pair == "<>" || pair == "<=" || pair == ">=" ? 2 : 1;
}

std::string WrittenLiteral(const Value& value) {
  const std::string text = value.ToText().toStdString();
  if (value.IsNull()) return "NULL";
  if (value.IsText()) return "'" + text + "'";
  if (value.IsDate()) return "#" + text + "#";
  return text;
}

/// Counts lines and columns over the shape while giving each literal the room it had in the text.
class Place {
 public:
  Place(const CutStatement& statement, const char* until) {
    const char* begin = statement.shape.data();
    size_t literal = 0;
    int offset = 0;
    int lineStart = 0;
    for (const char* at = begin; at < until; ++at) {
      if (IsMark(*at) && literal < statement.literals.size()) {
        const int end = literal < statement.ends.size() ? statement.ends[literal] : offset + 1;
        CountLinesIn(statement.literals[literal], end, lineStart);
        offset = end;
        ++literal;
        continue;
      }
      ++offset;
      if (*at == '\n') {
        ++line;
        lineStart = offset;
      }
    }
    column = offset - lineStart + 1;
  }

  int line = 1;
  int column = 1;

 private:
  void CountLinesIn(const Value& literal, int end, int& lineStart) {
    if (!literal.IsText()) return;
    const QString& text = std::get<QString>(literal.variant());
    const auto breaks = text.count(u'\n');
    if (breaks == 0) return;
    line += static_cast<int>(breaks);
    const QString tail = text.mid(text.lastIndexOf(u'\n') + 1);
    lineStart = end - 1 - static_cast<int>(tail.toUtf8().size() + tail.count(u'\''));
  }
};

}  // namespace

bool Token::IsWord(std::string_view word) const {
  return kind == Kind::Word && text.size() == word.size() &&
         std::equal(text.begin(), text.end(), word.begin(), [](char have, char want) {
           return (have >= 'a' && have <= 'z' ? have - 'a' + 'A' : have) == want;
         });
}

std::vector<Token> Tokenize(const CutStatement& statement) {
  const std::string_view shape = statement.shape;
  std::vector<Token> tokens;
  tokens.reserve(shape.size() / 4 + 2);
  int literal = 0;
  for (size_t at = 0; at < shape.size();) {
    const char c = shape[at];
    if (IsBlank(c)) {
      ++at;
      continue;
    }
    Token token;
    size_t length = 1;
    if (IsMark(c)) {
      token = {Token::Kind::Literal, shape.substr(at, 1), static_cast<Mark>(c), literal++};
    } else if (c == '[') {
      const size_t close = std::min(shape.find(']', at), shape.size() - 1);
      length = close + 1 - at;
      token = {Token::Kind::Name, shape.substr(at + 1, close - at - 1), Mark::None, -1};
    } else if (IsLetter(c)) {
      while (at + length < shape.size() && IsLetterOrDigit(shape[at + length])) ++length;
      token = {Token::Kind::Word, shape.substr(at, length), Mark::None, -1};
    } else {
      length = LengthOfSign(shape.substr(at));
      token = {Token::Kind::Sign, shape.substr(at, length), Mark::None, -1};
    }
    tokens.push_back(token);
    at += length;
  }
  tokens.push_back({Token::Kind::End, shape.substr(shape.size()), Mark::None, -1});
  return tokens;
}

void FailAt(const CutStatement& statement, const Token& token, const std::string& what) {
  const char* start = token.text.data() - (token.kind == Token::Kind::Name ? 1 : 0);
  const Place place(statement, start);
  std::string near(token.text);
  if (token.kind == Token::Kind::Literal) {
    near = WrittenLiteral(statement.literals.at(static_cast<size_t>(token.literal)));
  }
  throw StatementError(what, place.line, place.column, near);
}

}  // namespace quillary::jet
