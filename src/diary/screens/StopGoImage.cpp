#include "diary/screens/StopGoImage.h"

#include "kit/Roles.h"

#include <QPainter>
#include <QTimerEvent>

namespace quillary::diary {

namespace {

constexpr int kPetals = 8;
constexpr int kStepMilliseconds = 120;

}  // namespace

StopGoImage::StopGoImage(QWidget* parent) : QAbstractButton(parent) {
  setObjectName(QStringLiteral("imgStopGo"));
  setAccessibleName(tr("Moving picture"));
  setToolTip(QStringLiteral("Click me to stop/go..."));
  setFixedSize(24, 24);
  setFocusPolicy(Qt::NoFocus);
  setCursor(Qt::PointingHandCursor);
  connect(this, &QAbstractButton::clicked, this, [this] {
    if (timer_.isActive())
      timer_.stop();
    else
      timer_.start(kStepMilliseconds, this);
  });
}

void StopGoImage::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(rect().center());
  painter.setPen(Qt::NoPen);
  QColor colour = RolesOf(palette()).accent;
  for (int petal = 0; petal < kPetals; ++petal) {
    colour.setAlphaF(0.2F + 0.8F * static_cast<float>((petal + turn_) % kPetals) / kPetals);
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(0, -7), 2, 2);
    painter.rotate(-360.0 / kPetals);
  }
}

void StopGoImage::timerEvent(QTimerEvent* event) {
  if (event->timerId() != timer_.timerId()) return QAbstractButton::timerEvent(event);
  turn_ = (turn_ + 1) % kPetals;
  update();
}

}  // namespace quillary::diary
