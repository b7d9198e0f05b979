#pragma once

#include "base/Value.h"

#include <sqlite3.h>

#include <stdexcept>

namespace quillary {

/// What a function can't do anything with; the statement is refused with these words.
class WrongArgument : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The arguments of one call of an SQL function.
class SqlArguments {
 public:
  SqlArguments(int count, sqlite3_value** values) : count_(count), values_(values) {}

  int Count() const { return count_; }
  bool IsNull(int index) const { return sqlite3_value_type(values_[index]) == SQLITE_NULL; }
  bool AnyNull() const;
  Value At(int index) const;
  QString Text(int index) const;
  qint64 Long(int index) const { return sqlite3_value_int64(values_[index]); }
  /// `ifLeftOut` when there are not so many arguments.
  qint64 Long(int index, qint64 ifLeftOut) const {
    return index < count_ ? Long(index) : ifLeftOut;
  }
  /// Of an ISO text. Throws WrongArgument when it is none.
  DateTime Moment(int index) const;

 private:
  int count_;
  sqlite3_value** values_;
};

constexpr int kPureFunction = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

void ResultValue(sqlite3_context* context, const Value& value);

/// A scalar function with this many arguments, any number for -1. Given a null it is not called and
/// gives null, unless it takes nulls. It may throw WrongArgument.
using SqlFunction = Value (*)(const SqlArguments&);
enum class Nulls { Pass, Taken };
void RegisterFunction(sqlite3* database, const char* name, int arguments, SqlFunction function,
                      Nulls nulls = Nulls::Pass);

void RegisterDateFunctions(sqlite3* database);
void RegisterTextFunctions(sqlite3* database);

}  // namespace quillary
