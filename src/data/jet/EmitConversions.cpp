#include "data/jet/Emitter.h"
#include "data/jet/Functions.h"

namespace quillary::jet {
namespace {

// Julian day of day zero, from which the dialect counts dates.
constexpr char kDayZero[] = "2415018.5";

}  // namespace

Fragment Emitter::AsNumber(const Fragment& fragment) {
  if (fragment.IsLiteral()) {
    if (FamilyOf(fragment.type) == Family::Number) return fragment;
    const ColumnType to =
        fragment.type == ColumnType::YesNo ? ColumnType::Long : ColumnType::Double;
    return Piece(fragment.token, (fragment.negative ? "-" : "") + Parameter(fragment.literal, to),
                 fragment.negative ? kSignPower : kPrimaryPower, to, {});
  }
  switch (FamilyOf(fragment.type)) {
    case Family::Null:
    case Family::Number:
      return fragment;
    case Family::YesNo:
      return Piece(fragment.token, "-" + Text(fragment, kPrimaryPower), kSignPower,
                   ColumnType::Long, {&fragment});
    case Family::Date:
      return Piece(fragment.token, "julianday(" + Text(fragment) + ") - " + kDayZero, kAddPower,
                   ColumnType::Double, {&fragment});
    case Family::Text:
      break;
  }
  return Piece(fragment.token, Called(functions::kFraction, Text(fragment)), kPrimaryPower,
               ColumnType::Double, {&fragment});
}

Fragment Emitter::AsText(const Fragment& fragment) {
  const Family family = FamilyOf(fragment.type);
  if (family == Family::Null || family == Family::Text) return fragment;
  if (fragment.IsLiteral() && !fragment.negative) {
    return Piece(fragment.token, Parameter(fragment.literal, ColumnType::Text), kPrimaryPower,
                 ColumnType::Text, {});
  }
  if (family == Family::Date) {
    return Piece(fragment.token, Called(functions::kDateText, Text(fragment)), kPrimaryPower,
                 ColumnType::Text, {&fragment});
  }
  return Piece(fragment.token, Called(functions::kText, Text(AsNumber(fragment))), kPrimaryPower,
               ColumnType::Text, {&fragment});
}

Fragment Emitter::As(const Fragment& fragment, ColumnType type) {
  if (type == ColumnType::Counter) type = ColumnType::Long;
  if (!fragment.type) {
    const bool no = type == ColumnType::YesNo;
    return Piece(fragment.token, no ? "0" : "NULL", kPrimaryPower, type, {});
  }
  if (!fragment.IsLiteral()) {
    Fragment converted = ConvertedTo(fragment, type);
    converted.type = type;
    return converted;
  }
  // A sign does not change whether a number means yes; into a text it has to be written.
  if (fragment.negative && FamilyOf(type) == Family::Text) return AsText(fragment);
  const bool sign = fragment.negative && type != ColumnType::YesNo;
  if (fragment.negative && type == ColumnType::Date) return ConvertedTo(fragment, type);
  return Piece(fragment.token, (sign ? "-" : "") + Parameter(fragment.literal, type),
               sign ? kSignPower : kPrimaryPower, type, {});
}

Fragment Emitter::ConvertedTo(const Fragment& fragment, ColumnType type) {
  const Family from = FamilyOf(fragment.type);
  const auto call = [&](const char* function, const Fragment& argument) {
    return Piece(fragment.token, Called(function, Text(argument)), kPrimaryPower, type,
                 {&fragment});
  };
  switch (type) {
    case ColumnType::Counter:
    case ColumnType::Long:
      // What was reckoned may be larger than a column holds.
      if (IsWholeType(fragment.type) && fragment.column) return fragment;
      if (from == Family::YesNo) return AsNumber(fragment);
      return call(functions::kWhole, from == Family::Date ? AsNumber(fragment) : fragment);
    case ColumnType::Single:
    case ColumnType::Double:
      return AsNumber(fragment);
    case ColumnType::Currency:
      if (fragment.type == ColumnType::Currency || IsWholeType(fragment.type)) return fragment;
      if (from == Family::YesNo) return AsNumber(fragment);
      return call(functions::kMoney, from == Family::Date ? AsNumber(fragment) : fragment);
    case ColumnType::Date:
      if (from == Family::Date) return fragment;
      return call(functions::kDate, from == Family::Text ? fragment : AsNumber(fragment));
    case ColumnType::YesNo:
      if (fragment.sql == "0" || fragment.sql == "1") return fragment;
      if (from == Family::YesNo) {
        return Piece(fragment.token, "ifnull(" + Text(fragment) + ", 0)", kPrimaryPower, type,
                     {&fragment});
      }
      return call(functions::kYesNo, fragment);
    case ColumnType::Text:
    case ColumnType::Memo:
      break;
  }
  return AsText(fragment);
}

std::string Emitter::Condition(const Fragment& fragment, int power) {
  switch (FamilyOf(fragment.type)) {
    case Family::Null:
    case Family::YesNo:
      return Text(fragment, power);
    case Family::Number: {
      const std::string test = Text(fragment, kEqualPower + 1) + " <> 0";
      return kEqualPower < power ? "(" + test + ")" : test;
    }
    case Family::Text:
    case Family::Date:
      break;
  }
  Fail(fragment.token, "this is no condition");
}

void Emitter::AdaptLiteral(Fragment& literal, const Fragment& other, bool equality) {
  const Family have = FamilyOf(literal.type);
  const Family want = FamilyOf(other.type);
  if (have == want) {
    // A text with a value of no column beside it compares as written.
    return;
  }
  if (want == Family::YesNo) {
    if (equality) literal = As(literal, ColumnType::YesNo);
    return;
  }
  if (want == Family::Number) {
    const bool money = other.type == ColumnType::Currency && have == Family::Text;
    literal = money ? As(literal, ColumnType::Currency) : AsNumber(literal);
  } else if (want == Family::Text) {
    literal = AsText(literal);
  } else if (want == Family::Date) {
    literal = As(literal, ColumnType::Date);
  }
}

void Emitter::Match(Fragment& left, Fragment& right, bool equality) {
  if (!left.type || !right.type) return;
  if (right.IsLiteral()) {
    AdaptLiteral(right, left, equality);
  } else if (left.IsLiteral()) {
    AdaptLiteral(left, right, equality);
  }
  const bool bothYesNo = left.type == ColumnType::YesNo && right.type == ColumnType::YesNo;
  // Yes is -1 and so the lesser.
  if (bothYesNo && !equality) {
    left = AsNumber(left);
    right = AsNumber(right);
  }
  if (FamilyOf(left.type) != FamilyOf(right.type)) MatchFamilies(left, right);
}

void Emitter::MatchFamilies(Fragment& left, Fragment& right) {
  const auto has = [&](Family family) {
    return FamilyOf(left.type) == family || FamilyOf(right.type) == family;
  };
  if (has(Family::YesNo) && !has(Family::Number)) {
    Fail(right.token, "yes or no does not compare with this");
  }
  if (has(Family::Date) && has(Family::Text)) {
    (FamilyOf(left.type) == Family::Text ? left : right) =
        As(FamilyOf(left.type) == Family::Text ? left : right, ColumnType::Date);
  } else if (has(Family::Text)) {
    left = AsText(left);
    right = AsText(right);
  } else {
    left = AsNumber(left);
    right = AsNumber(right);
  }
}

}  // namespace quillary::jet
