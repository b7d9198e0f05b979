#include "data/jet/Emitter.h"

#include <algorithm>

namespace quillary::jet {

// One row for each combination of rows of the tables that columns are taken from. Where all are, or
// where rows are gathered, there is nothing to leave out.
std::string Emitter::RowClause(const Select& select, const Scope& scope) const {
  if (!select.distinctRow || scope.grouped) return "";
  std::vector<std::string> rows;
  for (const VisibleSource& source : scope.sources) {
    if (!source.contributes) continue;
    if (source.derived) Fail(select.token, "DISTINCTROW needs tables");
    rows.push_back(Quoted(source.alias) + ".rowid");
  }
  if (rows.empty() || rows.size() == scope.sources.size()) return "";
  return " GROUP BY " + Listed(rows);
}

// Rows that tie with the last one of TOP come too.
std::string Emitter::WithTies(const Select& select, const std::string& body,
                              const std::vector<std::string>& order, std::vector<Output>& outputs,
                              Naming naming) {
  std::string picked;
  for (size_t i = 0; i < outputs.size(); ++i) {
    picked += (i == 0 ? "" : ", ") + NumberedName(i);
    if (naming == Naming::Real) picked += " AS " + Quoted(outputs[i].name);
  }
  std::string ranks = order.empty() ? "row_number() OVER ()" : "rank() OVER (ORDER BY ";
  if (!order.empty()) {
    ranks += Listed(select.distinct ? OrderByColumn(select, order, outputs) : order) + ")";
  }
  ranks += " AS \"rank\"";
  if (select.topPercent) ranks += ", count(*) OVER () AS \"all\"";
  std::string rows = ItemList(outputs, Naming::Numbered, select.distinct);
  if (select.distinct) {
    rows = "*, " + ranks + " FROM (SELECT DISTINCT " + rows + body + ")";
  } else {
    rows += ", " + ranks + body;
  }
  return "SELECT " + picked + " FROM (SELECT " + rows + ") WHERE \"rank\" <= " + UpToTop(select) +
         " ORDER BY \"rank\"";
}

std::string Emitter::UpToTop(const Select& select) {
  if (!select.topPercent) return Parameter(select.topLiteral, ColumnType::Long);
  const qint64 percent = LiteralOf(select.topLiteral).ToLong();
  if (percent > 100) Fail(select.token, "TOP takes at most 100 percent");
  result_.mayBeCached = false;
  // A part of a row is a row.
  return "(\"all\" * " + Parameter(select.topLiteral, ColumnType::Long) + " + 99) / 100";
}

std::vector<std::string> Emitter::OrderByColumn(const Select& select,
                                                const std::vector<std::string>& order,
                                                const std::vector<Output>& outputs) {
  std::vector<std::string> byColumn;
  for (size_t i = 0; i < select.orderBy.size(); ++i) {
    const std::string direction = select.orderBy[i].descending ? " DESC" : "";
    const auto output = std::find_if(outputs.begin(), outputs.end(), [&](const Output& each) {
      return Ordered(each.fragment) + direction == order[i];
    });
    if (output == outputs.end()) {
      Fail(select.orderBy[i].expression->token, "distinct rows are ordered by their columns");
    }
    const std::string name = NumberedName(static_cast<size_t>(output - outputs.begin()));
    byColumn.push_back(
        Ordered(Piece(select.token, name, kPrimaryPower, output->fragment.type, {})) + direction);
  }
  return byColumn;
}

}  // namespace quillary::jet
