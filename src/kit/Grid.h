#pragma once

#include "kit/GridModel.h"

#include <QTableView>

#include <functional>
#include <optional>

class QLineEdit;
class QPushButton;

namespace quillary {

class SettingsStore;

/// The table of every screen. Rows are numbered as they were loaded, whatever the user sorted or
/// filtered. Widths and sort are remembered per user.
class Grid : public QTableView {
  Q_OBJECT

 public:
  explicit Grid(const QString& name, QWidget* parent = nullptr);

  void SetColumns(std::vector<GridColumn> columns);
  /// The list that a Chip or Choice column is edited from.
  void SetChoices(int column, std::vector<GridChoice> choices);
  void SetRows(std::vector<GridRow> rows);
  /// Writes one value into a column of some rows; selection and place stay.
  void SetCells(const std::vector<int>& rows, int column, const Value& value) {
    model_->SetCells(rows, column, value);
  }
  /// What an empty list says: what it is, and what to do next.
  void SetEmptyText(const QString& what, const QString& next);
  /// Shows or hides a column, whose room goes to the others.
  void ShowColumn(int column, bool show);
  /// Rows may be dragged to another place, or moved by Alt+Up and Alt+Down. Off while the list is
  /// sorted or filtered by the user, because a place would then mean nothing.
  void AllowReordering();
  /// Several rows can be marked together: by Shift and Ctrl with a click or the arrow keys, by
  /// Ctrl+A, and by the boxes of a Mark column. SelectedRow() is then the one that the cursor is
  /// in.
  void AllowMarking();
  /// What a right click, or the menu key, offers on a row: the commands as they stand, each by its
  /// caption, and to copy the marked rows with their headings, which Ctrl+C does too.
  void OfferCommands(std::vector<QPushButton*> commands);
  /// One more entry of that menu, with choices of its own that are asked for when it opens.
  void OfferChoices(const QString& caption, std::function<std::vector<GridChoice>()> choices,
                    std::function<void(const Value&)> chosen);
  /// Filters as one types into the box.
  void FilterBy(QLineEdit* box);
  /// Widths and sort come from the settings and go back there when the user changes them. They are
  /// kept by screen and list, and come back when the list first shows, which is when it has a
  /// screen.
  void RememberIn(SettingsStore& settings);

  /// The row the user has selected, as loaded.
  std::optional<int> SelectedRow() const;
  /// All rows that are marked, from the top of the list.
  std::vector<int> MarkedRows() const;
  template <NumberedRow Row>
  std::vector<Id<Row>> MarkedIds() const {
    std::vector<Id<Row>> ids;
    for (const int row : MarkedRows()) ids.push_back(IdAt<Row>(row));
    return ids;
  }
  /// Marks those of the keys that are listed, and puts the cursor on the first of them. False when
  /// none is.
  bool MarkKeys(const std::vector<qint64>& keys);
  /// The key of a row: its first HiddenId cell.
  qint64 Key(int row) const;
  template <NumberedRow Row>
  Id<Row> IdAt(int row) const {
    return Id<Row>(Key(row));
  }
  /// The key of the selected row.
  template <NumberedRow Row>
  std::optional<Id<Row>> SelectedId() const {
    const std::optional<int> row = SelectedRow();
    return row ? std::optional(IdAt<Row>(*row)) : std::nullopt;
  }
  /// The keys of all rows in their present order.
  std::vector<qint64> Keys() const;
  /// Selects the row of that key; false when it is not listed.
  bool SelectKey(qint64 key);
  template <NumberedRow Row>
  bool SelectId(Id<Row> id) {
    return SelectKey(id.Number());
  }
  void SelectFirst();
  /// Takes the selection away but leaves the cursor at its place, so that the arrow keys go on from
  /// there.
  void ClearSelectionAt(int row);
  const std::vector<GridRow>& Rows() const { return model_->Rows(); }
  /// The keys of the rows that the filter lets through, in their order as loaded.
  std::vector<qint64> ShownKeys() const;
  /// Where a row shows, in the viewport; empty when it is filtered out.
  QRect RowRect(int row) const;

 signals:
  void edited(int row, int column, const quillary::Value& value);
  void selectedRowChanged();
  /// The user opened the row by a double click or by Enter.
  void rowOpened(int row);
  /// The user moved a row; Keys() gives the new order.
  void reordered();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  bool CanReorder() const;
  bool IsMark(const QModelIndex& at) const;
  void CopyMarked() const;
  int LoadedRow(const QModelIndex& shown) const;
  int DropRowAt(int y) const;
  void MoveSelected(int from, int to);
  void FitColumns();
  void SelectLoaded(int row);
  QString LayoutKey() const;
  void RestoreLayout();
  void StoreLayout();
  void PaintEmpty(QPainter& painter);

  GridModel* model_;
  GridView* view_;
  SettingsStore* settings_ = nullptr;
  QString emptyWhat_;
  QString emptyNext_;
  int keyColumn_ = -1;
  int lastColumn_ = 0;  // where the cursor stood before the rows were loaded again
  std::vector<QPushButton*> offered_;
  struct OfferedChoices {
    QString caption;
    std::function<std::vector<GridChoice>()> choices;
    std::function<void(const Value&)> chosen;
  };
  std::vector<OfferedChoices> offeredChoices_;
  bool reordering_ = false;
  bool layoutRestored_ = false;
  bool ownWidths_ = false;
  bool fitting_ = false;
  int draggedRow_ = -1;
  int dropRow_ = -1;
  QPoint pressedAt_;
};

}  // namespace quillary
