#include "kit/GridModel.h"

#include <algorithm>

namespace quillary {

namespace {

bool IsAlignedRight(ColumnKind kind) {
  return kind == ColumnKind::Money || kind == ColumnKind::Number;
}

}  // namespace

void GridModel::SetColumns(std::vector<GridColumn> columns) {
  beginResetModel();
  columns_ = std::move(columns);
  rows_.clear();
  endResetModel();
}

void GridModel::SetRows(std::vector<GridRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

void GridModel::SetCells(const std::vector<int>& rows, int column, const Value& value) {
  if (rows.empty()) return;
  for (const int row : rows)
    rows_[static_cast<size_t>(row)].cells[static_cast<size_t>(column)] = value;
  const auto [first, last] = std::ranges::minmax(rows);
  emit dataChanged(index(first, column), index(last, column));
}

void GridModel::SetChoices(int column, std::vector<GridChoice> choices) {
  choices_[column] = std::move(choices);
}

const std::vector<GridChoice>& GridModel::Choices(int column) const {
  static const std::vector<GridChoice> none;
  const auto at = choices_.find(column);
  return at == choices_.end() ? none : at->second;
}

void GridModel::MoveRow(int from, int to) {
  if (from == to) return;
  beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
  GridRow moved = std::move(rows_[static_cast<size_t>(from)]);
  rows_.erase(rows_.begin() + from);
  rows_.insert(rows_.begin() + to, std::move(moved));
  endMoveRows();
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const GridColumn& column = columns_[static_cast<size_t>(index.column())];
  const GridRow& row = rows_[static_cast<size_t>(index.row())];
  const GridCell& cell = row.cells[static_cast<size_t>(index.column())];
  switch (role) {
    case Qt::DisplayRole:
      return ShownText(column, cell, Choices(index.column()));
    case Qt::EditRole:
      return cell.value.ToText();
    case Qt::CheckStateRole:
      if (column.kind != ColumnKind::Tick) return {};
      return static_cast<int>(cell.value.ToBool() ? Qt::Checked : Qt::Unchecked);
    case Qt::TextAlignmentRole:
      return static_cast<int>(Qt::AlignVCenter |
                              (IsAlignedRight(column.kind) ? Qt::AlignRight : Qt::AlignLeft));
    case Qt::ToolTipRole:
      return row.note;
    case kValueRole:
      return QVariant::fromValue(cell.value);
    case kHueRole:
      return static_cast<int>(row.hue);
    case kKindRole:
      return static_cast<int>(column.kind);
    default:
      return {};
  }
}

bool GridModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role == Qt::CheckStateRole)
    emit edited(index.row(), index.column(), Value(value.toInt() == Qt::Checked));
  else if (value.canConvert<Value>() && value.typeId() == qMetaTypeId<Value>())
    emit edited(index.row(), index.column(), value.value<Value>());
  else
    emit edited(index.row(), index.column(), Value(value.toString()));
  return true;
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Vertical) {
    if (role == kHueRole) return static_cast<int>(rows_[static_cast<size_t>(section)].hue);
    return {};
  }
  const GridColumn& column = columns_[static_cast<size_t>(section)];
  if (role == Qt::DisplayRole) return column.title;
  if (role == Qt::TextAlignmentRole)
    return static_cast<int>(Qt::AlignVCenter |
                            (IsAlignedRight(column.kind) ? Qt::AlignRight : Qt::AlignLeft));
  return {};
}

Qt::ItemFlags GridModel::flags(const QModelIndex& index) const {
  const GridColumn& column = columns_[static_cast<size_t>(index.column())];
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (column.kind == ColumnKind::Tick && column.editable)
    flags |= Qt::ItemIsUserCheckable;
  else if (column.editable)
    flags |= Qt::ItemIsEditable;
  return flags;
}

void GridView::SetWords(const QString& typed) {
  words_ = typed.simplified().split(u' ', Qt::SkipEmptyParts);
  invalidateFilter();
}

bool GridView::filterAcceptsRow(int row, const QModelIndex& parent) const {
  if (words_.isEmpty()) return true;
  QString text;
  for (int column = 0; column < sourceModel()->columnCount(); ++column) {
    const QModelIndex at = sourceModel()->index(row, column, parent);
    if (at.data(kKindRole).toInt() == static_cast<int>(ColumnKind::HiddenId)) continue;
    text += at.data(Qt::DisplayRole).toString() + u'\n';
  }
  return std::ranges::all_of(
      words_, [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

bool GridView::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const auto kind = static_cast<ColumnKind>(left.data(kKindRole).toInt());
  const Value a = left.data(kValueRole).value<Value>();
  const Value b = right.data(kValueRole).value<Value>();
  switch (kind) {
    case ColumnKind::Money:
      return a.ToMoney() < b.ToMoney();
    case ColumnKind::Number:
    case ColumnKind::Tick:
      return a.ToDouble() < b.ToDouble();
    case ColumnKind::Date:
      return a.ToDate() < b.ToDate();
    default:
      return left.data().toString().localeAwareCompare(right.data().toString()) < 0;
  }
}

}  // namespace quillary
