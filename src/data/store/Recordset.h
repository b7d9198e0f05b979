#pragma once

#include "base/Errors.h"
#include "base/Value.h"
#include "data/jet/Translator.h"

#include <memory>
#include <vector>

namespace quillary {

using ResultColumns = std::vector<jet::ResultColumn>;

/// One row of a recordset. Valid for as long as the recordset is.
class Record {
 public:
  Record(const ResultColumns& columns, const Value* cells) : columns_(columns), cells_(cells) {}
  /// The field of that name, without regard to case; throws NoCurrentRecord when there is none.
  const Value& operator[](QStringView name) const;
  const Value& operator[](const char16_t* name) const { return (*this)[QStringView(name)]; }
  const Value& operator[](size_t column) const;
  size_t Size() const { return columns_.size(); }

 private:
  const ResultColumns& columns_;
  const Value* cells_;
};

/// What a statement gave: a snapshot of all its rows, taken when it ran. Walk it with a range-for,
/// or with MoveNext() until EndOfFile(). The recordset of a refused statement is not open, and
/// touching its rows throws NoRecordset.
class Recordset {
 public:
  Recordset() = default;
  Recordset(std::shared_ptr<const ResultColumns> columns, std::vector<Value> cells)
      : columns_(std::move(columns)), cells_(std::move(cells)) {}
  /// That of a refused statement: whoever reads it is told why it is not open.
  explicit Recordset(RefusedStatement refused)
      : refused_(std::make_shared<const RefusedStatement>(std::move(refused))) {}

  bool IsOpen() const { return columns_ != nullptr; }
  bool HasRows() const { return IsOpen() && !cells_.empty(); }
  size_t RowCount() const { return cells_.empty() ? 0 : cells_.size() / columns_->size(); }
  const ResultColumns& Columns() const;
  bool FieldExists(QStringView name) const;

  bool EndOfFile() const;
  void MoveNext() { ++row_; }
  /// Of the current row; throws NoCurrentRecord at the end of file.
  const Value& Field(QStringView name) const { return Current()[name]; }
  const Value& Field(const char16_t* name) const { return Current()[QStringView(name)]; }
  const Value& Field(size_t column) const { return Current()[column]; }
  Record Row(size_t row) const;

  class Iterator {
   public:
    Iterator(const Recordset& recordset, size_t row) : recordset_(recordset), row_(row) {}
    Record operator*() const { return recordset_.Row(row_); }
    Iterator& operator++() {
      ++row_;
      return *this;
    }
    bool operator!=(const Iterator& other) const { return row_ != other.row_; }

   private:
    const Recordset& recordset_;
    size_t row_;
  };
  Iterator begin() const;
  Iterator end() const { return {*this, RowCount()}; }

 private:
  Record Current() const;
  [[noreturn]] void ThrowNotOpen() const;

  std::shared_ptr<const ResultColumns> columns_;
  std::vector<Value> cells_;
  size_t row_ = 0;
  std::shared_ptr<const RefusedStatement> refused_;
};

}  // namespace quillary
