#include "today/screens/AgeBar.h"

#include "kit/Roles.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace quillary::today {

QColor ColourOf(balances::DebtAge age, const QPalette& palette) {
  const Roles& roles = RolesOf(palette);
  switch (age) {
    case balances::DebtAge::To30:
      return roles.dark ? QColor("#3F8A6E") : QColor("#9CC9B5");
    case balances::DebtAge::To60:
      return roles.Of(Hue::Yellow).bar;
    case balances::DebtAge::To90:
      return QColor("#E08A4F");
    case balances::DebtAge::Over90:
      break;
  }
  return roles.Of(Hue::Red).bar;
}

AgeBar::AgeBar(const char* name) {
  setObjectName(QLatin1StringView(name));
  setFixedHeight(14);
  setCursor(Qt::PointingHandCursor);
  setAccessibleName(tr("What is owed, by age"));
}

void AgeBar::ShowAges(const balances::AgedMoney& ages) {
  ages_ = ages;
  update();
}

std::array<double, balances::kDebtAges.size()> AgeBar::Ends() const {
  Money total;
  for (const Money& part : ages_) total += part;
  std::array<double, balances::kDebtAges.size()> ends = {};
  Money sum;
  for (size_t age = 0; age < ages_.size(); ++age) {
    sum += ages_[age];
    if (total > Money()) ends[age] = width() * sum.ToDouble() / total.ToDouble();
  }
  return ends;
}

void AgeBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath shape;
  shape.addRoundedRect(rect(), 4, 4);
  painter.setClipPath(shape);
  painter.fillRect(rect(), RolesOf(palette()).hover);
  const auto ends = Ends();
  double from = 0;
  for (const balances::DebtAge age : balances::kDebtAges) {
    const double to = ends[static_cast<size_t>(age)];
    painter.fillRect(QRectF(from, 0, to - from, height()), ColourOf(age, palette()));
    from = to;
  }
}

void AgeBar::mousePressEvent(QMouseEvent* event) {
  const auto ends = Ends();
  for (const balances::DebtAge age : balances::kDebtAges)
    if (event->position().x() < ends[static_cast<size_t>(age)]) return emit ageOpened(age);
}

}  // namespace quillary::today
