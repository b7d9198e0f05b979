#pragma once

#include <QLayout>

namespace quillary {

/// Lays controls in a line and breaks it where the window is too narrow, so that no screen forces
/// a width on the user. Items added with Qt::AlignRight stand at the right end of their line.
class FlowLayout : public QLayout {
 public:
  explicit FlowLayout(int spacing = 8);
  ~FlowLayout() override;

  void AddWidget(QWidget* widget, Qt::Alignment alignment = Qt::AlignLeft);
  void AddWidgets(const QList<QWidget*>& widgets, Qt::Alignment alignment = Qt::AlignLeft);

  void addItem(QLayoutItem* item) override { items_.append(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override { return items_.value(index); }
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& rect) override;

 private:
  int Arrange(const QRect& rect, bool move) const;
  void PlaceLine(const QList<QLayoutItem*>& line, const QRect& area) const;

  QList<QLayoutItem*> items_;
};

}  // namespace quillary
