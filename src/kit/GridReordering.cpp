#include "kit/Grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>

/// The part of the grid that moves rows by pointer and by keys.
namespace quillary {

bool Grid::CanReorder() const {
  return reordering_ && !view_->IsFiltered() && horizontalHeader()->sortIndicatorSection() < 0;
}

void Grid::MoveSelected(int from, int to) {
  if (from == to || to < 0 || to >= model_->rowCount()) return;
  model_->MoveRow(from, to);
  SelectLoaded(to);
  emit reordered();
}

int Grid::DropRowAt(int y) const {
  const int row = rowAt(y);
  return row >= 0 ? row : (y < 0 ? 0 : view_->rowCount() - 1);
}

void Grid::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return CopyMarked();
  const auto row = SelectedRow();
  const bool up = event->key() == Qt::Key_Up;
  const bool down = event->key() == Qt::Key_Down;
  if (event->modifiers() == Qt::AltModifier && (up || down)) {
    if (row && CanReorder()) MoveSelected(*row, *row + (up ? -1 : 1));
    return;
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && row && state() != EditingState) {
    emit rowOpened(*row);
    return;
  }
  QTableView::keyPressEvent(event);
  // The cursor may stand on a row without its being selected; a key that is meant for a row takes
  // it up again.
  if (event->key() == Qt::Key_Space && !SelectedRow() && currentIndex().isValid())
    SelectLoaded(LoadedRow(currentIndex()));
}

void Grid::mousePressEvent(QMouseEvent* event) {
  const QModelIndex at = indexAt(event->position().toPoint());
  if (event->button() == Qt::LeftButton && IsMark(at)) {
    selectionModel()->setCurrentIndex(at, QItemSelectionModel::Toggle | QItemSelectionModel::Rows);
    return;
  }
  if (event->button() == Qt::RightButton && selectionModel()->isRowSelected(at.row())) return;
  QTableView::mousePressEvent(event);
  draggedRow_ = event->button() == Qt::LeftButton && at.isValid() &&
                        event->modifiers() == Qt::NoModifier && CanReorder()
                    ? at.row()
                    : -1;
  pressedAt_ = event->position().toPoint();
}

void Grid::mouseMoveEvent(QMouseEvent* event) {
  if (draggedRow_ < 0 || !(event->buttons() & Qt::LeftButton)) {
    QTableView::mouseMoveEvent(event);
    return;
  }
  const QPoint at = event->position().toPoint();
  if (dropRow_ < 0 && (at - pressedAt_).manhattanLength() < QApplication::startDragDistance())
    return;
  dropRow_ = DropRowAt(at.y());
  viewport()->setCursor(Qt::ClosedHandCursor);
  viewport()->update();
}

void Grid::mouseReleaseEvent(QMouseEvent* event) {
  const int from = draggedRow_;
  const int to = dropRow_;
  draggedRow_ = -1;
  dropRow_ = -1;
  viewport()->unsetCursor();
  viewport()->update();
  QTableView::mouseReleaseEvent(event);
  if (from >= 0 && to >= 0) MoveSelected(from, to);
}

void Grid::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex at = indexAt(event->position().toPoint());
  QTableView::mouseDoubleClickEvent(event);
  if (at.isValid() && !at.flags().testFlag(Qt::ItemIsEditable)) emit rowOpened(LoadedRow(at));
}

}  // namespace quillary
