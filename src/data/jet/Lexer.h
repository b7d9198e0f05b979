#pragma once

#include "data/jet/Marks.h"
#include "data/jet/Translator.h"

#include <string_view>
#include <vector>

namespace quillary::jet {

/// A word, a name in brackets, a mark in place of a literal, a sign, or the end.
struct Token {
  enum class Kind { Word, Name, Literal, Sign, End };

  Kind kind = Kind::End;
  std::string_view text;  // of the shape; without the brackets of a name
  Mark mark = Mark::None;
  int literal = -1;

  bool IsSign(std::string_view sign) const { return kind == Kind::Sign && text == sign; }
  /// Whether it is that word, which is given in capitals.
  bool IsWord(std::string_view word) const;
};

/// The tokens of a shape, the end being the last. They point into the statement.
std::vector<Token> Tokenize(const CutStatement& statement);

/// Throws what is wrong with a statement, telling the place of the token in the original text.
[[noreturn]] void FailAt(const CutStatement& statement, const Token& token,
                         const std::string& what);

}  // namespace quillary::jet
