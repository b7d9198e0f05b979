#include "data/jet/Emitter.h"
#include "data/jet/Functions.h"

namespace quillary::jet {
namespace {

const char* SignOf(Operator op) {
  switch (op) {
    case Operator::Equal:
      return " = ";
    case Operator::NotEqual:
      return " <> ";
    case Operator::Less:
      return " < ";
    case Operator::LessOrEqual:
      return " <= ";
    case Operator::Greater:
      return " > ";
    case Operator::GreaterOrEqual:
      return " >= ";
    case Operator::Add:
      return " + ";
    case Operator::Subtract:
      return " - ";
    case Operator::Multiply:
      return " * ";
    default:
      return " / ";
  }
}

bool IsFraction(const std::optional<ColumnType>& type) {
  return type == ColumnType::Double || type == ColumnType::Single;
}

// A sum or product of currencies and whole numbers is a currency again.
std::optional<ColumnType> NumberType(const Fragment& left, const Fragment& right) {
  if (!left.type || !right.type) return left.type ? left.type : right.type;
  return CommonType(left.type, right.type);
}

}  // namespace

Fragment Emitter::BinaryExpr(const Expression& expression, Scope& scope) {
  const Fragment left = Expr(*expression.operands[0], scope);
  const Fragment right = Expr(*expression.operands[1], scope);
  switch (expression.op) {
    case Operator::Or:
    case Operator::Xor:
    case Operator::And:
      return Logical(expression, left, right);
    case Operator::Like:
      return Like(expression, left, right);
    case Operator::Join:
      return JoinTexts(expression, left, right);
    case Operator::Add:
    case Operator::Subtract:
      return AddUp(expression, left, right);
    case Operator::Modulo:
    case Operator::WholeDivide:
    case Operator::Multiply:
    case Operator::Divide:
      return Arithmetic(expression, left, right);
    default:
      return Comparison(expression, left, right);
  }
}

Fragment Emitter::Logical(const Expression& expression, const Fragment& left,
                          const Fragment& right) {
  if (expression.op == Operator::Xor) {
    return Piece(expression.token,
                 Condition(left, kPrimaryPower) + " <> " + Condition(right, kPrimaryPower),
                 kEqualPower, ColumnType::YesNo, {&left, &right});
  }
  const bool both = expression.op == Operator::And;
  const int power = both ? kAndPower : kOrPower;
  return Piece(expression.token,
               Condition(left, power) + (both ? " AND " : " OR ") + Condition(right, power + 1),
               power, ColumnType::YesNo, {&left, &right});
}

Fragment Emitter::Comparison(const Expression& expression, Fragment left, Fragment right) {
  const bool equality = expression.op == Operator::Equal || expression.op == Operator::NotEqual;
  Match(left, right, equality);
  const int power = equality ? kEqualPower : kComparePower;
  return Piece(expression.token,
               Compared(left, {&right}, equality, power + 1) + SignOf(expression.op) +
                   Text(right, power + 1),
               power, ColumnType::YesNo, {&left, &right});
}

Fragment Emitter::Like(const Expression& expression, const Fragment& left, const Fragment& right) {
  // GLOB knows the same wildcards but for # and [!...]; [#] means the sign itself.
  const auto lowered = [&](const Fragment& text) {
    return Called(functions::kLcase, Text(AsText(text)));
  };
  const std::string pattern = "replace(replace(replace(replace(" + lowered(right) +
                              ", '[#]', char(1)), '#', '[0-9]'), char(1), '[#]'), '[!', '[^')";
  return Piece(expression.token, lowered(left) + " GLOB " + pattern, kEqualPower, ColumnType::YesNo,
               {&left, &right});
}

Fragment Emitter::JoinTexts(const Expression& expression, const Fragment& left,
                            const Fragment& right) {
  const auto text = [&](const Fragment& part) { return Text(AsText(part)); };
  const auto orEmpty = [&](const Fragment& part) {
    return part.IsLiteral() ? text(part) : "ifnull(" + text(part) + ", '')";
  };
  const std::string joined = orEmpty(left) + " || " + orEmpty(right);
  if (left.IsLiteral() || right.IsLiteral()) {
    return Piece(expression.token, joined, kConcatPower, ColumnType::Text, {&left, &right});
  }
  // Only two nulls join to a null.
  return Piece(expression.token,
               "CASE WHEN coalesce(" + text(left) + ", " + text(right) +
                   ") IS NULL THEN NULL ELSE " + joined + " END",
               kPrimaryPower, ColumnType::Text, {&left, &right});
}

Fragment Emitter::AddUp(const Expression& expression, const Fragment& left, const Fragment& right) {
  const Family families[] = {FamilyOf(left.type), FamilyOf(right.type)};
  const auto both = [&](Family family) {
    return (families[0] == family || families[0] == Family::Null) &&
           (families[1] == family || families[1] == Family::Null);
  };
  if (expression.op == Operator::Add && both(Family::Text)) {
    return Piece(expression.token, Text(left, kConcatPower) + " || " + Text(right, kSignPower),
                 kConcatPower, left.type || right.type ? ColumnType::Text : left.type,
                 {&left, &right});
  }
  if (families[0] == Family::Date || families[1] == Family::Date) {
    return ShiftDate(expression, left, right);
  }
  const Fragment one = AsNumber(left);
  const Fragment two = AsNumber(right);
  const auto plain = [&](Fragment part, int power) {
    part.needsRounding = false;  // the sum is rounded as a whole
    return Text(part, power);
  };
  Fragment sum = Piece(expression.token,
                       plain(one, kAddPower) + SignOf(expression.op) + plain(two, kAddPower + 1),
                       kAddPower, NumberType(one, two), {&left, &right});
  sum.needsRounding = sum.type == ColumnType::Currency;
  return sum;
}

Fragment Emitter::ShiftDate(const Expression& expression, const Fragment& left,
                            const Fragment& right) {
  const bool plus = expression.op == Operator::Add;
  const bool leftDate = left.type == ColumnType::Date;
  const bool rightDate = right.type == ColumnType::Date;
  if ((leftDate && rightDate) || (rightDate && !plus)) {
    const Fragment days = Piece(expression.token,
                                Text(AsNumber(left), kAddPower) + SignOf(expression.op) +
                                    Text(AsNumber(right), kAddPower + 1),
                                kAddPower, ColumnType::Double, {&left, &right});
    // A day and a time of day add up to a moment.
    return plus ? As(days, ColumnType::Date) : days;
  }
  const Fragment& date = leftDate ? left : right;
  const Fragment days = AsNumber(leftDate ? right : left);
  const std::string shift = (plus ? "(" : "(-") + Text(days, kPrimaryPower) + ") || ' days'";
  return Piece(expression.token, "datetime(" + Text(date) + ", " + shift + ")", kPrimaryPower,
               ColumnType::Date, {&left, &right});
}

Fragment Emitter::Arithmetic(const Expression& expression, const Fragment& left,
                             const Fragment& right) {
  const Fragment one = AsNumber(left);
  const Fragment two = AsNumber(right);
  if (expression.op == Operator::WholeDivide || expression.op == Operator::Modulo) {
    const std::string whole =
        IsWholeType(one.type) ? Text(one, kPrimaryPower) : Called(functions::kClng, Text(one));
    return Piece(expression.token,
                 whole + (expression.op == Operator::Modulo ? " % " : " / ") +
                     Divisor(two, ColumnType::Long),
                 kMultiplyPower, ColumnType::Long, {&left, &right});
  }
  if (expression.op == Operator::Divide) {
    // Columns of fractions hold whole values as whole numbers, whose quotient would be cut.
    return Piece(expression.token,
                 "CAST(" + Text(one) + " AS REAL) / " + Divisor(two, ColumnType::Double),
                 kMultiplyPower, ColumnType::Double, {&left, &right});
  }
  std::optional<ColumnType> type = NumberType(one, two);
  const bool squared = one.type == ColumnType::Currency && two.type == ColumnType::Currency;
  Fragment product =
      Piece(expression.token, Text(one, kMultiplyPower) + " * " + Text(two, kMultiplyPower + 1),
            kMultiplyPower, squared || IsFraction(type) ? std::optional(ColumnType::Double) : type,
            {&left, &right});
  product.needsRounding = product.type == ColumnType::Currency;
  return product;
}

std::string Emitter::Divisor(const Fragment& number, ColumnType type) {
  if (number.IsLiteral()) {
    return (number.negative ? "-" : "") +
           Parameter({.literal = number.literal, .convertTo = type, .divides = true});
  }
  const bool rounds = type == ColumnType::Long && !IsWholeType(number.type);
  return Called(functions::kDivisor,
                rounds ? Called(functions::kClng, Text(number)) : Text(number));
}

}  // namespace quillary::jet
