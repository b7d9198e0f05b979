#include "data/jet/Emitter.h"
#include "data/jet/Functions.h"

namespace quillary::jet {

bool Emitter::IsChoice(const Expression& expression) const {
  const QString& name = expression.name;
  return name == u"IIF" || name == u"NZ" || name == u"SWITCH" || name == u"CHOOSE";
}

Fragment Emitter::Choice(const Expression& expression, const std::vector<Fragment>& arguments) {
  const Token& token = expression.token;
  const QString& name = expression.name;
  const size_t count = arguments.size();
  if (name == u"IIF" && count == 3) {
    return Cases(token, {Condition(arguments[0])}, {arguments[1], arguments[2]}, "");
  }
  if (name == u"NZ" && (count == 1 || count == 2)) return IfNull(token, arguments);
  std::vector<std::string> whens;
  std::vector<Fragment> values;
  if (name == u"SWITCH" && count >= 2 && count % 2 == 0) {
    for (size_t i = 0; i < count; i += 2) {
      whens.push_back(Condition(arguments[i]));
      values.push_back(arguments[i + 1]);
    }
    return Cases(token, whens, values, "");
  }
  if (name == u"CHOOSE" && count >= 2) {
    for (size_t i = 1; i < count; ++i) whens.push_back(std::to_string(i));
    values.assign(arguments.begin() + 1, arguments.end());
    return Cases(token, whens, values, " " + Text(As(arguments[0], ColumnType::Long)));
  }
  Fail(token, "this function takes other arguments");
}

// As many values as conditions, or one more for when none holds. All come in the type that holds
// each of them.
Fragment Emitter::Cases(const Token& token, const std::vector<std::string>& whens,
                        const std::vector<Fragment>& values, const std::string& head) {
  std::optional<ColumnType> type;
  for (const Fragment& value : values) type = CommonType(type, value.type);
  std::string sql = "CASE" + head;
  for (size_t i = 0; i < values.size(); ++i) {
    const Fragment& value = values[i];
    sql += i < whens.size() ? " WHEN " + whens[i] + " THEN " : " ELSE ";
    // A null of yes or no is a null here; only columns turn it into no.
    const bool asItIs = !type || !value.type || value.type == type;
    sql += Text(asItIs ? value : As(value, *type));
  }
  return Piece(token, sql + " END", kPrimaryPower, type, {});
}

Fragment Emitter::IfNull(const Token& token, const std::vector<Fragment>& arguments) {
  const Fragment& value = arguments[0];
  // Without a substitute a null number becomes 0 and all else the empty text.
  const bool number = FamilyOf(value.type) == Family::Number;
  const Fragment other = arguments.size() > 1
                             ? arguments[1]
                             : Piece(token, number ? "0" : "''", kPrimaryPower,
                                     number ? ColumnType::Long : ColumnType::Text, {});
  const std::optional<ColumnType> type = CommonType(value.type, other.type);
  const auto branch = [&](const Fragment& fragment) {
    const bool asItIs = !type || !fragment.type || fragment.type == type;
    return Text(asItIs ? fragment : As(fragment, *type));
  };
  return Piece(token, "ifnull(" + branch(value) + ", " + branch(other) + ")", kPrimaryPower, type,
               {});
}

}  // namespace quillary::jet
