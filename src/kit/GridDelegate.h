#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>

namespace quillary {

/// Paints the cells of a grid: the light tint of the row, words on the 10 px margin, chips with
/// their word, ticks; and makes the editors of editable cells.
class GridDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
};

/// The titles of the columns, on the same margins as the cells below them.
class TitleHeader : public QHeaderView {
 public:
  explicit TitleHeader(QWidget* parent);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int column) const override;
};

/// The colour bar at the left of the rows.
class HueHeader : public QHeaderView {
 public:
  explicit HueHeader(QWidget* parent);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int row) const override;
};

}  // namespace quillary
