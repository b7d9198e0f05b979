#pragma once

#include "data/jet/Tree.h"

#include <initializer_list>

namespace quillary::jet {

/// Makes the tree of one statement. Nesting has a limit, so that no text can exhaust the stack.
class Parser {
 public:
  explicit Parser(const CutStatement& statement);
  Statement Parse();

 private:
  /// Counts one level of nesting for as long as it lives.
  class Level {
   public:
    explicit Level(Parser& parser);
    ~Level() { --parser_.level_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    Parser& parser_;
  };

  // Tokens.
  const Token& Peek(size_t ahead = 0) const;
  const Token& Next();
  bool AtWord(std::string_view word, size_t ahead = 0) const { return Peek(ahead).IsWord(word); }
  bool AtSign(std::string_view sign, size_t ahead = 0) const { return Peek(ahead).IsSign(sign); }
  bool TakeWord(std::string_view word);
  bool TakeSign(std::string_view sign);
  const Token& ExpectWord(std::string_view word);
  void ExpectSign(std::string_view sign);
  /// A name of a table, column or index: in brackets, or a word that doesn't begin a clause.
  const Token& ExpectName(const char* ofWhat);
  bool AtName(size_t ahead = 0) const;
  int ExpectLiteral(Mark mark, const char* ofWhat);
  [[noreturn]] void Fail(const Token& token, const std::string& what) const;

  // Reading and writing rows.
  std::unique_ptr<Select> ParseSelect();
  std::unique_ptr<Select> ParseSimpleSelect();
  void ParseSelectHead(Select& select);
  void ParseSelectTail(Select& select);
  SelectItem ParseSelectItem();
  std::vector<OrderItem> ParseOrder();
  int ParseFileName(Token& token);
  std::unique_ptr<Source> ParseSources(Select* select);
  std::unique_ptr<Source> ParseJoins();
  std::unique_ptr<Source> ParseSource();
  std::optional<JoinKind> TakeJoin();
  Insert ParseInsert();
  Update ParseUpdate();
  Delete ParseDelete();

  // Expressions.
  ExpressionPtr ParseExpression() { return ParseBinary(0); }
  ExpressionPtr ParseBinary(int weakest);
  ExpressionPtr ParsePrefix();
  ExpressionPtr ParsePrimary();
  ExpressionPtr ParseParenthesis();
  ExpressionPtr ParseNameOrCall();
  ExpressionPtr ParseCall(const Token& name);
  /// IS NULL, BETWEEN, IN and LIKE after an operand; null when none follows.
  ExpressionPtr ParsePredicate(ExpressionPtr& left);
  ExpressionPtr ParseIn(const Token& token, ExpressionPtr left, bool negated);
  std::unique_ptr<Select> ParseSelectInParentheses();
  ExpressionPtr Make(Expression::Kind kind, const Token& token);
  void Add(Expression& parent, ExpressionPtr operand);

  // Schema changes.
  Statement ParseCreate();
  CreateTable ParseCreateTable(const Token& token);
  CreateIndex ParseCreateIndex(const Token& token, bool unique);
  AlterTable ParseAlter();
  Statement ParseDrop();
  ColumnDefinition ParseColumnDefinition();
  void ParseConstraint(ColumnDefinition& definition);
  int ParseWidth();

  const CutStatement& statement_;
  std::vector<Token> tokens_;
  size_t at_ = 0;
  int level_ = 0;
};

}  // namespace quillary::jet
