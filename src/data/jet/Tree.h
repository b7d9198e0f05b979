#pragma once

#include "data/jet/Catalogue.h"
#include "data/jet/Lexer.h"

#include <memory>
#include <optional>
#include <variant>
#include <vector>

/// What a statement says, before any name in it is looked up. Each node keeps the token it began
/// with, for errors found later.
namespace quillary::jet {

struct Select;

enum class Operator {
  Or,
  Xor,
  And,
  Equal,
  NotEqual,
  Less,
  LessOrEqual,
  Greater,
  GreaterOrEqual,
  Like,
  Join,  // the sign &
  Add,
  Subtract,
  Modulo,
  WholeDivide,
  Multiply,
  Divide,
};

struct Expression {
  enum class Kind {
    Literal,
    Null,
    True,
    False,
    Column,
    Binary,
    Not,
    Negate,
    IsNull,
    Between,
    InList,
    InSelect,
    Exists,
    Call,
    CountRows,
    SubSelect,
  };

  Kind kind = Kind::Null;
  Token token;
  Operator op = Operator::Or;  // of Binary
  bool negated = false;        // IS NOT NULL, NOT IN, NOT BETWEEN
  QString qualifier;           // of Column; may be empty
  QString name;                // of Column, or the function of Call
  std::vector<std::unique_ptr<Expression>> operands;
  std::unique_ptr<Select> select;
  int depth = 1;
};

using ExpressionPtr = std::unique_ptr<Expression>;

enum class JoinKind { Inner, Left, Right };

/// A table, a sub-select, or a join of two sources.
struct Source {
  enum class Kind { Table, SubSelect, Join };

  Kind kind = Kind::Table;
  Token token;
  QString table;
  QString alias;  // the table's own name when none was given
  std::unique_ptr<Select> select;
  JoinKind join = JoinKind::Inner;
  std::unique_ptr<Source> left;
  std::unique_ptr<Source> right;
  ExpressionPtr on;  // absent for tables listed with commas
};

struct SelectItem {
  Token token;
  bool star = false;
  QString starOf;  // of "t.*"
  ExpressionPtr expression;
  QString alias;
};

struct OrderItem {
  ExpressionPtr expression;
  bool descending = false;
};

struct IntoName {
  QString table;
  Token token;
  int fileLiteral = -1;
};

struct Select {
  struct Union {
    bool all = false;
    std::unique_ptr<Select> select;
  };

  Token token;
  bool distinct = false;
  bool distinctRow = false;
  int topLiteral = -1;
  bool topPercent = false;
  std::vector<SelectItem> items;
  std::optional<IntoName> into;
  std::unique_ptr<Source> from;
  int fileLiteral = -1;  // of FROM ... IN 'file'
  Token fileToken;
  ExpressionPtr where;
  std::vector<ExpressionPtr> groupBy;
  ExpressionPtr having;
  std::vector<Union> unions;
  std::vector<OrderItem> orderBy;
};

struct Insert {
  Token token;
  QString table;
  std::vector<Token> columns;         // empty for all
  std::vector<ExpressionPtr> values;  // when there is no select
  std::unique_ptr<Select> select;
};

struct Update {
  struct Assignment {
    Token token;
    QString qualifier;
    QString name;
    ExpressionPtr value;
  };
  Token token;
  std::unique_ptr<Source> from;
  std::vector<Assignment> assignments;
  ExpressionPtr where;
};

struct Delete {
  Token token;
  QString target;  // of "t.*"; may be empty
  std::unique_ptr<Source> from;
  ExpressionPtr where;
};

struct ColumnDefinition {
  Token token;
  Column column;
  bool notNull = false;
  bool unique = false;
  bool primaryKey = false;
};

struct CreateTable {
  Token token;
  QString name;
  std::vector<ColumnDefinition> columns;
  std::vector<QString> primaryKey;  // of a constraint on the whole table
};

struct AlterTable {
  enum class Kind { Add, Alter, Drop };
  Kind kind = Kind::Add;
  Token token;
  QString table;
  std::vector<ColumnDefinition> columns;  // names alone when dropping
};

struct CreateIndex {
  struct Part {
    Token token;
    bool descending = false;
  };
  Token token;
  QString name;
  QString table;
  bool unique = false;
  std::vector<Part> columns;
};

struct DropIndex {
  Token token;
  QString name;
  QString table;
};

struct DropTable {
  Token token;
  QString name;
};

using Statement = std::variant<Select, Insert, Update, Delete, CreateTable, AlterTable, CreateIndex,
                               DropIndex, DropTable>;

/// The name that a word or a name in brackets spells.
inline QString NameOf(const Token& token) {
  return QString::fromUtf8(token.text.data(), static_cast<qsizetype>(token.text.size()));
}

}  // namespace quillary::jet
