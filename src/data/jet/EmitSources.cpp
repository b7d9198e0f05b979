#include "data/jet/Emitter.h"

namespace quillary::jet {
namespace {

bool OnlyInner(const Source& source) {
  if (source.kind != Source::Kind::Join) return true;
  return source.join == JoinKind::Inner && OnlyInner(*source.left) && OnlyInner(*source.right);
}

bool IsLeaf(const Source& source) {
  return source.kind != Source::Kind::Join;
}

/// The pieces of a run of inner joins: what is joined, and all conditions.
struct Chain {
  std::vector<std::string> sources;
  std::vector<std::string> conditions;
};

std::string Written(const Chain& chain, const std::string& first,
                    const std::string& lastCondition) {
  std::string sql = first;
  std::string on;
  const auto add = [&](const std::string& condition) {
    if (condition.empty()) return;
    on += (on.empty() ? " ON " : " AND ") + condition;
  };
  for (const std::string& source : chain.sources) {
    sql += (sql.empty() ? "" : " INNER JOIN ") + source;
  }
  for (const std::string& condition : chain.conditions) add(condition);
  add(lastCondition);
  return sql + on;
}

}  // namespace

// The sources are looked up from left to right as they are written, which is the order of "*".
void Emitter::Inspect(const Source& source, Scope& scope) {
  if (source.kind == Source::Kind::Join) {
    Inspect(*source.left, scope);
    Inspect(*source.right, scope);
    return;
  }
  if (scope.FindSource(source.alias) && !source.alias.isEmpty()) {
    Fail(source.token, "two tables have this name here");
  }
  if (source.kind == Source::Kind::Table) {
    scope.sources.push_back(
        {.alias = source.alias, .table = &TableNamed(source.table, source.token)});
    return;
  }
  if (source.alias.isEmpty()) Fail(source.token, "a select in FROM needs a name");
  scope.sources.push_back({.alias = source.alias, .derived = true});
}

std::string Emitter::From(const Source& source, Scope& scope) {
  Inspect(source, scope);
  scope.endVisible = 0;
  const std::string sql = Joined(source, scope);
  scope.firstVisible = 0;
  scope.endVisible = scope.sources.size();
  return sql;
}

std::string Emitter::Leaf(const Source& source, Scope& scope) {
  VisibleSource& visible = scope.sources[scope.endVisible++];
  if (source.kind == Source::Kind::Table) {
    const std::string table = Quoted(visible.table->name);
    const std::string alias = Quoted(source.alias);
    return table == alias ? table : table + " AS " + alias;
  }
  // A select in FROM sees nothing of the tables beside it.
  SelectText inner = SelectOf(*source.select, nullptr, Naming::Real);
  Table table;
  table.name = source.alias;
  for (const Output& output : inner.outputs) {
    Column column;
    column.name = output.name;
    column.type = output.fragment.type.value_or(ColumnType::Text);
    if (output.fragment.column) column.width = output.fragment.column->width;
    table.columns.push_back(column);
  }
  derived_.push_back(std::move(table));
  visible.table = &derived_.back();
  return "(" + inner.sql + ") AS " + Quoted(source.alias);
}

// SQLite plans chains of joins well and parenthesised ones badly, so joins are written as chains
// wherever that means the same: inner joins in any order, right joins as left ones.
std::string Emitter::Joined(const Source& source, Scope& scope) {
  if (IsLeaf(source)) return Leaf(source, scope);
  const size_t first = scope.endVisible;
  const std::string left = Joined(*source.left, scope);
  const bool inner = source.join == JoinKind::Inner;
  Chain chain;
  std::string right;
  if (inner && OnlyInner(*source.right)) {
    const auto collect = [&](const auto& self, const Source& part) -> void {
      if (IsLeaf(part)) {
        chain.sources.push_back(Leaf(part, scope));
        return;
      }
      const size_t start = scope.endVisible;
      self(self, *part.left);
      self(self, *part.right);
      if (!part.on) return;
      scope.firstVisible = start;
      chain.conditions.push_back(Condition(Expr(*part.on, scope), kAndPower));
    };
    collect(collect, *source.right);
  } else {
    right = Joined(*source.right, scope);
  }
  scope.firstVisible = first;
  const std::string on = source.on ? Condition(Expr(*source.on, scope), kAndPower) : "";
  if (right.empty()) return Written(chain, left, on);
  const auto join = [&](const std::string& one, const char* how, const std::string& other,
                        bool leaf) {
    return one + how + (leaf ? other : "(" + other + ")") + (on.empty() ? "" : " ON " + on);
  };
  const bool rightLeaf = IsLeaf(*source.right);
  if (source.join == JoinKind::Right) {
    return join(right, " LEFT JOIN ", left, IsLeaf(*source.left));
  }
  if (source.join == JoinKind::Left) return join(left, " LEFT JOIN ", right, rightLeaf);
  if (IsLeaf(*source.left)) return join(right, " INNER JOIN ", left, true);
  return join(left, " INNER JOIN ", right, rightLeaf);
}

}  // namespace quillary::jet
