#include "kit/Chip.h"

#include <QPainter>

namespace quillary {

namespace {

constexpr int kPaintedMargin = 10;
constexpr int kPaintedHeight = 20;

}  // namespace

Chip::Chip(const char* name) {
  setObjectName(QLatin1StringView(name));
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Chip::ShowStatus(const QString& word, Hue hue) {
  hue_ = hue;
  setText(word);
  setVisible(!word.isEmpty());
  updateGeometry();
}

QFont Chip::SmallFont() const {
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.925);
  return small;
}

QSize Chip::sizeHint() const {
  return {QFontMetrics(SmallFont()).horizontalAdvance(text()) + 2 * kPaintedMargin + 1,
          kPaintedHeight + 1};
}

void Chip::paintEvent(QPaintEvent*) {
  const HueColours& hue = RolesOf(palette()).Of(hue_);
  const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(hue.edge);
  painter.setBrush(hue.fill);
  painter.drawRoundedRect(area, area.height() / 2, area.height() / 2);
  painter.setFont(SmallFont());
  painter.setPen(hue.words);
  painter.drawText(area, Qt::AlignCenter, text());
}

}  // namespace quillary
