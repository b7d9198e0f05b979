#pragma once

#include "data/jet/Catalogue.h"
#include "data/jet/Tree.h"

#include <limits>
#include <string>
#include <vector>

namespace quillary::jet {

struct VisibleSource {
  QString alias;
  const Table* table = nullptr;
  bool derived = false;      // a select in FROM
  bool contributes = false;  // to the columns of the select
};

/// The tables whose columns an expression may name, innermost select first.
struct Scope {
  const Scope* outer = nullptr;
  std::vector<VisibleSource> sources;
  // While the condition of a join is read, only the tables that it joins are visible.
  size_t firstVisible = 0;
  size_t endVisible = std::numeric_limits<size_t>::max();
  bool aggregatesAllowed = false;
  bool inAggregate = false;
  bool grouped = false;
  std::vector<std::string> groups;  // the emitted expressions of GROUP BY
  // Whose columns may be called by their aliases, and those that stand in one another just now.
  const Select* named = nullptr;
  std::vector<const SelectItem*> expanding;

  struct Found {
    const VisibleSource* source = nullptr;
    const Column* column = nullptr;
    const Scope* scope = nullptr;
    bool ambiguous = false;
  };
  /// Looks a column up, here first and then outwards. Nothing found leaves all null.
  Found Find(const QString& qualifier, const QString& name) const;
  const VisibleSource* FindSource(const QString& alias) const;
};

/// Whether an aggregate stands in the expression itself, sub-selects apart.
bool HasAggregate(const Expression& expression);
bool IsAggregateName(const QString& upperName);

}  // namespace quillary::jet
