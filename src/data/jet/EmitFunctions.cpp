#include "data/jet/Emitter.h"
#include "data/jet/Functions.h"

#include <algorithm>
#include <array>

namespace quillary::jet {
namespace {

/// A function that becomes a fixed text. The letters of `takes` tell each argument: t text,
/// w whole number, n number, d date, x number or text as it stands.
struct Rule {
  const char16_t* name;
  const char* takes;
  const char* becomes;
  ColumnType gives;
};

constexpr std::array<Rule, 32> kRules{{
    {u"LEFT", "tw", "substr(@1, 1, max(@2, 0))", ColumnType::Text},
    {u"RIGHT", "tw", "substr(@1, -max(@2, 0), max(@2, 0))", ColumnType::Text},
    {u"MID", "tw", "substr(@1, @2)", ColumnType::Text},
    {u"MID", "tww", "substr(@1, @2, max(@3, 0))", ColumnType::Text},
    {u"TRIM", "t", "trim(@1)", ColumnType::Text},
    {u"LTRIM", "t", "ltrim(@1)", ColumnType::Text},
    {u"RTRIM", "t", "rtrim(@1)", ColumnType::Text},
    {u"UCASE", "t", "q_ucase(@1)", ColumnType::Text},
    {u"LCASE", "t", "q_lcase(@1)", ColumnType::Text},
    {u"LEN", "t", "length(@1)", ColumnType::Long},
    {u"INSTR", "tt", "instr(q_lcase(@1), q_lcase(@2))", ColumnType::Long},
    {u"INSTR", "wtt",
     "CASE instr(substr(q_lcase(@2), @1), q_lcase(@3)) WHEN 0 THEN 0 "
     "ELSE instr(substr(q_lcase(@2), @1), q_lcase(@3)) + @1 - 1 END",
     ColumnType::Long},
    {u"VAL", "t", "CAST(@1 AS REAL)", ColumnType::Double},
    {u"CLNG", "x", "q_clng(@1)", ColumnType::Long},
    {u"CINT", "x", "q_clng(@1)", ColumnType::Long},
    {u"CDBL", "x", "q_fraction(@1)", ColumnType::Double},
    {u"CSNG", "x", "q_fraction(@1)", ColumnType::Single},
    {u"CCUR", "x", "q_money(@1)", ColumnType::Currency},
    {u"CBOOL", "x", "q_yesno(@1)", ColumnType::YesNo},
    {u"CSTR", "t", "@1", ColumnType::Text},
    {u"CDATE", "d", "@1", ColumnType::Date},
    {u"DATEVALUE", "d", "(substr(@1, 1, 10) || ' 00:00:00')", ColumnType::Date},
    {u"YEAR", "d", "CAST(substr(@1, 1, 4) AS INTEGER)", ColumnType::Long},
    {u"MONTH", "d", "CAST(substr(@1, 6, 2) AS INTEGER)", ColumnType::Long},
    {u"DAY", "d", "CAST(substr(@1, 9, 2) AS INTEGER)", ColumnType::Long},
    {u"HOUR", "d", "CAST(substr(@1, 12, 2) AS INTEGER)", ColumnType::Long},
    {u"MINUTE", "d", "CAST(substr(@1, 15, 2) AS INTEGER)", ColumnType::Long},
    {u"SECOND", "d", "CAST(substr(@1, 18, 2) AS INTEGER)", ColumnType::Long},
    {u"WEEKDAY", "d", "(CAST(strftime('%w', @1) AS INTEGER) + 1)", ColumnType::Long},
    {u"INT", "n", "CAST(floor(@1) AS INTEGER)", ColumnType::Long},
    {u"FIX", "n", "CAST(@1 AS INTEGER)", ColumnType::Long},
    {u"SGN", "n", "sign(@1)", ColumnType::Long},
}};

bool IsFunctionName(const QString& name) {
  return name == u"IIF" || name == u"ISNULL" || name == u"NZ" || name == u"ABS" ||
         name == u"ROUND" || std::any_of(kRules.begin(), kRules.end(), [&](const Rule& rule) {
           return name == QStringView(rule.name);
         });
}

}  // namespace

Fragment Emitter::CallExpr(const Expression& expression, Scope& scope) {
  if (expression.kind == Expression::Kind::CountRows || IsAggregateName(expression.name)) {
    return AggregateExpr(expression, scope);
  }
  if (!IsFunctionName(expression.name)) Fail(expression.token, "there is no such function");
  std::vector<Fragment> arguments;
  for (const ExpressionPtr& operand : expression.operands) {
    arguments.push_back(Expr(*operand, scope));
  }
  Fragment call = SpecialCall(expression, arguments);
  for (const Fragment& argument : arguments) {
    if (!call.ungrouped) call.ungrouped = argument.ungrouped;
    call.aggregate = call.aggregate || argument.aggregate;
  }
  return call;
}

Fragment Emitter::SpecialCall(const Expression& expression,
                              const std::vector<Fragment>& arguments) {
  const Token& token = expression.token;
  const size_t count = arguments.size();
  if (expression.name == u"ISNULL" && count == 1) {
    return Piece(token, Text(arguments[0], kEqualPower + 1) + " IS NULL", kEqualPower,
                 ColumnType::YesNo, {});
  }
  const bool choice = expression.name == u"IIF"
                          ? count == 3
                          : expression.name == u"NZ" && (count == 1 || count == 2);
  if (choice) return Choice(expression, arguments);
  const bool abs = expression.name == u"ABS" && count == 1;
  const bool round = expression.name == u"ROUND" && (count == 1 || count == 2);
  if (abs || round) {
    const Fragment number = AsNumber(arguments[0]);
    std::string inner = Text(number);
    if (count == 2) inner += ", " + Text(As(arguments[1], ColumnType::Long));
    Fragment call = Piece(token, Called(abs ? "abs" : functions::kRound, inner), kPrimaryPower,
                          number.type, {});
    call.needsRounding = round && number.type == ColumnType::Currency;
    return call;
  }
  for (const Rule& rule : kRules) {
    const std::string_view takes = rule.takes;
    if (expression.name != QStringView(rule.name) || takes.size() != count) continue;
    std::vector<std::string> texts;
    for (size_t i = 0; i < count; ++i) {
      const Fragment& argument = arguments[i];
      const bool asIs = takes[i] == 'x' && FamilyOf(argument.type) == Family::Text;
      texts.push_back(Text(takes[i] == 't'   ? AsText(argument)
                           : takes[i] == 'w' ? As(argument, ColumnType::Long)
                           : takes[i] == 'd' ? As(argument, ColumnType::Date)
                           : asIs            ? argument
                                             : AsNumber(argument),
                           kPrimaryPower));
    }
    Fragment call =
        Piece(token, FilledTemplate(rule.becomes, texts, token), kPrimaryPower, rule.gives, {});
    call.foldedCase = expression.name == u"UCASE" || expression.name == u"LCASE";
    return call;
  }
  Fail(token, "this function takes other arguments");
}

Fragment Emitter::Choice(const Expression& expression, const std::vector<Fragment>& arguments) {
  const bool iif = expression.name == u"IIF";
  const Fragment& one = arguments[iif ? 1 : 0];
  Fragment other;
  if (arguments.size() > 1) {
    other = arguments[iif ? 2 : 1];
  } else {
    // Without a substitute a null number becomes 0 and all else the empty text.
    const bool number = FamilyOf(one.type) == Family::Number;
    other = Piece(expression.token, number ? "0" : "''", kPrimaryPower,
                  number ? ColumnType::Long : ColumnType::Text, {});
  }
  const std::optional<ColumnType> type = CommonType(one.type, other.type);
  const auto branch = [&](const Fragment& fragment) {
    // A null of yes or no is a null here; only columns turn it into no.
    if (!type || !fragment.type || fragment.type == type) return Text(fragment);
    return Text(As(fragment, *type));
  };
  if (!iif) {
    return Piece(expression.token, "ifnull(" + branch(one) + ", " + branch(other) + ")",
                 kPrimaryPower, type, {});
  }
  return Piece(expression.token,
               "CASE WHEN " + Condition(arguments[0]) + " THEN " + branch(one) + " ELSE " +
                   branch(other) + " END",
               kPrimaryPower, type, {});
}

std::string Emitter::FilledTemplate(const char* pattern, const std::vector<std::string>& arguments,
                                    const Token& token) const {
  std::string filled;
  for (const char* at = pattern; *at != 0; ++at) {
    if (*at == '@') {
      filled += arguments.at(static_cast<size_t>(*++at - '1'));
    } else {
      filled += *at;
    }
  }
  if (filled.size() > (1 << 20)) Fail(token, "this expression is too long");
  return filled;
}

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
    const std::string which = name == u"FIRST" ? "'$[0]')" : "'$[#-1]')";
    return aggregate("json_extract(json_group_array(" + Text(value) + "), " + which, value.type);
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
