#pragma once

#include "today/Figures.h"

#include <QWidget>

namespace quillary::today {

/// The last months side by side: what was done as a bar, what was invoiced and received as a line
/// across it. A month is chosen by a click, or by the arrow keys and Enter.
class MonthChart : public QWidget {
  Q_OBJECT

 public:
  explicit MonthChart(const char* name);
  void ShowMonths(const std::vector<MonthFigures>& months);

  QSize sizeHint() const override { return {480, 140}; }
  QSize minimumSizeHint() const override { return {240, 96}; }

 signals:
  void monthOpened(const DateRange& month);

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int MonthAt(const QPointF& place) const;
  void Choose(int month);
  QString WordsOf(int month) const;
  QRectF Plot() const;
  void PaintScale(QPainter& painter, double perPixel) const;
  void PaintMonth(QPainter& painter, int month, double perPixel) const;

  std::vector<MonthFigures> months_;
  Money top_;         // of the scale
  int chosen_ = -1;   // by key
  int pointed_ = -1;  // by the mouse
};

/// The colours of the chart, for its legend.
struct ChartColours {
  QColor done;
  QColor invoiced;
  QColor received;
};
ChartColours ColoursOfChart(const QPalette& palette);

}  // namespace quillary::today
