#pragma once

#include "data/jet/Catalogue.h"
#include "data/jet/Lexer.h"

#include <optional>
#include <string>
#include <vector>

namespace quillary::jet {

/// How tightly SQLite's operators tie, so that only needed parentheses are written: its parser
/// takes no more than some hundred open ones.
enum Power : int {
  kOrPower = 1,
  kAndPower,
  kNotPower,
  kEqualPower,
  kComparePower,
  kAddPower,
  kMultiplyPower,
  kConcatPower,
  kSignPower,
  kPrimaryPower,
};

/// A piece of emitted text with what is known about its value. A literal stays unwritten until it
/// is known what type it has to take.
struct Fragment {
  std::string sql;
  int power = kPrimaryPower;
  std::optional<ColumnType> type;  // nothing for a null
  Token token;
  int literal = -1;
  bool negative = false;             // a literal behind a minus sign
  bool needsRounding = false;        // a sum of currencies that may have drifted
  const Column* column = nullptr;    // when it is a column as it stands
  const Table* table = nullptr;      // of that column, unless a select in FROM made it
  const Token* ungrouped = nullptr;  // a column that stands outside aggregates
  bool aggregate = false;
  bool foldedCase = false;  // by UCase or LCase

  bool IsLiteral() const { return literal >= 0; }
};

/// Types that behave alike when compared or assigned.
enum class Family { Null, Number, Text, Date, YesNo };

inline Family FamilyOf(const std::optional<ColumnType>& type) {
  if (!type) return Family::Null;
  switch (*type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return Family::Text;
    case ColumnType::Date:
      return Family::Date;
    case ColumnType::YesNo:
      return Family::YesNo;
    default:
      return Family::Number;
  }
}

inline bool IsWholeType(const std::optional<ColumnType>& type) {
  return type == ColumnType::Long || type == ColumnType::Counter;
}

/// `name` in double quotes.
std::string Quoted(const QString& name);
/// "c1", "c2"...: what columns are called between the parts of an emitted select.
std::string NumberedName(size_t index);
/// The parts with commas between them.
std::string Listed(const std::vector<std::string>& parts);
inline std::string Called(const char* function, const std::string& arguments) {
  return std::string(function) + "(" + arguments + ")";
}
/// The type that holds the values of both, as for the branches of IIf.
std::optional<ColumnType> CommonType(std::optional<ColumnType> one, std::optional<ColumnType> two);

}  // namespace quillary::jet
