#include "data/access/TableWriter.h"

#include "data/schema/Schema.h"

#include <limits>

namespace quillary {
namespace {

using jet::ColumnType;

constexpr qsizetype kMostReasons = 100;
// A counter that claims to stand farther above its rows than this is damage, and going on from
// there could use up the numbers that are left.
constexpr qint64 kFarthestCounter = 1'000'000;

struct LaterTable {
  const char* name;
  int sinceVersion;
};
constexpr LaterTable kLaterTables[] = {
    {"Divisions", 32}, {"Countries", 32},      {"lstClientsToPrint", 32}, {"Holiday", 36},
    {"Quotes", 42},    {"Quote_Services", 42}, {"Suburb_Position", 41},
};

int FirstVersionWith(const QString& table) {
  for (const LaterTable& later : kLaterTables) {
    if (table == QLatin1String(later.name)) return later.sinceVersion;
  }
  return 0;
}

const char* TypeWord(ColumnType type) {
  switch (type) {
    case ColumnType::Counter:
      return "COUNTER";
    case ColumnType::Long:
      return "LONG";
    case ColumnType::Single:
      return "SINGLE";
    case ColumnType::Double:
      return "DOUBLE";
    case ColumnType::Currency:
      return "CURRENCY";
    case ColumnType::Date:
      return "DATE";
    case ColumnType::YesNo:
      return "YESNO";
    case ColumnType::Memo:
      return "MEMO";
    case ColumnType::Text:
      break;
  }
  return "TEXT";
}

std::string Bracketed(const QString& name) {
  return "[" + name.toStdString() + "]";
}

std::string CreateStatement(const jet::Table& table) {
  std::string statement = "CREATE TABLE " + Bracketed(table.name) + " (";
  const char* separator = "";
  for (const jet::Column& column : table.columns) {
    statement += separator + Bracketed(column.name) + " " + TypeWord(column.type);
    if (column.width > 0) statement += "(" + std::to_string(column.width) + ")";
    separator = ", ";
  }
  return statement + ")";
}

std::string InsertStatement(const jet::Table& table) {
  std::string names;
  std::string places;
  for (const jet::Column& column : table.columns) {
    const char* separator = names.empty() ? "" : ", ";
    names += separator + Bracketed(column.name);
    places += std::string(separator) + "{}";
  }
  return "INSERT INTO " + Bracketed(table.name) + " (" + names + ") VALUES (" + places + ")";
}

/// A sum of damaged amounts may leave the range of money; it then stays at its end.
Money Sum(Money a, Money b) {
  qint64 units = 0;
  if (!__builtin_add_overflow(a.Units(), b.Units(), &units)) return Money::FromUnits(units);
  return Money::FromUnits(b.Units() > 0 ? std::numeric_limits<qint64>::max()
                                        : std::numeric_limits<qint64>::min());
}

}  // namespace

QStringList MissingTables(const jet::Catalogue& file, int version) {
  QStringList missing;
  for (const QString& table : BusinessTables()) {
    if (FirstVersionWith(table) <= version && file.FindTable(table) == nullptr) missing += table;
  }
  return missing;
}

void TableWriter::OnTables(const std::vector<AccessTable>& tables) {
  tables_ = tables;
  for (const AccessTable& table : tables_) {
    TableReceipt receipt;
    receipt.table = table.schema.name;
    receipt.declared = table.declaredRows;
    receipt.columnsLeftOut = table.columnsLeftOut;
    for (const jet::Column& column : table.schema.columns) {
      if (column.type == ColumnType::Currency) receipt.totals.push_back({column.name, {}, {}});
    }
    receipt_.tables.push_back(std::move(receipt));
    try {
      file_.Run(CreateStatement(table.schema));
    } catch (const StatementRefused& refused) {
      throw AccessFailure(QStringLiteral("The table %1 cannot be taken over: %2.")
                              .arg(table.schema.name, QString::fromUtf8(refused.what())));
    }
  }
  const QStringList missing = MissingTables(file_.Schema(), 0);
  if (!missing.isEmpty()) {
    throw AccessFailure(QStringLiteral("It is an Access file, but no business of Quillary: it "
                                       "lacks the tables %1.")
                            .arg(missing.join(QStringLiteral(", "))));
  }
  BeginTable();
}

void TableWriter::BeginTable() {
  if (current_ >= tables_.size()) return;
  const jet::Table& table = tables_[current_].schema;
  insert_ = InsertStatement(table);
  currencyColumns_.clear();
  counterColumn_ = -1;
  highestCounter_ = 0;
  for (size_t i = 0; i < table.columns.size(); ++i) {
    if (table.columns[i].type == ColumnType::Currency) currencyColumns_.push_back(i);
    if (table.columns[i].type == ColumnType::Counter) counterColumn_ = static_cast<int>(i);
  }
}

void TableWriter::OnRow(const AccessTable&, const std::vector<Value>& cells) {
  TableReceipt& receipt = receipt_.tables[current_];
  ++receipt.read;
  Sql insert(insert_.c_str());
  for (const Value& cell : cells) insert = insert + Sql("", cell);
  try {
    file_.Run(insert);
  } catch (const StatementRefused& refused) {
    Reject(QStringLiteral("row %1: %2").arg(receipt.read).arg(QString::fromUtf8(refused.what())));
    return;
  }
  for (size_t i = 0; i < currencyColumns_.size(); ++i) {
    Money& total = receipt.totals[i].read;
    total = Sum(total, cells[currencyColumns_[i]].ToMoney());
  }
  if (counterColumn_ >= 0) {
    highestCounter_ =
        std::max(highestCounter_, cells[static_cast<size_t>(counterColumn_)].ToLong());
  }
}

void TableWriter::OnBadRow(const AccessTable&, const QString& reason) {
  ++receipt_.tables[current_].read;
  Reject(reason);
}

void TableWriter::Reject(const QString& reason) {
  TableReceipt& receipt = receipt_.tables[current_];
  ++receipt.rejected;
  if (receipt.rejections.size() < kMostReasons) receipt.rejections += reason;
}

void TableWriter::OnTableEnd(const AccessTable& table) {
  if (counterColumn_ >= 0) KeepCounter(table);
  ++current_;
  BeginTable();
}

void TableWriter::KeepCounter(const AccessTable& table) {
  const qint64 last = table.lastCounter;
  if (last <= highestCounter_ || last > highestCounter_ + kFarthestCounter) return;
  // The numbers of deleted rows may still stand in other tables; a new row must not inherit them.
  const std::string name = Bracketed(table.schema.name);
  const std::string counter =
      Bracketed(table.schema.columns[static_cast<size_t>(counterColumn_)].name);
  file_.Run(Sql(("INSERT INTO " + name + " (" + counter + ") VALUES ({})").c_str(), last));
  file_.Run(Sql(("DELETE FROM " + name + " WHERE " + counter + " = {}").c_str(), last));
}

}  // namespace quillary
