#include "data/store/AsciiColumns.h"

#include "data/store/Statement.h"

#include <algorithm>

namespace quillary {
namespace {

std::string InQuotes(QString name) {
  name.replace(u'"', QStringLiteral("\"\""));
  return (u'"' + name + u'"').toStdString();
}

}  // namespace

bool AsciiColumns::Holds(sqlite3* database, const jet::ColumnName& column) {
  const auto known = known_.find(column);
  if (known != known_.end()) return known->second;
  Statement other(database, "SELECT 1 FROM " + InQuotes(column.table) + " WHERE " +
                                InQuotes(column.column) + " GLOB '*[^\x01-\x7f]*' LIMIT 1");
  return known_[column] = !other.Step();
}

bool AsciiColumns::IsKnown(const jet::ColumnName& column) const {
  const auto known = known_.find(column);
  return known != known_.end() && known->second;
}

bool AsciiColumns::Forget() noexcept {
  const bool relied =
      std::any_of(known_.begin(), known_.end(), [](const auto& each) { return each.second; });
  known_.clear();
  return relied;
}

}  // namespace quillary
