#include "kit/FlowLayout.h"

#include <QWidget>

namespace quillary {

FlowLayout::FlowLayout(int spacing) {
  setContentsMargins(0, 0, 0, 0);
  setSpacing(spacing);
}

FlowLayout::~FlowLayout() {
  qDeleteAll(items_);
}

void FlowLayout::AddWidget(QWidget* widget, Qt::Alignment alignment) {
  addWidget(widget);
  items_.last()->setAlignment(alignment);
}

void FlowLayout::AddWidgets(const QList<QWidget*>& widgets, Qt::Alignment alignment) {
  for (QWidget* widget : widgets) AddWidget(widget, alignment);
}

QLayoutItem* FlowLayout::takeAt(int index) {
  return index >= 0 && index < items_.size() ? items_.takeAt(index) : nullptr;
}

int FlowLayout::heightForWidth(int width) const {
  return Arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::sizeHint() const {
  int width = 0;
  int height = 0;
  for (const QLayoutItem* item : items_) {
    if (item->isEmpty()) continue;
    width += item->sizeHint().width() + spacing();
    height = qMax(height, item->sizeHint().height());
  }
  return {qMax(0, width - spacing()), height};
}

QSize FlowLayout::minimumSize() const {
  QSize size;
  for (const QLayoutItem* item : items_)
    if (!item->isEmpty()) size = size.expandedTo(item->minimumSize());
  return size;
}

void FlowLayout::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  Arrange(rect, true);
}

int FlowLayout::Arrange(const QRect& rect, bool move) const {
  QList<QLayoutItem*> line;
  int width = 0;
  int height = 0;
  int y = rect.y();
  const auto finish = [&] {
    if (move) PlaceLine(line, QRect(rect.x(), y, rect.width(), height));
    y += height + spacing();
    line.clear();
    width = 0;
    height = 0;
  };
  for (QLayoutItem* item : items_) {
    if (item->isEmpty()) continue;  // hidden
    const QSize size = item->sizeHint();
    if (!line.isEmpty() && width + spacing() + size.width() > rect.width()) finish();
    width += (line.isEmpty() ? 0 : spacing()) + size.width();
    height = qMax(height, size.height());
    line += item;
  }
  finish();
  return y - spacing() - rect.y();
}

void FlowLayout::PlaceLine(const QList<QLayoutItem*>& line, const QRect& area) const {
  int used = -spacing();
  for (const QLayoutItem* item : line) used += item->sizeHint().width() + spacing();
  int x = area.x();
  bool right = false;
  for (QLayoutItem* item : line) {
    if (!right && item->alignment().testFlag(Qt::AlignRight)) {
      x += qMax(0, area.width() - used);
      right = true;
    }
    const QSize size = item->sizeHint();
    const int y = area.y() + (area.height() - size.height()) / 2;
    // The item's own alignment would centre it in its place again.
    if (item->widget())
      item->widget()->setGeometry(QRect(QPoint(x, y), size));
    else
      item->setGeometry(QRect(QPoint(x, y), size));
    x += size.width() + spacing();
  }
}

}  // namespace quillary
