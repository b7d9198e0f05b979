#pragma once

#include "kit/GridColumns.h"

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

#include <map>

namespace quillary {

enum GridRole { kValueRole = Qt::UserRole + 1, kHueRole, kKindRole };

/// The rows of a grid as they were loaded. An edit is announced and not stored: the screen writes
/// it to the business and loads again, so that what shows is what stands.
class GridModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  void SetColumns(std::vector<GridColumn> columns);
  void SetRows(std::vector<GridRow> rows);
  /// Writes one value into a column of some rows, which stay where they are.
  void SetCells(const std::vector<int>& rows, int column, const Value& value);
  void SetChoices(int column, std::vector<GridChoice> choices);
  const std::vector<GridColumn>& Columns() const { return columns_; }
  const std::vector<GridRow>& Rows() const { return rows_; }
  const std::vector<GridChoice>& Choices(int column) const;
  void MoveRow(int from, int to);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

 signals:
  void edited(int row, int column, const quillary::Value& value);

 private:
  std::vector<GridColumn> columns_;
  std::vector<GridRow> rows_;
  std::map<int, std::vector<GridChoice>> choices_;
};

/// Filters by what is shown in any visible column and sorts by value.
class GridView : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;
  /// Every word typed has to occur somewhere in the row, without regard to case.
  void SetWords(const QString& typed);
  bool IsFiltered() const { return !words_.isEmpty(); }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  QStringList words_;
};

}  // namespace quillary
