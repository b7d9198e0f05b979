#include "data/jet/Parser.h"

namespace quillary::jet {

std::unique_ptr<Select> Parser::ParseSelect() {
  auto select = ParseSimpleSelect();
  while (TakeWord("UNION")) {
    const bool all = TakeWord("ALL");
    select->unions.push_back({all, ParseSimpleSelect()});
  }
  if (AtWord("ORDER")) select->orderBy = ParseOrder();
  return select;
}

std::unique_ptr<Select> Parser::ParseSimpleSelect() {
  const Level level(*this);
  if (AtSign("(")) return ParseSelectInParentheses();
  auto select = std::make_unique<Select>();
  select->token = ExpectWord("SELECT");
  ParseSelectHead(*select);
  ParseSelectTail(*select);
  return select;
}

void Parser::ParseSelectHead(Select& select) {
  if (!TakeWord("ALL")) {
    select.distinct = TakeWord("DISTINCT");
    select.distinctRow = !select.distinct && TakeWord("DISTINCTROW");
  }
  if (AtWord("TOP") && Peek(1).kind == Token::Kind::Literal) {
    Next();
    select.topLiteral = ExpectLiteral(Mark::Whole, "the number of rows");
    select.topPercent = TakeWord("PERCENT");
  }
  do {
    select.items.push_back(ParseSelectItem());
  } while (TakeSign(","));
}

SelectItem Parser::ParseSelectItem() {
  SelectItem item;
  item.token = Peek();
  if (TakeSign("*")) {
    item.star = true;
    return item;
  }
  if (AtName() && AtSign(".", 1) && AtSign("*", 2)) {
    item.star = true;
    item.starOf = NameOf(Next());
    Next();
    Next();
    return item;
  }
  item.expression = ParseExpression();
  if (TakeWord("AS")) item.alias = NameOf(ExpectName("a column"));
  return item;
}

void Parser::ParseSelectTail(Select& select) {
  if (TakeWord("INTO")) {
    IntoName into;
    into.token = ExpectName("a table");
    into.table = NameOf(into.token);
    Token fileToken;
    if (AtWord("IN")) into.fileLiteral = ParseFileName(fileToken);
    select.into = into;
  }
  if (TakeWord("FROM")) select.from = ParseSources(&select);
  if (TakeWord("WHERE")) select.where = ParseExpression();
  if (AtWord("GROUP")) {
    Next();
    ExpectWord("BY");
    do {
      select.groupBy.push_back(ParseExpression());
    } while (TakeSign(","));
  }
  if (TakeWord("HAVING")) select.having = ParseExpression();
  // In a union the order belongs to the whole, which takes it after the last part.
}

std::vector<OrderItem> Parser::ParseOrder() {
  std::vector<OrderItem> order;
  ExpectWord("ORDER");
  ExpectWord("BY");
  do {
    OrderItem item;
    item.expression = ParseExpression();
    if (TakeWord("DESC")) {
      item.descending = true;
    } else {
      TakeWord("ASC");
    }
    order.push_back(std::move(item));
  } while (TakeSign(","));
  return order;
}

int Parser::ParseFileName(Token& token) {
  ExpectWord("IN");
  token = Peek();
  return ExpectLiteral(Mark::Text, "the name of a file in quotes");
}

std::unique_ptr<Source> Parser::ParseSources(Select* select) {
  auto sources = ParseJoins();
  while (TakeSign(",")) {
    auto cross = std::make_unique<Source>();
    cross->kind = Source::Kind::Join;
    cross->token = Peek();
    cross->left = std::move(sources);
    cross->right = ParseJoins();
    sources = std::move(cross);
  }
  if (select && AtWord("IN")) select->fileLiteral = ParseFileName(select->fileToken);
  return sources;
}

std::unique_ptr<Source> Parser::ParseJoins() {
  auto sources = ParseSource();
  int joins = 0;
  for (auto kind = TakeJoin(); kind; kind = TakeJoin()) {
    // SQLite joins at most 64 tables.
    if (++joins > 64) Fail(Peek(), "too many tables are joined");
    auto join = std::make_unique<Source>();
    join->kind = Source::Kind::Join;
    join->token = Peek();
    join->join = *kind;
    join->left = std::move(sources);
    join->right = ParseSource();
    ExpectWord("ON");
    join->on = ParseExpression();
    sources = std::move(join);
  }
  return sources;
}

std::optional<JoinKind> Parser::TakeJoin() {
  JoinKind kind = JoinKind::Inner;
  if (AtWord("JOIN")) {
    Next();
    return kind;
  }
  if (AtWord("INNER")) {
    Next();
  } else if (AtWord("LEFT") || AtWord("RIGHT")) {
    kind = AtWord("LEFT") ? JoinKind::Left : JoinKind::Right;
    Next();
    TakeWord("OUTER");
  } else {
    return std::nullopt;
  }
  ExpectWord("JOIN");
  return kind;
}

std::unique_ptr<Source> Parser::ParseSource() {
  const Level level(*this);
  auto source = std::make_unique<Source>();
  source->token = Peek();
  if (AtSign("(")) {
    if (!AtWord("SELECT", 1)) {
      ExpectSign("(");
      auto inner = ParseSources(nullptr);
      ExpectSign(")");
      return inner;
    }
    source->kind = Source::Kind::SubSelect;
    source->select = ParseSelectInParentheses();
  } else {
    source->table = NameOf(ExpectName("a table"));
    source->alias = source->table;
  }
  if (TakeWord("AS")) {
    source->token = ExpectName("an alias");
    source->alias = NameOf(source->token);
  } else if (AtName()) {
    source->token = Next();
    source->alias = NameOf(source->token);
  }
  return source;
}

std::unique_ptr<Select> Parser::ParseSelectInParentheses() {
  const Level level(*this);
  ExpectSign("(");
  auto select = AtSign("(") ? ParseSelectInParentheses() : ParseSelect();
  ExpectSign(")");
  return select;
}

}  // namespace quillary::jet
