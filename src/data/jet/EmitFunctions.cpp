#include "data/jet/Emitter.h"
#include "data/jet/Functions.h"

#include <algorithm>
#include <array>

namespace quillary::jet {
namespace {

/// A function that becomes a fixed text. The letters of `takes` tell each argument: t text,
/// w whole number, n number, d date, b yes or no, x number or text as it stands.
struct Rule {
  const char16_t* name;
  const char* takes;
  const char* becomes;
  ColumnType gives;
};

constexpr std::array<Rule, 53> kRules{{
    {u"LEFT", "tw", "substr(@1, 1, q_count(@2))", ColumnType::Text},
    {u"RIGHT", "tw", "substr(@1, -q_count(@2), q_count(@2))", ColumnType::Text},
    {u"MID", "tw", "substr(@1, q_place(@2))", ColumnType::Text},
    {u"MID", "tww", "substr(@1, q_place(@2), q_count(@3))", ColumnType::Text},
    {u"TRIM", "t", "trim(@1)", ColumnType::Text},
    {u"LTRIM", "t", "ltrim(@1)", ColumnType::Text},
    {u"RTRIM", "t", "rtrim(@1)", ColumnType::Text},
    {u"UCASE", "t", "q_ucase(@1)", ColumnType::Text},
    {u"LCASE", "t", "q_lcase(@1)", ColumnType::Text},
    {u"LEN", "t", "length(@1)", ColumnType::Long},
    {u"INSTR", "tt", "q_instr(1, @1, @2, 1)", ColumnType::Long},
    {u"INSTR", "wtt", "q_instr(@1, @2, @3, 1)", ColumnType::Long},
    {u"INSTR", "wttw", "q_instr(@1, @2, @3, @4)", ColumnType::Long},
    {u"REPLACE", "ttt", "q_replace(@1, @2, @3)", ColumnType::Text},
    {u"REPLACE", "tttw", "q_replace(@1, @2, @3, @4)", ColumnType::Text},
    {u"REPLACE", "tttww", "q_replace(@1, @2, @3, @4, @5)", ColumnType::Text},
    {u"REPLACE", "tttwww", "q_replace(@1, @2, @3, @4, @5, @6)", ColumnType::Text},
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
    {u"TIMEVALUE", "d", "('1899-12-30' || substr(@1, 11))", ColumnType::Date},
    {u"DATEADD", "twd", "q_dateadd(@1, @2, @3)", ColumnType::Date},
    {u"DATEDIFF", "tdd", "q_datediff(@1, @2, @3)", ColumnType::Long},
    {u"DATEDIFF", "tddw", "q_datediff(@1, @2, @3, @4)", ColumnType::Long},
    {u"DATEDIFF", "tddww", "q_datediff(@1, @2, @3, @4)", ColumnType::Long},
    {u"DATEPART", "td", "q_datepart(@1, @2)", ColumnType::Long},
    {u"DATEPART", "tdw", "q_datepart(@1, @2, @3)", ColumnType::Long},
    {u"DATEPART", "tdww", "q_datepart(@1, @2, @3, @4)", ColumnType::Long},
    {u"DATESERIAL", "www", "q_dateserial(@1, @2, @3)", ColumnType::Date},
    {u"TIMESERIAL", "www", "q_timeserial(@1, @2, @3)", ColumnType::Date},
    {u"YEAR", "d", "CAST(substr(@1, 1, 4) AS INTEGER)", ColumnType::Long},
    {u"MONTH", "d", "CAST(substr(@1, 6, 2) AS INTEGER)", ColumnType::Long},
    {u"DAY", "d", "CAST(substr(@1, 9, 2) AS INTEGER)", ColumnType::Long},
    {u"HOUR", "d", "CAST(substr(@1, 12, 2) AS INTEGER)", ColumnType::Long},
    {u"MINUTE", "d", "CAST(substr(@1, 15, 2) AS INTEGER)", ColumnType::Long},
    {u"SECOND", "d", "CAST(substr(@1, 18, 2) AS INTEGER)", ColumnType::Long},
    {u"WEEKDAY", "d", "(CAST(strftime('%w', @1) AS INTEGER) + 1)", ColumnType::Long},
    {u"WEEKDAY", "dw", "q_datepart('w', @1, @2)", ColumnType::Long},
    {u"MONTHNAME", "w", "q_monthname(@1)", ColumnType::Text},
    {u"MONTHNAME", "wb", "q_monthname(@1, @2)", ColumnType::Text},
    {u"WEEKDAYNAME", "w", "q_weekdayname(@1)", ColumnType::Text},
    {u"WEEKDAYNAME", "wb", "q_weekdayname(@1, @2)", ColumnType::Text},
    {u"WEEKDAYNAME", "wbw", "q_weekdayname(@1, @2, @3)", ColumnType::Text},
    {u"INT", "n", "CAST(floor(@1) AS INTEGER)", ColumnType::Long},
    {u"FIX", "n", "CAST(@1 AS INTEGER)", ColumnType::Long},
    {u"SGN", "n", "sign(@1)", ColumnType::Long},
}};

/// Functions whose text hangs on the types of their arguments.
constexpr std::array kSpecial{u"ISNULL",    u"ABS",  u"ROUND", u"FORMAT", u"ISDATE",
                              u"ISNUMERIC", u"DATE", u"TIME",  u"NOW"};

bool IsOneOf(const QString& name, const auto& names) {
  return std::any_of(names.begin(), names.end(),
                     [&](const char16_t* each) { return name == QStringView(each); });
}

}  // namespace

Fragment Emitter::CallExpr(const Expression& expression, Scope& scope) {
  if (expression.kind == Expression::Kind::CountRows || IsAggregateName(expression.name)) {
    return AggregateExpr(expression, scope);
  }
  const QString& name = expression.name;
  const bool ruled = std::any_of(kRules.begin(), kRules.end(),
                                 [&](const Rule& rule) { return name == QStringView(rule.name); });
  const bool special = IsOneOf(name, kSpecial);
  if (!ruled && !special && !IsChoice(expression)) {
    Fail(expression.token, "there is no such function");
  }
  std::vector<Fragment> arguments;
  for (const ExpressionPtr& operand : expression.operands) {
    arguments.push_back(Expr(*operand, scope));
  }
  Fragment call = special ? SpecialCall(expression, arguments)
                  : ruled ? RuledCall(expression, arguments)
                          : Choice(expression, arguments);
  for (const Fragment& argument : arguments) {
    if (!call.ungrouped) call.ungrouped = argument.ungrouped;
    call.aggregate = call.aggregate || argument.aggregate;
  }
  return call;
}

Fragment Emitter::SpecialCall(const Expression& expression,
                              const std::vector<Fragment>& arguments) {
  const Token& token = expression.token;
  const QString& name = expression.name;
  const size_t count = arguments.size();
  if (name == u"ISNULL" && count == 1) {
    return Piece(token, Text(arguments[0], kEqualPower + 1) + " IS NULL", kEqualPower,
                 ColumnType::YesNo, {});
  }
  if ((name == u"ABS" && count == 1) || (name == u"ROUND" && (count == 1 || count == 2))) {
    return Rounding(expression, arguments);
  }
  if (name == u"FORMAT" && count >= 1 && count <= 4) return Formatted(token, arguments);
  if (name.startsWith(u"IS") && count == 1) return ReadsAs(expression, arguments[0]);
  if (IsOneOf(name, std::array{u"DATE", u"TIME", u"NOW"}) && count == 0) {
    const Reading reading = name == u"DATE"   ? Reading::Date
                            : name == u"TIME" ? Reading::Time
                                              : Reading::Now;
    return Piece(token, Parameter({.reading = reading}), kPrimaryPower, ColumnType::Date, {});
  }
  Fail(token, "this function takes other arguments");
}

Fragment Emitter::Rounding(const Expression& expression, const std::vector<Fragment>& arguments) {
  const bool rounds = expression.name == u"ROUND";
  const Fragment number = AsNumber(arguments[0]);
  std::string inner = Text(number);
  if (arguments.size() == 2) inner += ", " + Text(As(arguments[1], ColumnType::Long));
  Fragment call = Piece(expression.token, Called(rounds ? functions::kRound : "abs", inner),
                        kPrimaryPower, number.type, {});
  call.needsRounding = rounds && number.type == ColumnType::Currency;
  return call;
}

Fragment Emitter::Formatted(const Token& token, const std::vector<Fragment>& arguments) {
  const Fragment& value = arguments[0];
  std::string inner;
  switch (FamilyOf(value.type)) {
    case Family::Number:
    case Family::YesNo:
      inner = "1, " + Text(AsNumber(value));
      break;
    case Family::Date:
      inner = "2, " + Text(value);
      break;
    case Family::Null:
    case Family::Text:
      inner = "0, " + Text(value);
  }
  for (size_t i = 1; i < arguments.size(); ++i) {
    inner += ", " + Text(i == 1 ? AsText(arguments[i]) : As(arguments[i], ColumnType::Long));
  }
  return Piece(token, Called(functions::kFormat, inner), kPrimaryPower, ColumnType::Text, {});
}

Fragment Emitter::ReadsAs(const Expression& expression, const Fragment& argument) {
  const bool date = expression.name == u"ISDATE";
  const Family family = FamilyOf(argument.type);
  std::string sql = "0";
  if (family == Family::Text) {
    sql = Called(date ? functions::kIsDate : functions::kIsNumeric, Text(argument));
  } else if (date ? family == Family::Date : family == Family::Number || family == Family::YesNo) {
    sql = "(" + Text(argument, kEqualPower + 1) + " IS NOT NULL)";
  }
  return Piece(expression.token, sql, kPrimaryPower, ColumnType::YesNo, {});
}

Fragment Emitter::RuledCall(const Expression& expression, const std::vector<Fragment>& arguments) {
  const Token& token = expression.token;
  const auto asTaken = [&](const Fragment& argument, char takes) {
    switch (takes) {
      case 't':
        return AsText(argument);
      case 'w':
        return As(argument, ColumnType::Long);
      case 'd':
        return As(argument, ColumnType::Date);
      case 'b':
        return As(argument, ColumnType::YesNo);
      case 'x':
        if (FamilyOf(argument.type) == Family::Text) return argument;
        break;
      default:
        break;
    }
    return AsNumber(argument);
  };
  for (const Rule& rule : kRules) {
    const std::string_view takes = rule.takes;
    if (expression.name != QStringView(rule.name) || takes.size() != arguments.size()) continue;
    std::vector<std::string> texts;
    for (size_t i = 0; i < arguments.size(); ++i) {
      texts.push_back(Text(asTaken(arguments[i], takes[i]), kPrimaryPower));
    }
    Fragment call =
        Piece(token, FilledTemplate(rule.becomes, texts, token), kPrimaryPower, rule.gives, {});
    call.foldedCase = expression.name == u"UCASE" || expression.name == u"LCASE";
    return call;
  }
  Fail(token, "this function takes other arguments");
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

}  // namespace quillary::jet
