#pragma once

#include "base/Value.h"
#include "data/jet/Catalogue.h"

#include <compare>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

/// The translator of the Access dialect: text in, SQLite text with typed parameters out. It knows
/// no database; the store runs what it emits and supplies the functions named in Functions.h.
namespace quillary::jet {

/// A statement that is none of the dialect, or names what is not there, or mixes types that do not
/// go together. The message has line, column and the near text.
class StatementError : public std::runtime_error {
 public:
  StatementError(const std::string& what, int line, int column, std::string near);
  int line() const { return line_; }
  int column() const { return column_; }
  const std::string& near() const { return near_; }

 private:
  int line_;
  int column_;
  std::string near_;
};

/// A statement text with its literals cut out: statements that differ only in their literals have
/// the same shape, so that the store can keep one compiled statement for all of them.
struct CutStatement {
  std::string shape;            // text with a typed mark in place of each literal; the cache's key
  std::vector<Value> literals;  // in the order of the marks: whole, fraction, text or date
  std::vector<int> ends;        // where in the text each literal ended; to tell places in errors
};

/// Cuts the literals out of a UTF-8 text in one pass. Throws StatementError on an unbalanced quote
/// or a date that does not exist. True, False, Yes, No and Null stay in the shape.
CutStatement CutLiterals(std::string_view text);

/// The same for a text with a "{}" for each of `arguments`: the arguments become literals of the
/// shape where they stand, a null being marked as such. Throws StatementError also when the number
/// of places and of arguments differ.
CutStatement CutLiterals(std::string_view text, const std::vector<Value>& arguments);

/// What Date(), Time() and Now() ask the business's clock for.
enum class Reading { Date, Time, Now };

/// How one parameter of an emitted statement is filled: from which literal and into what type it is
/// to be converted first (see Convert), or from the clock. Parameters are numbered from ?1 in
/// order.
struct Parameter {
  int literal = 0;
  std::optional<ColumnType> convertTo = {};
  bool divides = false;  // and so may not be zero
  std::optional<Reading> reading = {};

  auto operator<=>(const Parameter&) const = default;
};

/// A value that a statement can't be run with.
class ValueError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The value that fills a parameter. Throws ValueError when the literal does not go into the type
/// or is a zero that divides, and when the clock is read and `now` is not known.
Value ValueOf(const Parameter& parameter, const std::vector<Value>& literals,
              const std::optional<DateTime>& now);

struct ResultColumn {
  QString name;
  ColumnType type = ColumnType::Text;
};

/// SELECT ... INTO table [IN 'file']: the store runs the select and makes the table.
struct IntoTarget {
  QString table;
  std::optional<QString> file;
  std::vector<Column> columns;
};

/// What one statement of the dialect becomes.
struct Translation {
  /// SQLite texts to run in order; more than one only for schema changes, which the store then
  /// runs inside a savepoint. For SELECT ... INTO the one text is the select.
  std::vector<std::string> statements;
  std::vector<Parameter> parameters;  // of the first statement; schema changes have none
  std::vector<ResultColumn> columns;  // of a statement that gives rows; otherwise empty
  std::optional<IntoTarget> into;
  std::vector<size_t> assigned;  // the columns that an UPDATE sets: their places in its table
  bool givesRows = false;
  bool changesSchema = false;
  /// False when a literal shaped the emitted text, so that the text may not serve another literal.
  bool mayBeCached = true;
  /// Indexed columns that it may write something else than ASCII into. A text that relied on one to
  /// hold nothing else may not serve any more.
  std::vector<ColumnName> notOnlyAscii;
  /// The other file that FROM ... IN 'file' reads from: the text is meant to run there.
  std::optional<QString> sourceFile;
};

/// Parses, checks against the catalogue and emits. Throws StatementError.
Translation Translate(const CutStatement& statement, const Catalogue& catalogue);

/// Converts a value as an assignment into a column of that type does it: texts such as "$1,234.50"
/// or "(5.00)" into currency, fractions into whole numbers of 32 bits half to even, numbers, yes/no
/// and moments into text, any non-zero number into yes. Null stays null except that yes/no makes it
/// no. Nothing when the value does not go into the type.
std::optional<Value> Convert(const Value& value, ColumnType type);

}  // namespace quillary::jet
