#include "data/jet/Emitter.h"

#include <algorithm>

namespace quillary::jet {
namespace {

std::string OutputName(const std::vector<Output>& outputs, size_t index, Naming naming) {
  return naming == Naming::Real ? Quoted(outputs[index].name) : NumberedName(index);
}

}  // namespace

SelectText Emitter::SelectOf(const Select& select, const Scope* outer, Naming naming) {
  if (select.fileLiteral >= 0 && !result_.sourceFile) {
    Fail(select.fileToken, "only a select that stands alone reads another file");
  }
  return select.unions.empty() ? SimpleSelect(select, outer, naming)
                               : UnionOf(select, outer, naming);
}

SelectText Emitter::SimpleSelect(const Select& select, const Scope* outer, Naming naming) {
  Scope scope;
  scope.outer = outer;
  std::string body;
  if (select.from) body += " FROM " + From(*select.from, scope);
  if (select.where) body += " WHERE " + Condition(Expr(*select.where, scope));
  scope.aggregatesAllowed = true;
  body += GroupClause(select, scope);
  SelectText text;
  scope.named = &select;
  text.outputs = OutputsOf(select, scope);
  body += RowClause(select, scope);
  if (select.having) {
    const Fragment having = Expr(*select.having, scope);
    CheckGrouped(having, scope);
    body += " HAVING " + Condition(having);
  }
  // The order of a union belongs to the whole.
  std::vector<std::string> order;
  if (select.unions.empty()) order = OrderTerms(select, scope, text.outputs);
  if (select.topLiteral >= 0 && (!order.empty() || select.topPercent)) {
    text.sql = WithTies(select, body, order, text.outputs, naming);
    return text;
  }
  text.sql = std::string(select.distinct ? "SELECT DISTINCT " : "SELECT ") +
             ItemList(text.outputs, naming, select.distinct) + body;
  if (!order.empty()) text.sql += " ORDER BY " + Listed(order);
  if (select.topLiteral >= 0) {
    text.sql += " LIMIT " + Parameter(select.topLiteral, ColumnType::Long);
  }
  return text;
}

std::string Emitter::GroupClause(const Select& select, Scope& scope) {
  const bool aggregates =
      (select.having && HasAggregate(*select.having)) ||
      std::any_of(select.items.begin(), select.items.end(), [](const SelectItem& item) {
        return item.expression && HasAggregate(*item.expression);
      });
  if (select.having && !aggregates && select.groupBy.empty()) {
    Fail(select.having->token, "HAVING needs groups");
  }
  if (!select.groupBy.empty()) grouped_ = true;
  std::vector<std::string> groups;
  std::vector<std::string> folded;
  for (const ExpressionPtr& expression : select.groupBy) {
    const Fragment group = Expr(*expression, scope);
    if (group.aggregate) Fail(expression->token, "rows can't be grouped by an aggregate");
    if (group.IsLiteral()) Fail(expression->token, "rows can't be grouped by a literal");
    groups.push_back(Text(group));
    folded.push_back(Folded(group));
  }
  scope.groups = groups;
  scope.grouped = aggregates || !groups.empty();
  return groups.empty() ? "" : " GROUP BY " + Listed(folded);
}

void Emitter::CheckGrouped(const Fragment& fragment, const Scope& scope) const {
  if (!scope.grouped || !fragment.ungrouped) return;
  Fail(*fragment.ungrouped, "this column is neither grouped nor in an aggregate");
}

std::vector<Output> Emitter::OutputsOf(const Select& select, Scope& scope) {
  std::vector<Output> outputs;
  for (const SelectItem& item : select.items) {
    if (item.star) {
      if (scope.grouped) Fail(item.token, "a grouped select names its columns");
      AddStar(item, scope, outputs);
      continue;
    }
    Output output;
    output.fragment = Expr(*item.expression, scope);
    CheckGrouped(output.fragment, scope);
    const bool counted = output.fragment.type == ColumnType::Counter;
    if (counted && !output.fragment.column) output.fragment.type = ColumnType::Long;
    output.named = !item.alias.isEmpty();
    output.name = item.alias;
    if (output.fragment.column) {
      if (!output.named) output.name = output.fragment.column->name;
      output.sourceAlias =
          scope.Find(item.expression->qualifier, item.expression->name).source->alias;
    }
    outputs.push_back(std::move(output));
  }
  NameOutputs(outputs);
  return outputs;
}

void Emitter::AddStar(const SelectItem& item, Scope& scope, std::vector<Output>& outputs) const {
  bool found = false;
  for (VisibleSource& source : scope.sources) {
    if (!item.starOf.isEmpty() && source.alias.compare(item.starOf, Qt::CaseInsensitive) != 0) {
      continue;
    }
    found = true;
    source.contributes = true;
    for (const Column& column : source.table->columns) {
      Output output;
      output.name = column.name;
      output.sourceAlias = source.alias;
      output.fragment = Piece(item.token, Quoted(source.alias) + "." + Quoted(column.name),
                              kPrimaryPower, column.type, {});
      output.fragment.column = &column;
      if (!source.derived) output.fragment.table = source.table;
      outputs.push_back(std::move(output));
    }
  }
  if (!found) Fail(item.token, "there is no such table here");
}

// Columns of one name from several tables carry the table's name; what has none is numbered.
void Emitter::NameOutputs(std::vector<Output>& outputs) const {
  int unnamed = 1000;
  const std::vector<Output> before = outputs;
  for (Output& output : outputs) {
    if (output.name.isEmpty()) output.name = QStringLiteral("Expr%1").arg(unnamed++);
    if (output.named || !output.fragment.column) continue;
    const bool elsewhere = std::any_of(before.begin(), before.end(), [&](const Output& other) {
      return !other.named && other.fragment.column && other.sourceAlias != output.sourceAlias &&
             other.name.compare(output.name, Qt::CaseInsensitive) == 0;
    });
    if (elsewhere) output.name = output.sourceAlias + u'.' + output.name;
  }
}

std::string Emitter::ItemList(const std::vector<Output>& outputs, Naming naming, bool distinct) {
  std::vector<std::string> items;
  for (size_t i = 0; i < outputs.size(); ++i) {
    std::string item = distinct ? Folded(outputs[i].fragment) : Text(outputs[i].fragment);
    if (naming != Naming::None) item += " AS " + OutputName(outputs, i, naming);
    items.push_back(std::move(item));
  }
  return Listed(items);
}

std::vector<std::string> Emitter::OrderTerms(const Select& select, Scope& scope,
                                             const std::vector<Output>& outputs) {
  std::vector<std::string> terms;
  for (const OrderItem& item : select.orderBy) {
    const Fragment term = OrderTerm(*item.expression, scope, outputs);
    CheckGrouped(term, scope);
    terms.push_back(Ordered(term) + (item.descending ? " DESC" : ""));
  }
  return terms;
}

Fragment Emitter::OrderTerm(const Expression& expression, Scope& scope,
                            const std::vector<Output>& outputs) {
  if (expression.kind == Expression::Kind::Literal && expression.token.mark == Mark::Whole) {
    const qint64 ordinal = LiteralOf(expression.token.literal).ToLong();
    if (ordinal < 1 || ordinal > static_cast<qint64>(outputs.size())) {
      Fail(expression.token, "there is no column of that number");
    }
    result_.mayBeCached = false;
    return outputs[static_cast<size_t>(ordinal - 1)].fragment;
  }
  const bool bare = expression.kind == Expression::Kind::Column && expression.qualifier.isEmpty();
  const Scope::Found found =
      bare ? scope.Find(expression.qualifier, expression.name) : Scope::Found();
  if (!bare || (found.column && !found.ambiguous && found.scope == &scope)) {
    return Expr(expression, scope);
  }
  for (const Output& output : outputs) {
    if (output.name.compare(expression.name, Qt::CaseInsensitive) == 0) return output.fragment;
  }
  return Expr(expression, scope);
}

SelectText Emitter::Wrapped(SelectText inner, const std::vector<ColumnType>& types, Naming naming) {
  std::vector<std::string> items;
  bool converts = false;
  for (size_t i = 0; i < inner.outputs.size(); ++i) {
    Fragment& fragment = inner.outputs[i].fragment;
    const Column* column = fragment.column;
    fragment = Piece(fragment.token, NumberedName(i), kPrimaryPower, fragment.type, {});
    fragment.column = column;
    fragment = As(fragment, types[i]);
    const std::string sql = Text(fragment);
    converts = converts || sql != NumberedName(i);
    items.push_back(sql +
                    (naming == Naming::None ? "" : " AS " + OutputName(inner.outputs, i, naming)));
  }
  if (converts || naming == Naming::Real) {
    inner.sql = "SELECT " + Listed(items) + " FROM (" + inner.sql + ")";
  }
  return inner;
}

SelectText Emitter::UnionOf(const Select& select, const Scope* outer, Naming naming) {
  std::vector<SelectText> parts;
  parts.push_back(SimpleSelect(select, outer, Naming::Numbered));
  for (const Select::Union& part : select.unions) {
    parts.push_back(SelectOf(*part.select, outer, Naming::Numbered));
    if (parts.back().outputs.size() != parts.front().outputs.size()) {
      Fail(part.select->token, "the selects of a union have to give as many columns");
    }
  }
  std::vector<ColumnType> types;
  for (size_t i = 0; i < parts.front().outputs.size(); ++i) {
    std::optional<ColumnType> type;
    for (const SelectText& part : parts) type = CommonType(type, part.outputs[i].fragment.type);
    types.push_back(type.value_or(ColumnType::Text));
  }
  SelectText whole;
  std::vector<Output> outputs = parts.front().outputs;
  std::string columns;
  for (size_t i = 0; i < outputs.size(); ++i) {
    outputs[i].fragment = Piece(select.token, NumberedName(i), kPrimaryPower, types[i], {});
    columns += (i == 0 ? "" : ", ") + Folded(outputs[i].fragment) + " AS " + NumberedName(i);
  }
  for (size_t i = 0; i < parts.size(); ++i) {
    if (i > 0) whole.sql += select.unions[i - 1].all ? " UNION ALL " : " UNION ";
    SelectText part = Wrapped(std::move(parts[i]), types, Naming::Numbered);
    whole.sql += "SELECT " + columns + " FROM (" + part.sql + ")";
  }
  whole.outputs = outputs;
  std::vector<std::string> items;
  for (size_t i = 0; i < outputs.size(); ++i) {
    items.push_back(NumberedName(i) +
                    (naming == Naming::Real ? " AS " + Quoted(outputs[i].name) : ""));
  }
  whole.sql = "SELECT " + Listed(items) + " FROM (" + whole.sql + ")";
  Scope scope;
  const std::vector<std::string> order = OrderTerms(select, scope, outputs);
  if (!order.empty()) whole.sql += " ORDER BY " + Listed(order);
  return whole;
}

}  // namespace quillary::jet
