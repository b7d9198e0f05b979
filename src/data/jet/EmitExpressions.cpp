#include "data/jet/Emitter.h"

#include <algorithm>

namespace quillary::jet {
namespace {

std::optional<ColumnType> TypeOfMark(Mark mark) {
  switch (mark) {
    case Mark::Whole:
      return ColumnType::Long;
    case Mark::Fraction:
      return ColumnType::Double;
    case Mark::Text:
    case Mark::WideText:
      return ColumnType::Text;
    case Mark::Date:
      return ColumnType::Date;
    case Mark::Currency:
      return ColumnType::Currency;
    case Mark::YesNo:
      return ColumnType::YesNo;
    case Mark::Null:
    case Mark::None:
      break;
  }
  return std::nullopt;
}

}  // namespace

Fragment Emitter::Expr(const Expression& expression, Scope& scope) {
  Fragment fragment = ExprByKind(expression, scope);
  if (fragment.ungrouped && !scope.groups.empty()) {
    const std::string sql = Text(fragment);
    if (std::find(scope.groups.begin(), scope.groups.end(), sql) != scope.groups.end()) {
      fragment.ungrouped = nullptr;
    }
  }
  return fragment;
}

Fragment Emitter::ExprByKind(const Expression& expression, Scope& scope) {
  using Kind = Expression::Kind;
  const Token& token = expression.token;
  switch (expression.kind) {
    case Kind::Literal:
      return LiteralExpr(expression);
    case Kind::Null:
      return Piece(token, "NULL", kPrimaryPower, std::nullopt, {});
    case Kind::True:
      return Piece(token, "1", kPrimaryPower, ColumnType::YesNo, {});
    case Kind::False:
      return Piece(token, "0", kPrimaryPower, ColumnType::YesNo, {});
    case Kind::Column:
      return ColumnExpr(expression, scope);
    case Kind::Binary:
      return BinaryExpr(expression, scope);
    case Kind::Negate:
      return Negated(expression, scope);
    case Kind::Not: {
      const Fragment operand = Expr(*expression.operands[0], scope);
      return Piece(token, "NOT " + Condition(operand, kNotPower), kNotPower, ColumnType::YesNo,
                   {&operand});
    }
    case Kind::IsNull: {
      const Fragment operand = Expr(*expression.operands[0], scope);
      return Piece(
          token,
          Text(operand, kEqualPower + 1) + (expression.negated ? " IS NOT NULL" : " IS NULL"),
          kEqualPower, ColumnType::YesNo, {&operand});
    }
    case Kind::Between:
      return BetweenExpr(expression, scope);
    case Kind::InList:
      return InListExpr(expression, scope);
    case Kind::InSelect:
      return InSelectExpr(expression, scope);
    case Kind::Exists:
      return Piece(token, "EXISTS (" + SelectOf(*expression.select, &scope, Naming::None).sql + ")",
                   kPrimaryPower, ColumnType::YesNo, {});
    case Kind::SubSelect:
      return SubSelectExpr(expression, scope);
    case Kind::Call:
    case Kind::CountRows:
      break;
  }
  return CallExpr(expression, scope);
}

Fragment Emitter::LiteralExpr(const Expression& expression) const {
  Fragment fragment =
      Piece(expression.token, "", kPrimaryPower, TypeOfMark(expression.token.mark), {});
  fragment.literal = expression.token.literal;
  return fragment;
}

Fragment Emitter::ColumnExpr(const Expression& expression, Scope& scope) {
  const Scope::Found found = scope.Find(expression.qualifier, expression.name);
  if (found.ambiguous) {
    Fail(expression.token, "this name could mean columns of several tables");
  }
  if (!found.column) return AliasExpr(expression, scope);
  if (found.scope == &scope && scope.named) {
    scope.sources[static_cast<size_t>(found.source - scope.sources.data())].contributes = true;
  }
  Fragment fragment =
      Piece(expression.token, Quoted(found.source->alias) + "." + Quoted(found.column->name),
            kPrimaryPower, found.column->type, {});
  fragment.column = found.column;
  if (!found.source->derived) fragment.table = found.source->table;
  if (found.scope == &scope && scope.grouped && !scope.inAggregate) {
    fragment.ungrouped = &expression.token;
  }
  return fragment;
}

// A column of the same select by its alias: what it stands for is written once more.
Fragment Emitter::AliasExpr(const Expression& expression, Scope& scope) {
  const auto isMeant = [&](const SelectItem& item) {
    return item.expression && item.alias.compare(expression.name, Qt::CaseInsensitive) == 0;
  };
  const SelectItem* item = nullptr;
  if (scope.named && expression.qualifier.isEmpty()) {
    const auto& items = scope.named->items;
    const auto found = std::find_if(items.begin(), items.end(), isMeant);
    if (found != items.end()) item = &*found;
  }
  if (!item) Fail(expression.token, "there is no such column here");
  auto& expanding = scope.expanding;
  if (std::find(expanding.begin(), expanding.end(), item) != expanding.end()) {
    Fail(expression.token, "this column would be made of itself");
  }
  expanding.push_back(item);
  Fragment fragment = Expr(*item->expression, scope);
  expanding.pop_back();
  fragment.column = nullptr;
  return fragment;
}

Fragment Emitter::Negated(const Expression& expression, Scope& scope) {
  const Fragment operand = Expr(*expression.operands[0], scope);
  if (operand.IsLiteral() && FamilyOf(operand.type) == Family::Number && !operand.negative) {
    Fragment negative = operand;
    negative.negative = true;
    return negative;
  }
  const Fragment number = AsNumber(operand);
  // Two signs side by side would begin a comment.
  return Piece(expression.token, "-" + Text(number, kPrimaryPower), kSignPower, number.type,
               {&operand});
}

Fragment Emitter::BetweenExpr(const Expression& expression, Scope& scope) {
  Fragment tested = Expr(*expression.operands[0], scope);
  Fragment low = Expr(*expression.operands[1], scope);
  Fragment high = Expr(*expression.operands[2], scope);
  Match(tested, low, false);
  Match(tested, high, false);
  const std::string sql = Compared(tested, {&low, &high}, false, kAddPower) +
                          (expression.negated ? " NOT BETWEEN " : " BETWEEN ") +
                          Text(low, kAddPower) + " AND " + Text(high, kAddPower);
  return Piece(expression.token, sql, kEqualPower, ColumnType::YesNo, {&tested, &low, &high});
}

Fragment Emitter::InListExpr(const Expression& expression, Scope& scope) {
  Fragment tested = Expr(*expression.operands[0], scope);
  Fragment result = Piece(expression.token, "", kEqualPower, ColumnType::YesNo, {&tested});
  std::vector<Fragment> members;
  for (size_t i = 1; i < expression.operands.size(); ++i) {
    members.push_back(Expr(*expression.operands[i], scope));
    Match(tested, members.back(), true);
    result =
        Piece(expression.token, "", kEqualPower, ColumnType::YesNo, {&result, &members.back()});
  }
  std::string list;
  std::vector<const Fragment*> others;
  for (const Fragment& member : members) {
    list += (list.empty() ? "" : ", ") + Text(member);
    others.push_back(&member);
  }
  result.sql = Compared(tested, others, true, kAddPower) +
               (expression.negated ? " NOT IN (" : " IN (") + list + ")";
  return result;
}

Fragment Emitter::InSelectExpr(const Expression& expression, Scope& scope) {
  Fragment tested = Expr(*expression.operands[0], scope);
  SelectText inner = SelectOf(*expression.select, &scope, Naming::Numbered);
  if (inner.outputs.size() != 1) Fail(expression.token, "this select has to give one column");
  Fragment member = inner.outputs[0].fragment;
  member.sql = "\"c1\"";
  member.literal = -1;
  member.power = kPrimaryPower;
  member.needsRounding = false;
  const std::string column = Text(member);
  Match(tested, member, true);
  const std::string sql =
      Compared(tested, {&member}, true, kAddPower) + (expression.negated ? " NOT IN (" : " IN (");
  const std::string converted = Text(member);
  return Piece(
      expression.token,
      sql +
          (converted == column ? inner.sql : "SELECT " + converted + " FROM (" + inner.sql + ")") +
          ")",
      kEqualPower, ColumnType::YesNo, {&tested});
}

Fragment Emitter::SubSelectExpr(const Expression& expression, Scope& scope) {
  const SelectText inner = SelectOf(*expression.select, &scope, Naming::None);
  if (inner.outputs.size() != 1) Fail(expression.token, "this select has to give one column");
  return Piece(expression.token, "(" + inner.sql + ")", kPrimaryPower,
               inner.outputs[0].fragment.type, {});
}

}  // namespace quillary::jet
