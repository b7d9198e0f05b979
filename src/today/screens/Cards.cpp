#include "today/screens/Cards.h"

#include "kit/Controls.h"
#include "kit/Roles.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace quillary::today {

namespace {

constexpr int kBadge = 18;  // across

QPushButton* MakeLink(const char* name, const QString& caption, const char* shape) {
  QPushButton* button = MakeButton(name, caption);
  button->setProperty("kind", QStringLiteral("go"));
  if (*shape) button->setProperty("shape", QString::fromLatin1(shape));
  button->setCursor(Qt::PointingHandCursor);
  return button;
}

}  // namespace

Card MakeCard(const char* name) {
  auto* frame = new QFrame;
  frame->setObjectName(QLatin1StringView(name));
  frame->setProperty("role", QStringLiteral("card"));
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(16, 12, 16, 12);
  column->setSpacing(4);
  return {frame, column};
}

QLabel* MakeHeading(const char* name, const QString& text) {
  QLabel* label = MakeLabel(name, text);
  label->setProperty("role", QStringLiteral("heading"));
  return label;
}

QPushButton* MakeGo(const char* name, const QString& caption) {
  return MakeLink(name, caption, "");
}

QPushButton* MakeHeadline(const char* name, const QString& heardAs) {
  QPushButton* button = MakeLink(name, {}, "headline");
  button->setAccessibleName(heardAs);
  button->setFocusPolicy(Qt::NoFocus);
  return button;
}

Swatch::Swatch(int height) {
  setFixedSize(9, height);
}

void Swatch::SetColour(const QColor& colour) {
  colour_ = colour;
  update();
}

void Swatch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour_);
  painter.drawRoundedRect(rect(), 2, 2);
}

AttentionRow::AttentionRow(const char* name, QPushButton* go) : go_(go) {
  setObjectName(QLatin1StringView(name));
  setProperty("role", QStringLiteral("row"));
  lblWords = MakeLabel("lblWords", {});
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 1, 0, 1);
  line->setSpacing(8);
  line->addWidget(lblWords, 1);
  line->addWidget(go_);
  hide();
}

void AttentionRow::ShowWords(const QString& words) {
  lblWords->setText(words);
  go_->setAccessibleDescription(words);
  setVisible(!words.isEmpty());
}

StepRow::StepRow(int number, const char* name, const QString& title, QPushButton* count,
                 QPushButton* act)
    : number_(number), count_(count), act_(act) {
  setObjectName(QLatin1StringView(name));
  setProperty("role", QStringLiteral("row"));
  count_->setProperty("tone", QStringLiteral("muted"));
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(kBadge + 9, 1, 0, 1);
  line->setSpacing(2);
  line->addWidget(MakeLabel("", title));
  line->addStretch(1);
  line->addWidget(count_);
  line->addWidget(act_);
}

void StepRow::ShowState(State state, const QString& count) {
  state_ = state;
  count_->setText(count);
  act_->setVisible(state == State::Open || state == State::Next);
  update();
}

void StepRow::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  const Roles& roles = RolesOf(palette());
  const QRectF badge(0.5, (height() - kBadge) / 2 - 0.5, kBadge, kBadge);
  const bool isStrong = state_ == State::Next || state_ == State::Done;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(isStrong ? roles.accent : roles.faint);
  painter.drawEllipse(badge);
  painter.setPen(isStrong ? roles.onAccent : roles.surface);
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * 0.9);
  painter.setFont(small);
  painter.drawText(badge, Qt::AlignCenter,
                   state_ == State::Done ? QStringLiteral("✓") : QString::number(number_));
}

QString WholeMoneyText(const Money& amount) {
  QString text = amount.Rounded(0).ToCurrencyText();
  text.chop(3);
  return text;
}

}  // namespace quillary::today
