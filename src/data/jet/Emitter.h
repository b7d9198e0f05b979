#pragma once

#include "data/jet/Fragment.h"
#include "data/jet/Scope.h"
#include "data/jet/Tree.h"

#include <deque>
#include <map>

namespace quillary::jet {

/// One column of a select: what it is called and what it holds.
struct Output {
  QString name;
  bool named = false;   // by an alias
  QString sourceAlias;  // where the column comes from; empty for an expression
  Fragment fragment;
};

struct SelectText {
  std::string sql;
  std::vector<Output> outputs;
};

/// How the columns of an emitted select are called there: not at all, c1, c2..., or as in the
/// dialect.
enum class Naming { None, Numbered, Real };

/// Checks names and types of a tree against the catalogue and writes SQLite's text for it.
class Emitter {
 public:
  Emitter(const CutStatement& statement, const Catalogue& catalogue);
  Translation Emit(const Statement& tree);

 private:
  [[noreturn]] void Fail(const Token& token, const std::string& what) const;
  const Table& TableNamed(const QString& name, const Token& token) const;
  const Column& ColumnNamed(const Table& table, const QString& name, const Token& token) const;

  // Pieces of text.
  /// Writes the fragment, in parentheses where it ties more loosely than `power`.
  std::string Text(const Fragment& fragment, int power = 0);
  /// The first operand of a comparison with `others`; a text with the collation that it takes.
  std::string Compared(const Fragment& tested, const std::vector<const Fragment*>& others,
                       bool equality, int power);
  /// A value by which rows are grouped or told apart; a text with the dialect's order.
  std::string Folded(const Fragment& fragment);
  /// A value by which rows are sorted.
  std::string Ordered(const Fragment& fragment);
  bool IsAsciiColumn(const Fragment& fragment);
  /// Keeps in mind that the statement may write what is not ASCII.
  void NoteWritten(const Table& table, const Column& column, const Fragment& value);
  std::string Parameter(const jet::Parameter& parameter);
  std::string Parameter(int literal, std::optional<ColumnType> convertTo) {
    return Parameter({.literal = literal, .convertTo = convertTo});
  }
  Fragment Piece(const Token& token, std::string sql, int power, std::optional<ColumnType> type,
                 std::initializer_list<const Fragment*> parts) const;
  const Value& LiteralOf(int literal) const;

  // Conversions.
  /// The value as an assignment into that type would store it.
  Fragment As(const Fragment& fragment, ColumnType type);
  Fragment ConvertedTo(const Fragment& fragment, ColumnType type);
  /// The value as arithmetic takes it: yes is -1, a date its count of days, a text its number.
  Fragment AsNumber(const Fragment& fragment);
  Fragment AsText(const Fragment& fragment);
  std::string Condition(const Fragment& fragment, int power = 0);
  /// Brings two values that are compared to one type.
  void Match(Fragment& left, Fragment& right, bool equality);
  void AdaptLiteral(Fragment& literal, const Fragment& other, bool equality);
  void MatchFamilies(Fragment& left, Fragment& right);

  // Expressions.
  Fragment Expr(const Expression& expression, Scope& scope);
  Fragment ExprByKind(const Expression& expression, Scope& scope);
  Fragment LiteralExpr(const Expression& expression) const;
  Fragment ColumnExpr(const Expression& expression, Scope& scope);
  Fragment AliasExpr(const Expression& expression, Scope& scope);
  Fragment BinaryExpr(const Expression& expression, Scope& scope);
  Fragment Logical(const Expression& expression, const Fragment& left, const Fragment& right);
  Fragment Comparison(const Expression& expression, Fragment left, Fragment right);
  Fragment Like(const Expression& expression, const Fragment& left, const Fragment& right);
  Fragment JoinTexts(const Expression& expression, const Fragment& left, const Fragment& right);
  Fragment AddUp(const Expression& expression, const Fragment& left, const Fragment& right);
  Fragment ShiftDate(const Expression& expression, const Fragment& left, const Fragment& right);
  /// The right side of a division, which refuses the statement when it is zero.
  std::string Divisor(const Fragment& number, ColumnType type);
  Fragment Arithmetic(const Expression& expression, const Fragment& left, const Fragment& right);
  Fragment Negated(const Expression& expression, Scope& scope);
  Fragment BetweenExpr(const Expression& expression, Scope& scope);
  Fragment InListExpr(const Expression& expression, Scope& scope);
  Fragment InSelectExpr(const Expression& expression, Scope& scope);
  Fragment SubSelectExpr(const Expression& expression, Scope& scope);
  Fragment CallExpr(const Expression& expression, Scope& scope);
  Fragment SpecialCall(const Expression& expression, const std::vector<Fragment>& arguments);
  Fragment RuledCall(const Expression& expression, const std::vector<Fragment>& arguments);
  Fragment Rounding(const Expression& expression, const std::vector<Fragment>& arguments);
  Fragment Formatted(const Token& token, const std::vector<Fragment>& arguments);
  /// IsDate and IsNumeric: a yes/no value by the type, or of a text by what it reads as.
  Fragment ReadsAs(const Expression& expression, const Fragment& argument);
  // What gives one of several values.
  bool IsChoice(const Expression& expression) const;
  Fragment Choice(const Expression& expression, const std::vector<Fragment>& arguments);
  Fragment IfNull(const Token& token, const std::vector<Fragment>& arguments);
  Fragment Cases(const Token& token, const std::vector<std::string>& whens,
                 const std::vector<Fragment>& values, const std::string& head);
  Fragment AggregateExpr(const Expression& expression, Scope& scope);
  std::string FilledTemplate(const char* pattern, const std::vector<std::string>& arguments,
                             const Token& token) const;

  // Selects.
  SelectText SelectOf(const Select& select, const Scope* outer, Naming naming);
  SelectText SimpleSelect(const Select& select, const Scope* outer, Naming naming);
  SelectText UnionOf(const Select& select, const Scope* outer, Naming naming);
  SelectText Wrapped(SelectText inner, const std::vector<ColumnType>& types, Naming naming);
  std::vector<Output> OutputsOf(const Select& select, Scope& scope);
  void AddStar(const SelectItem& item, Scope& scope, std::vector<Output>& outputs) const;
  std::string RowClause(const Select& select, const Scope& scope) const;
  void NameOutputs(std::vector<Output>& outputs) const;
  std::string ItemList(const std::vector<Output>& outputs, Naming naming, bool distinct);
  std::string GroupClause(const Select& select, Scope& scope);
  std::vector<std::string> OrderTerms(const Select& select, Scope& scope,
                                      const std::vector<Output>& outputs);
  Fragment OrderTerm(const Expression& expression, Scope& scope,
                     const std::vector<Output>& outputs);
  std::string WithTies(const Select& select, const std::string& body,
                       const std::vector<std::string>& order, std::vector<Output>& outputs,
                       Naming naming);
  std::vector<std::string> OrderByColumn(const Select& select,
                                         const std::vector<std::string>& order,
                                         const std::vector<Output>& outputs);
  std::string UpToTop(const Select& select);
  void CheckGrouped(const Fragment& fragment, const Scope& scope) const;
  void ReadElsewhere(const Select& select);
  IntoTarget IntoOf(const IntoName& into, const std::vector<Output>& outputs) const;

  // Sources.
  std::string From(const Source& source, Scope& scope);
  std::string Leaf(const Source& source, Scope& scope);
  std::string Joined(const Source& source, Scope& scope);
  void Inspect(const Source& source, Scope& scope);

  // Statements.
  void EmitSelect(const Select& select);
  void EmitInsert(const Insert& insert);
  std::string InsertedRows(const Insert& insert, const Table& table,
                           const std::vector<const Column*>& columns);
  void EmitUpdate(const Update& update);
  const VisibleSource& UpdateTarget(const Update& update, const Scope& scope) const;
  void EmitDelete(const Delete& statement);
  void EmitSchema(const Statement& tree);

  const CutStatement& statement_;
  const Catalogue& catalogue_;
  const Catalogue* reading_;  // of the file that the sources are in
  Translation result_;
  std::deque<Table> derived_;                 // what sub-selects in FROM look like
  std::map<jet::Parameter, size_t> numbers_;  // of the parameters
  bool grouped_ = false;
};

}  // namespace quillary::jet
