#include "data/jet/Emitter.h"
#include "data/jet/Functions.h"

namespace quillary::jet {

Fragment Emitter::AggregateExpr(const Expression& expression, Scope& scope) {
  const Token& token = expression.token;
  if (scope.inAggregate) Fail(token, "an aggregate can't stand in an aggregate");
  if (!scope.aggregatesAllowed) Fail(token, "an aggregate can't stand here");
  const auto aggregate = [&](std::string sql, std::optional<ColumnType> type) {
    Fragment fragment = Piece(token, std::move(sql), kPrimaryPower, type, {});
    fragment.aggregate = true;
    return fragment;
  };
  if (expression.kind == Expression::Kind::CountRows)
    return aggregate("count(*)", ColumnType::Long);
  if (expression.operands.size() != 1) Fail(token, "an aggregate takes one value");
  scope.inAggregate = true;
  const Fragment value = Expr(*expression.operands[0], scope);
  scope.inAggregate = false;
  const QString& name = expression.name;
  if (name == u"COUNT") return aggregate("count(" + Text(value) + ")", ColumnType::Long);
  if (name == u"FIRST" || name == u"LAST") {
    const char* const function = name == u"FIRST" ? functions::kFirst : functions::kLast;
    return aggregate(Called(function, Text(value)), value.type);
  }
  const bool extreme = name == u"MIN" || name == u"MAX";
  if (extreme && FamilyOf(value.type) != Family::YesNo) {
    return aggregate((name == u"MIN" ? "min(" : "max(") + Folded(value) + ")",
                     value.type == ColumnType::Counter ? ColumnType::Long : value.type);
  }
  if (FamilyOf(value.type) == Family::Text) Fail(value.token, "texts have no sum");
  const Fragment number = AsNumber(value);
  if (extreme) {
    return aggregate((name == u"MIN" ? "min(" : "max(") + Text(number) + ")", number.type);
  }
  const bool money = number.type == ColumnType::Currency;
  if (name == u"SUM") {
    return aggregate(Called(money ? functions::kMoneySum : "sum", Text(number)),
                     number.type == ColumnType::Counter ? ColumnType::Long : number.type);
  }
  Fragment average =
      aggregate("avg(" + Text(number) + ")", money ? ColumnType::Currency : ColumnType::Double);
  average.needsRounding = money;
  return average;
}

}  // namespace quillary::jet
