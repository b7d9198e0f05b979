#include "data/jet/Declarations.h"
#include "data/jet/Parser.h"

namespace quillary::jet {

Statement Parser::ParseCreate() {
  const Token& token = ExpectWord("CREATE");
  if (TakeWord("TABLE")) return ParseCreateTable(token);
  const bool unique = TakeWord("UNIQUE");
  ExpectWord("INDEX");
  return ParseCreateIndex(token, unique);
}

CreateTable Parser::ParseCreateTable(const Token& token) {
  CreateTable create;
  create.token = token;
  create.token = ExpectName("a table");
  create.name = NameOf(create.token);
  ExpectSign("(");
  do {
    if (AtWord("CONSTRAINT") || (AtWord("PRIMARY") && AtWord("KEY", 1))) {
      if (TakeWord("CONSTRAINT")) ExpectName("a constraint");
      ExpectWord("PRIMARY");
      ExpectWord("KEY");
      ExpectSign("(");
      do {
        create.primaryKey.push_back(NameOf(ExpectName("a column")));
      } while (TakeSign(","));
      ExpectSign(")");
    } else {
      create.columns.push_back(ParseColumnDefinition());
    }
  } while (TakeSign(","));
  ExpectSign(")");
  return create;
}

ColumnDefinition Parser::ParseColumnDefinition() {
  ColumnDefinition definition;
  definition.token = ExpectName("a column");
  definition.column.name = NameOf(definition.token);
  const Token& type = Peek();
  const auto found =
      type.kind == Token::Kind::Word ? TypeOfWord(NameOf(type)) : std::optional<ColumnType>();
  if (!found) Fail(type, "the type of a column is missing");
  Next();
  definition.column.type = *found;
  const int width = ParseWidth();
  if (*found == ColumnType::Text) definition.column.width = width;
  while (AtWord("NOT") || AtWord("NULL") || AtWord("UNIQUE") || AtWord("PRIMARY") ||
         AtWord("CONSTRAINT")) {
    ParseConstraint(definition);
  }
  return definition;
}

void Parser::ParseConstraint(ColumnDefinition& definition) {
  if (TakeWord("CONSTRAINT")) ExpectName("a constraint");
  if (TakeWord("NULL")) return;
  if (TakeWord("NOT")) {
    ExpectWord("NULL");
    definition.notNull = true;
  } else if (TakeWord("UNIQUE")) {
    definition.unique = true;
  } else {
    ExpectWord("PRIMARY");
    ExpectWord("KEY");
    definition.primaryKey = true;
  }
}

int Parser::ParseWidth() {
  // A column of old files was added with its width bare behind the type; it is there in all files.
  const bool inParentheses = AtSign("(");
  if (!inParentheses && Peek().kind != Token::Kind::Literal) return 0;
  if (inParentheses) ExpectSign("(");
  const Token& token = Peek();
  const int literal = ExpectLiteral(Mark::Whole, "the width of a column");
  const qint64 width = statement_.literals[static_cast<size_t>(literal)].ToLong();
  if (width < 1 || width > 65535) Fail(token, "there is no such width");
  if (inParentheses) ExpectSign(")");
  return static_cast<int>(width);
}

CreateIndex Parser::ParseCreateIndex(const Token& token, bool unique) {
  CreateIndex index;
  index.token = token;
  index.unique = unique;
  index.name = NameOf(ExpectName("an index"));
  ExpectWord("ON");
  index.token = ExpectName("a table");
  index.table = NameOf(index.token);
  ExpectSign("(");
  do {
    CreateIndex::Part part;
    part.token = ExpectName("a column");
    if (TakeWord("DESC")) {
      part.descending = true;
    } else {
      TakeWord("ASC");
    }
    index.columns.push_back(part);
  } while (TakeSign(","));
  ExpectSign(")");
  if (TakeWord("WITH")) {
    if (TakeWord("PRIMARY")) {
      index.unique = true;
    } else {
      if (!TakeWord("IGNORE")) ExpectWord("DISALLOW");
      ExpectWord("NULL");
    }
  }
  return index;
}

AlterTable Parser::ParseAlter() {
  AlterTable alter;
  ExpectWord("ALTER");
  ExpectWord("TABLE");
  alter.token = ExpectName("a table");
  alter.table = NameOf(alter.token);
  if (TakeWord("ADD")) {
    alter.kind = AlterTable::Kind::Add;
  } else if (TakeWord("ALTER")) {
    alter.kind = AlterTable::Kind::Alter;
  } else if (TakeWord("DROP")) {
    alter.kind = AlterTable::Kind::Drop;
  } else {
    Fail(Peek(), "ADD, ALTER or DROP is missing");
  }
  do {
    TakeWord("COLUMN");
    if (alter.kind != AlterTable::Kind::Drop) {
      alter.columns.push_back(ParseColumnDefinition());
      continue;
    }
    ColumnDefinition dropped;
    dropped.token = ExpectName("a column");
    dropped.column.name = NameOf(dropped.token);
    alter.columns.push_back(dropped);
  } while (TakeSign(","));
  return alter;
}

Statement Parser::ParseDrop() {
  ExpectWord("DROP");
  if (TakeWord("TABLE")) {
    DropTable drop;
    drop.token = ExpectName("a table");
    drop.name = NameOf(drop.token);
    return drop;
  }
  ExpectWord("INDEX");
  DropIndex drop;
  drop.token = ExpectName("an index");
  drop.name = NameOf(drop.token);
  ExpectWord("ON");
  drop.table = NameOf(ExpectName("a table"));
  return drop;
}

}  // namespace quillary::jet
