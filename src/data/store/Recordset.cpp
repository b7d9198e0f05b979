#include "data/store/Recordset.h"

namespace quillary {
namespace {

std::optional<size_t> IndexOf(const ResultColumns& columns, QStringView name) {
  // Nearly always the name is written as the column's, and this is asked for every field read.
  for (size_t index = 0; index < columns.size(); ++index) {
    const QString& column = columns[index].name;
    if (column.size() == name.size() && QStringView(column) == name) return index;
  }
  for (size_t index = 0; index < columns.size(); ++index) {
    if (columns[index].name.compare(name, Qt::CaseInsensitive) == 0) return index;
  }
  return std::nullopt;
}

}  // namespace

const Value& Record::operator[](QStringView name) const {
  const auto index = IndexOf(columns_, name);
  if (!index) throw NoCurrentRecord(name.toString());
  return cells_[*index];
}

const Value& Record::operator[](size_t column) const {
  if (column >= columns_.size()) throw NoCurrentRecord(QString::number(column));
  return cells_[column];
}

const ResultColumns& Recordset::Columns() const {
  if (!IsOpen()) ThrowNotOpen();
  return *columns_;
}

bool Recordset::FieldExists(QStringView name) const {
  return IsOpen() && IndexOf(*columns_, name).has_value();
}

bool Recordset::EndOfFile() const {
  if (!IsOpen()) ThrowNotOpen();
  return row_ >= RowCount();
}

Record Recordset::Row(size_t row) const {
  if (!IsOpen()) ThrowNotOpen();
  if (row >= RowCount()) throw NoCurrentRecord(QStringLiteral("row %1").arg(row));
  return {*columns_, cells_.data() + row * columns_->size()};
}

void Recordset::ThrowNotOpen() const {
  throw refused_ ? NoRecordset(*refused_) : NoRecordset();
}

Record Recordset::Current() const {
  return Row(row_);
}

Recordset::Iterator Recordset::begin() const {
  if (!IsOpen()) ThrowNotOpen();
  return {*this, 0};
}

}  // namespace quillary
