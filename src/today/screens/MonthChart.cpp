#include "today/screens/MonthChart.h"

#include "domain/Periods.h"
#include "kit/Roles.h"
#include "today/screens/Cards.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <cmath>

namespace quillary::today {

namespace {

constexpr int kBelow = 18;  // for the names of the months
constexpr int kRight = 44;  // for the scale
constexpr double kWidestBar = 28;

/// A round amount at or above the highest one, whose half is round too.
Money RoundAbove(Money highest) {
  if (highest <= Money()) return Money();
  const double power = std::pow(10, std::floor(std::log10(highest.ToDouble())));
  for (const double step : {1.0, 1.5, 2.0, 3.0, 4.0, 5.0, 6.0, 8.0, 10.0})
    if (step * power >= highest.ToDouble()) return Money::FromDouble(step * power);
  return highest;
}

QString ScaleText(double amount) {
  if (amount >= 10'000) return QStringLiteral("%1k").arg(std::lround(amount / 1000));
  if (amount >= 1000) return QStringLiteral("%1k").arg(amount / 1000, 0, 'g', 2);
  return QString::number(std::lround(amount));
}

QColor Paler(const QColor& colour, const QColor& ground) {
  const auto mix = [](int a, int b) { return (a * 45 + b * 55) / 100; };
  return {mix(colour.red(), ground.red()), mix(colour.green(), ground.green()),
          mix(colour.blue(), ground.blue())};
}

}  // namespace

ChartColours ColoursOfChart(const QPalette& palette) {
  const Roles& roles = RolesOf(palette);
  return {roles.accent, roles.Of(Hue::Blue).bar, QColor("#E0A030")};
}

MonthChart::MonthChart(const char* name) {
  setObjectName(QLatin1StringView(name));
  setFocusPolicy(Qt::TabFocus);
  setMouseTracking(true);
  setCursor(Qt::PointingHandCursor);
  setAccessibleName(tr("Done, invoiced and received by month"));
}

void MonthChart::ShowMonths(const std::vector<MonthFigures>& months) {
  months_ = months;
  Money highest;
  for (const MonthFigures& month : months_)
    highest = std::max({highest, month.done, month.invoiced, month.received});
  top_ = RoundAbove(highest);
  if (chosen_ < 0 || chosen_ >= static_cast<int>(months_.size()))
    chosen_ = static_cast<int>(months_.size()) - 1;
  setAccessibleDescription(months_.empty() ? QString() : WordsOf(chosen_));
  update();
}

QRectF MonthChart::Plot() const {
  return QRectF(rect()).adjusted(2, 6, -kRight, -kBelow);
}

int MonthChart::MonthAt(const QPointF& place) const {
  const QRectF plot = Plot();
  if (months_.empty() || place.x() < plot.left() || place.x() >= plot.right()) return -1;
  return static_cast<int>((place.x() - plot.left()) / plot.width() *
                          static_cast<double>(months_.size()));
}

QString MonthChart::WordsOf(int month) const {
  const MonthFigures& of = months_[static_cast<size_t>(month)];
  return tr("%1\ndone %2\ninvoiced %3\nreceived %4")
      .arg(MonthWords(of.month), of.done.ToCurrencyText(), of.invoiced.ToCurrencyText(),
           of.received.ToCurrencyText());
}

void MonthChart::PaintScale(QPainter& painter, double perPixel) const {
  const Roles& roles = RolesOf(palette());
  const QRectF plot = Plot();
  for (int part = 0; part <= 2; ++part) {
    const double amount = top_.ToDouble() * part / 2;
    const double y = std::round(plot.bottom() - amount / perPixel) - 0.5;
    painter.setPen(part == 0 ? roles.line : roles.softLine);
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    painter.setPen(roles.muted);
    painter.drawText(QRectF(plot.right() + 6, y - 8, kRight - 6, 16),
                     Qt::AlignLeft | Qt::AlignVCenter, ScaleText(amount));
  }
}

void MonthChart::PaintMonth(QPainter& painter, int month, double perPixel) const {
  const Roles& roles = RolesOf(palette());
  const ChartColours colours = ColoursOfChart(palette());
  const QRectF plot = Plot();
  const MonthFigures& of = months_[static_cast<size_t>(month)];
  const double step = plot.width() / static_cast<double>(months_.size());
  const double middle = plot.left() + (month + 0.5) * step;
  const double width = std::min(kWidestBar, step * 0.6);
  const bool isLast = month + 1 == static_cast<int>(months_.size());
  if (month == pointed_ || (month == chosen_ && hasFocus())) {
    painter.setPen(month == chosen_ && hasFocus() ? QPen(roles.accent) : QPen(Qt::NoPen));
    painter.setBrush(roles.hover);
    painter.drawRoundedRect(QRectF(middle - step / 2 + 1.5, 1.5, step - 3, height() - 3.0), 4, 4);
  }
  painter.setPen(Qt::NoPen);
  const double bar = std::max(0.0, of.done.ToDouble() / perPixel);
  painter.setBrush(isLast ? Paler(colours.done, roles.surface) : colours.done);
  painter.drawRoundedRect(QRectF(middle - width / 2, plot.bottom() - bar, width, bar), 2, 2);
  const auto line = [&](Money amount, const QColor& colour) {
    if (amount <= Money()) return;
    painter.setBrush(colour);
    painter.drawRoundedRect(
        QRectF(middle - width / 2 - 3, plot.bottom() - amount.ToDouble() / perPixel - 1.25,
               width + 6, 2.5),
        1, 1);
  };
  line(of.invoiced, colours.invoiced);
  line(of.received, colours.received);
  painter.setPen(isLast ? roles.text : roles.muted);
  const QString name =
      QLocale::c().monthName(of.month.from.month(), QLocale::ShortFormat).left(step < 30 ? 1 : 3);
  painter.drawText(QRectF(middle - step / 2, plot.bottom() + 2, step, kBelow - 2), Qt::AlignCenter,
                   name);
}

void MonthChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.88);
  painter.setFont(small);
  if (top_ <= Money()) {
    painter.setPen(RolesOf(palette()).muted);
    painter.drawText(rect(), Qt::AlignCenter,
                     tr("Jobs that are done and payments will show here, month by month."));
    return;
  }
  const double perPixel = top_.ToDouble() / Plot().height();
  PaintScale(painter, perPixel);
  for (int month = 0; month < static_cast<int>(months_.size()); ++month)
    PaintMonth(painter, month, perPixel);
}

bool MonthChart::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const int month = MonthAt(help->pos());
    if (month >= 0 && top_ > Money())
      QToolTip::showText(help->globalPos(), WordsOf(month), this);
    else
      QToolTip::hideText();
    return true;
  }
  return QWidget::event(event);
}

void MonthChart::mousePressEvent(QMouseEvent* event) {
  const int month = MonthAt(event->position());
  if (month < 0 || event->button() != Qt::LeftButton) return QWidget::mousePressEvent(event);
  Choose(month);
  emit monthOpened(months_[static_cast<size_t>(month)].month);
}

void MonthChart::mouseMoveEvent(QMouseEvent* event) {
  const int month = MonthAt(event->position());
  if (month != pointed_) update();
  pointed_ = month;
}

void MonthChart::leaveEvent(QEvent*) {
  pointed_ = -1;
  update();
}

void MonthChart::Choose(int month) {
  if (months_.empty()) return;
  chosen_ = std::clamp(month, 0, static_cast<int>(months_.size()) - 1);
  setAccessibleDescription(WordsOf(chosen_));
  update();
}

void MonthChart::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      return Choose(chosen_ - 1);
    case Qt::Key_Right:
      return Choose(chosen_ + 1);
    case Qt::Key_Home:
      return Choose(0);
    case Qt::Key_End:
      return Choose(static_cast<int>(months_.size()) - 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (chosen_ >= 0 && !months_.empty())
        emit monthOpened(months_[static_cast<size_t>(chosen_)].month);
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

}  // namespace quillary::today
