#include "data/jet/Scope.h"

#include <algorithm>
#include <array>

namespace quillary::jet {
namespace {

bool SameAlias(const QString& one, const QString& two) {
  return one.compare(two, Qt::CaseInsensitive) == 0;
}

}  // namespace

const Column* Table::Find(QStringView column) const {
  for (const Column& candidate : columns) {
    if (column.compare(candidate.name, Qt::CaseInsensitive) == 0) return &candidate;
  }
  return nullptr;
}

Scope::Found Scope::Find(const QString& qualifier, const QString& name) const {
  Found found;
  for (size_t i = firstVisible; i < std::min(endVisible, sources.size()); ++i) {
    const VisibleSource& source = sources[i];
    if (!qualifier.isEmpty() && !SameAlias(source.alias, qualifier)) continue;
    const Column* column = source.table->Find(name);
    if (!column) continue;
    found.ambiguous = found.column != nullptr;
    if (found.ambiguous) return found;
    found = {&source, column, this, false};
  }
  // An alias that hides an outer one hides its columns too.
  if (found.column || !outer || (!qualifier.isEmpty() && FindSource(qualifier))) return found;
  return outer->Find(qualifier, name);
}

const VisibleSource* Scope::FindSource(const QString& alias) const {
  for (const VisibleSource& source : sources) {
    if (SameAlias(source.alias, alias)) return &source;
  }
  return nullptr;
}

bool IsAggregateName(const QString& upperName) {
  constexpr std::array kNames{u"COUNT", u"SUM", u"MIN", u"MAX", u"AVG", u"FIRST", u"LAST"};
  return std::any_of(kNames.begin(), kNames.end(),
                     [&](const char16_t* name) { return upperName == QStringView(name); });
}

bool HasAggregate(const Expression& expression) {
  if (expression.kind == Expression::Kind::CountRows) return true;
  if (expression.kind == Expression::Kind::Call && IsAggregateName(expression.name)) return true;
  return std::any_of(expression.operands.begin(), expression.operands.end(),
                     [](const ExpressionPtr& operand) { return HasAggregate(*operand); });
}

}  // namespace quillary::jet
