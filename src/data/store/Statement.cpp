#include "data/store/Statement.h"

#include <cmath>
#include <cstring>

namespace quillary {
namespace {

std::optional<StorageFault> FaultOf(int code) {
  switch (code & 0xff) {
    case SQLITE_FULL:
      return StorageFault::DiskFull;
    case SQLITE_IOERR:
      return StorageFault::InputOutput;
    case SQLITE_CORRUPT:
      return StorageFault::Damaged;
    case SQLITE_NOTADB:
      return StorageFault::NotADatabase;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return StorageFault::InUse;
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return StorageFault::ReadOnly;
    case SQLITE_CANTOPEN:
      return StorageFault::CannotOpen;
    case SQLITE_NOMEM:
      return StorageFault::OutOfMemory;
    default:
      return std::nullopt;
  }
}

// Currency is stored as the double nearest to its decimal digits. The way back is exact: the next
// multiple of a ten-thousandth.
Money MoneyOf(double stored) {
  return Money::FromUnits(std::llround(stored * Money::kUnitsPerOne));
}

Value TextOf(sqlite3_value* cell, jet::ColumnType type) {
  const char* text = reinterpret_cast<const char*>(sqlite3_value_text(cell));
  const QString read = QString::fromUtf8(text, sqlite3_value_bytes(cell));
  if (type == jet::ColumnType::Date) {
    if (const auto moment = FromIsoText(read)) return *moment;
  }
  return read;
}

Value NumberOf(sqlite3_value* cell, jet::ColumnType type, bool whole) {
  using jet::ColumnType;
  switch (type) {
    case ColumnType::Currency:
      return MoneyOf(sqlite3_value_double(cell));
    case ColumnType::YesNo:
      return sqlite3_value_int(cell) != 0;
    case ColumnType::Single:
    case ColumnType::Double:
      return sqlite3_value_double(cell);
    default:
      if (whole) return static_cast<qint64>(sqlite3_value_int64(cell));
      return sqlite3_value_double(cell);
  }
}

}  // namespace

void ThrowFailure(sqlite3* database, int code) {
  const QString reason =
      QString::fromUtf8(database ? sqlite3_errmsg(database) : sqlite3_errstr(code));
  if (const auto fault = FaultOf(code)) throw StorageFailure(*fault, reason);
  throw StatementRefused(reason.toStdString());
}

Statement::Statement(sqlite3* database, const std::string& text) : database_(database) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v3(database, text.data(), static_cast<int>(text.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  if (code != SQLITE_OK) ThrowFailure(database, code);
  statement_.reset(statement);
}

void Statement::Bind(int parameter, const Value& value) {
  sqlite3_stmt* statement = statement_.get();
  const auto bindText = [&](const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return sqlite3_bind_text(statement, parameter, utf8.constData(), static_cast<int>(utf8.size()),
                             SQLITE_TRANSIENT);
  };
  struct Binder {
    sqlite3_stmt* statement;
    int parameter;
    const decltype(bindText)& text;
    int operator()(std::monostate) const { return sqlite3_bind_null(statement, parameter); }
    int operator()(qint64 number) const { return sqlite3_bind_int64(statement, parameter, number); }
    int operator()(double number) const {
      return sqlite3_bind_double(statement, parameter, number);
    }
    int operator()(Money amount) const {
      return sqlite3_bind_double(statement, parameter, amount.ToDouble());
    }
    int operator()(bool yes) const { return sqlite3_bind_int(statement, parameter, yes); }
    int operator()(const DateTime& moment) const { return text(ToIsoText(moment)); }
    int operator()(const QString& words) const { return text(words); }
  };
  const int code = std::visit(Binder{statement, parameter, bindText}, value.variant());
  if (code != SQLITE_OK) ThrowFailure(database_, code);
}

void Statement::BindCell(int parameter, const RowCell& cell) {
  sqlite3_stmt* statement = statement_.get();
  const auto size = static_cast<int>(cell.bytes.size());
  int code = SQLITE_OK;
  switch (cell.kind) {
    case RowCell::Kind::Null:
      code = sqlite3_bind_null(statement, parameter);
      break;
    case RowCell::Kind::Whole:
      code = sqlite3_bind_int64(statement, parameter, cell.whole);
      break;
    case RowCell::Kind::Fraction:
      code = sqlite3_bind_double(statement, parameter, cell.fraction);
      break;
    case RowCell::Kind::Text:
      code = sqlite3_bind_text(statement, parameter, cell.bytes.data(), size, SQLITE_STATIC);
      break;
    case RowCell::Kind::Blob:
      code = cell.bytes.empty()
                 ? sqlite3_bind_zeroblob(statement, parameter, 0)
                 : sqlite3_bind_blob(statement, parameter, cell.bytes.data(), size, SQLITE_STATIC);
      break;
  }
  if (code != SQLITE_OK) ThrowFailure(database_, code);
}

bool Statement::Step() {
  const int code = sqlite3_step(statement_.get());
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) return false;
  ThrowFailure(database_, code);
}

Value Statement::Column(int column, jet::ColumnType type) const {
  // The cell itself rather than its copies: one thread has the connection, so it cannot change.
  sqlite3_value* cell = sqlite3_column_value(statement_.get(), column);
  switch (sqlite3_value_type(cell)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return NumberOf(cell, type, true);
    case SQLITE_FLOAT:
      return NumberOf(cell, type, false);
    default:
      return TextOf(cell, type);
  }
}

void Execute(sqlite3* database, const char* text) {
  const int code = sqlite3_exec(database, text, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) ThrowFailure(database, code);
}

}  // namespace quillary
