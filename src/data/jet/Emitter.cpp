#include "data/jet/Emitter.h"

#include "data/jet/Functions.h"
#include "data/jet/Parser.h"

namespace quillary::jet {
namespace {

// Sub-expressions that a rewrite writes twice could double and double again.
constexpr size_t kLongestText = 1 << 20;

}  // namespace

Translation Translate(const CutStatement& statement, const Catalogue& catalogue) {
  const Statement tree = Parser(statement).Parse();
  return Emitter(statement, catalogue).Emit(tree);
}

Emitter::Emitter(const CutStatement& statement, const Catalogue& catalogue)
    : statement_(statement), catalogue_(catalogue), reading_(&catalogue) {}

Translation Emitter::Emit(const Statement& tree) {
  if (const auto* select = std::get_if<Select>(&tree)) {
    EmitSelect(*select);
  } else if (const auto* insert = std::get_if<Insert>(&tree)) {
    EmitInsert(*insert);
  } else if (const auto* update = std::get_if<Update>(&tree)) {
    EmitUpdate(*update);
  } else if (const auto* erase = std::get_if<Delete>(&tree)) {
    EmitDelete(*erase);
  } else {
    EmitSchema(tree);
  }
  return std::move(result_);
}

void Emitter::Fail(const Token& token, const std::string& what) const {
  FailAt(statement_, token, what);
}

const Table& Emitter::TableNamed(const QString& name, const Token& token) const {
  const Table* table = reading_->FindTable(name);
  if (!table) Fail(token, "there is no table " + name.toStdString());
  return *table;
}

const Column& Emitter::ColumnNamed(const Table& table, const QString& name,
                                   const Token& token) const {
  const Column* column = table.Find(name);
  if (!column) {
    Fail(token, "there is no column " + name.toStdString() + " in " + table.name.toStdString());
  }
  return *column;
}

const Value& Emitter::LiteralOf(int literal) const {
  return statement_.literals.at(static_cast<size_t>(literal));
}

std::string Emitter::Parameter(const jet::Parameter& parameter) {
  const auto numbered = [](size_t number) { return "?" + std::to_string(number); };
  const auto known = numbers_.find(parameter);
  if (known != numbers_.end()) return numbered(known->second);
  auto& parameters = result_.parameters;
  // The same expression in SELECT and GROUP BY has to be the same text.
  for (size_t i = 0; grouped_ && i < parameters.size(); ++i) {
    jet::Parameter same = parameter;
    same.literal = parameters[i].literal;
    if (parameters[i] != same || LiteralOf(parameters[i].literal) != LiteralOf(parameter.literal)) {
      continue;
    }
    result_.mayBeCached = false;
    return numbered(i + 1);
  }
  parameters.push_back(parameter);
  numbers_[parameter] = parameters.size();
  return numbered(parameters.size());
}

std::string Emitter::Text(const Fragment& fragment, int power) {
  std::string sql = fragment.sql;
  int own = fragment.power;
  if (fragment.IsLiteral()) {
    sql = (fragment.negative ? "-" : "") + Parameter(fragment.literal, std::nullopt);
    own = fragment.negative ? kSignPower : kPrimaryPower;
  } else if (fragment.needsRounding) {
    sql = Called(functions::kMoney, sql);
    own = kPrimaryPower;
  }
  if (sql.size() > kLongestText) Fail(fragment.token, "this expression is too long");
  return own < power ? "(" + sql + ")" : sql;
}

Fragment Emitter::Piece(const Token& token, std::string sql, int power,
                        std::optional<ColumnType> type,
                        std::initializer_list<const Fragment*> parts) const {
  Fragment piece;
  piece.sql = std::move(sql);
  piece.power = power;
  piece.type = type;
  piece.token = token;
  for (const Fragment* part : parts) {
    if (!piece.ungrouped) piece.ungrouped = part->ungrouped;
    piece.aggregate = piece.aggregate || part->aggregate;
  }
  return piece;
}

void Emitter::EmitSelect(const Select& select) {
  ReadElsewhere(select);
  SelectText text = SelectOf(select, nullptr, Naming::None);
  if (select.into) {
    result_.into = IntoOf(*select.into, text.outputs);
    result_.changesSchema = true;
    result_.mayBeCached = false;
  }
  for (const Output& output : text.outputs) {
    result_.columns.push_back({output.name, output.fragment.type.value_or(ColumnType::Text)});
  }
  result_.givesRows = !select.into;
  result_.statements.push_back(std::move(text.sql));
}

void Emitter::ReadElsewhere(const Select& select) {
  if (select.fileLiteral < 0) return;
  const QString file = LiteralOf(select.fileLiteral).ToText();
  reading_ = catalogue_.Elsewhere(file);
  if (!reading_) Fail(select.fileToken, "this file can't be read");
  result_.sourceFile = file;
  result_.mayBeCached = false;
}

IntoTarget Emitter::IntoOf(const IntoName& into, const std::vector<Output>& outputs) const {
  IntoTarget target;
  target.table = into.table;
  if (into.fileLiteral >= 0) {
    target.file = LiteralOf(into.fileLiteral).ToText();
  } else if (catalogue_.FindTable(into.table)) {
    Fail(into.token, "there is a table " + into.table.toStdString() + " already");
  }
  for (const Output& output : outputs) {
    Column column;
    column.name = output.name;
    column.type = output.fragment.type.value_or(ColumnType::Text);
    if (output.fragment.column) column.width = output.fragment.column->width;
    // The new table counts nothing: its numbers are those of the rows it was made of.
    if (column.type == ColumnType::Counter) column.type = ColumnType::Long;
    target.columns.push_back(column);
  }
  return target;
}

}  // namespace quillary::jet
