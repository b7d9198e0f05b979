#include "data/jet/Fragment.h"

namespace quillary::jet {

std::string Quoted(const QString& name) {
  QString doubled = name;
  doubled.replace(u'"', QStringLiteral("\"\""));
  return "\"" + doubled.toStdString() + "\"";
}

std::string NumberedName(size_t index) {
  return "\"c" + std::to_string(index + 1) + "\"";
}

std::string Listed(const std::vector<std::string>& parts) {
  std::string list;
  for (const std::string& part : parts) {
    if (!list.empty()) list += ", ";
    list += part;
  }
  return list;
}

std::optional<ColumnType> CommonType(std::optional<ColumnType> one, std::optional<ColumnType> two) {
  const auto plain = [](std::optional<ColumnType> type) {
    return type == ColumnType::Counter ? ColumnType::Long : type;
  };
  one = plain(one);
  two = plain(two);
  if (!one || one == two) return two;
  if (!two) return one;
  const Family families[] = {FamilyOf(one), FamilyOf(two)};
  const auto has = [&](Family family) { return families[0] == family || families[1] == family; };
  if (has(Family::Text)) {
    const bool memo = one == ColumnType::Memo || two == ColumnType::Memo;
    return memo ? ColumnType::Memo : ColumnType::Text;
  }
  if (has(Family::Date)) return ColumnType::Date;
  const auto is = [&](ColumnType type) { return one == type || two == type; };
  for (const ColumnType widest : {ColumnType::Double, ColumnType::Single, ColumnType::Currency}) {
    if (is(widest)) return widest;
  }
  return ColumnType::Long;
}

}  // namespace quillary::jet
