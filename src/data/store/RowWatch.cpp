#include "data/store/RowWatch.h"

#include "data/store/Statement.h"

#include <cstring>

namespace quillary {
namespace {

RowCell CellOf(sqlite3_value* value) {
  RowCell cell;
  const int type = sqlite3_value_type(value);
  switch (type) {
    case SQLITE_INTEGER:
      cell.kind = RowCell::Kind::Whole;
      cell.whole = sqlite3_value_int64(value);
      break;
    case SQLITE_FLOAT:
      cell.kind = RowCell::Kind::Fraction;
      cell.fraction = sqlite3_value_double(value);
      break;
    case SQLITE_TEXT:
    case SQLITE_BLOB: {
      cell.kind = type == SQLITE_TEXT ? RowCell::Kind::Text : RowCell::Kind::Blob;
      // Asked for as a blob, a text is not copied for the sake of a zero at its end.
      const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value));
      cell.bytes = {bytes, static_cast<size_t>(sqlite3_value_bytes(value))};
      break;
    }
    default:
      break;
  }
  return cell;
}

}  // namespace

void RowWatch::Attach(sqlite3* database) {
  facts_.clear();
  // With this hook SQLite also deletes row by row where it would otherwise empty a table unheard.
  sqlite3_preupdate_hook(database, &RowWatch::OnRow, this);
}

void RowWatch::RecordInto(RowLog* log) {
  log_ = log;
  facts_.clear();
}

RowWatch::Mark RowWatch::Here() const {
  return {tables_.size(), log_, log_ ? log_->Size() : 0};
}

void RowWatch::BackTo(const Mark& mark) {
  tables_.resize(std::min(tables_.size(), mark.tables));
  latest_ = 0;
  // A log that was begun since has nothing from before the mark.
  if (log_) log_->BackTo(log_ == mark.log ? mark.logSize : 0);
}

std::vector<std::string> RowWatch::TakeTables() {
  latest_ = 0;
  return std::exchange(tables_, {});
}

void RowWatch::OnRow(void* self, sqlite3* database, int deed, const char* in, const char* table,
                     sqlite3_int64 before, sqlite3_int64 after) {
  if (std::strcmp(in, "main") != 0 || std::strncmp(table, "sqlite_", 7) == 0) return;
  auto& watch = *static_cast<RowWatch*>(self);
  // No exception may pass through SQLite's own code.
  try {
    watch.NoteTable(table);
    if (watch.log_) watch.Record(database, deed, table, before, after);
  } catch (const std::exception&) {
    if (watch.log_) watch.log_->SetLost();
  }
}

void RowWatch::NoteTable(const char* table) {
  if (latest_ < tables_.size() && tables_[latest_] == table) return;
  const auto at = std::find(tables_.begin(), tables_.end(), table);
  latest_ = static_cast<size_t>(at - tables_.begin());
  if (at == tables_.end()) tables_.emplace_back(table);
}

const RowWatch::TableFacts& RowWatch::FactsOf(const char* table) {
  if (latestFacts_ < facts_.size() && facts_[latestFacts_].name == table) {
    return facts_[latestFacts_];
  }
  for (latestFacts_ = 0; latestFacts_ < facts_.size(); ++latestFacts_) {
    if (facts_[latestFacts_].name == table) return facts_[latestFacts_];
  }
  TableFacts facts;
  facts.name = table;
  facts.leftOut = leftOut_.contains(facts.name);
  if (!facts.leftOut) facts.index = log_->IndexOfTable(table);
  if (const jet::Table* known = catalogue_.FindTable(QString::fromUtf8(table))) {
    for (const jet::Column& column : known->columns) {
      facts.isYesNo.push_back(column.type == jet::ColumnType::YesNo);
    }
  }
  return facts_.emplace_back(std::move(facts));
}

RowCell RowWatch::Before(sqlite3* database, const TableFacts& facts, size_t column) {
  sqlite3_value* value = nullptr;
  if (sqlite3_preupdate_old(database, static_cast<int>(column), &value) != SQLITE_OK) {
    log_->SetLost();
    return {};
  }
  RowCell cell = CellOf(value);
  // A row from before its table got the column is told as null there, though it reads as No.
  if (cell.kind == RowCell::Kind::Null && column < facts.isYesNo.size() && facts.isYesNo[column]) {
    cell.kind = RowCell::Kind::Whole;
  }
  return cell;
}

void RowWatch::Record(sqlite3* database, int deed, const char* table, qint64 before, qint64 after) {
  const TableFacts& facts = FactsOf(table);
  if (facts.leftOut) return;
  if (deed == SQLITE_INSERT) {
    log_->Begin(RowChange::Kind::Insert, facts.index, after);
    return log_->End();
  }
  // The dialect lets no statement give a row another number.
  if (deed == SQLITE_UPDATE && before != after) return log_->SetLost();
  if (deed == SQLITE_UPDATE) return RecordUpdate(database, facts, before);
  log_->Begin(RowChange::Kind::Delete, facts.index, before);
  const auto count = static_cast<size_t>(sqlite3_preupdate_count(database));
  for (size_t column = 0; column < count; ++column) {
    const RowCell cell = Before(database, facts, column);
    if (cell.kind != RowCell::Kind::Null) log_->Put(column, cell);
  }
  log_->End();
}

void RowWatch::RecordUpdate(sqlite3* database, const TableFacts& facts, qint64 row) {
  const size_t start = log_->Size();
  bool changed = false;
  log_->Begin(RowChange::Kind::Update, facts.index, row);
  const auto look = [&](size_t column) {
    sqlite3_value* after = nullptr;
    if (sqlite3_preupdate_new(database, static_cast<int>(column), &after) != SQLITE_OK) {
      return log_->SetLost();
    }
    const RowCell before = Before(database, facts, column);
    if (before == CellOf(after)) return;
    log_->Put(column, before);
    changed = true;
  };
  if (expected_) {
    for (const size_t column : *expected_) look(column);
  } else {
    const auto count = static_cast<size_t>(sqlite3_preupdate_count(database));
    for (size_t column = 0; column < count; ++column) look(column);
  }
  if (changed) {
    log_->End();
  } else {
    log_->BackTo(start);
  }
}

}  // namespace quillary
