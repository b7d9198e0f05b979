#include "kit/Dialog.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>

namespace quillary {

namespace {

constexpr int kDialogMargin = 16;
/// What the frame of a window takes of the display.
constexpr QSize kFrame{32, 56};

QString KindOf(const QWidget* button) {
  return button->property("kind").toString();
}

}  // namespace

Dialog::Dialog(const char* name, const QString& title, Prompter& prompter, QWidget* parent)
    : QDialog(parent ? parent : QApplication::activeWindow()), prompter_(prompter) {
  setObjectName(QLatin1StringView(name));
  setWindowTitle(title);
  column_ = new QVBoxLayout(this);
  column_->setContentsMargins(0, 0, 0, kDialogMargin);
  column_->setSpacing(kDialogMargin);
  auto* line = new QHBoxLayout;
  line->setContentsMargins(kDialogMargin, 0, kDialogMargin, 0);
  line->setSpacing(8);
  apart_ = new QHBoxLayout;
  actions_ = new QHBoxLayout;
  for (QBoxLayout* half : {apart_, actions_}) half->setSpacing(8);
  line->addLayout(apart_);
  line->addStretch(1);
  line->addLayout(actions_);
  column_->addLayout(line);
}

void Dialog::SetContent(QLayout* content) {
  content->setContentsMargins(kDialogMargin, kDialogMargin, kDialogMargin, 0);
  content_ = new QWidget;
  content_->setLayout(content);
  auto* scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setFocusPolicy(Qt::NoFocus);
  scroll->setWidget(content_);
  column_->insertWidget(0, scroll, 1);
}

void Dialog::AddActions(const QList<QPushButton*>& actions) {
  QPushButton* main = nullptr;
  for (QPushButton* action : actions) {
    const QString kind = KindOf(action);
    if (kind == QLatin1StringView("main"))
      main = action;
    else
      (kind == QLatin1StringView("danger") ? apart_ : actions_)->addWidget(action);
  }
  if (!main) return;
  actions_->addWidget(main);
  main->setDefault(true);
}

QSize Dialog::sizeHint() const {
  QSize wanted = column_->totalSizeHint();
  if (content_) {
    const int actions = column_->itemAt(1)->sizeHint().height() + 2 * kDialogMargin;
    wanted = content_->sizeHint().expandedTo({wanted.width() - kDialogMargin, 0});
    if (content_->layout()->hasHeightForWidth()) {
      const int width = qMax(wanted.width(), room_.width());
      wanted.setHeight(content_->layout()->totalHeightForWidth(width));
    }
    wanted.rheight() += actions;
  }
  wanted = wanted.expandedTo(room_);
  return screen() ? wanted.boundedTo(screen()->availableSize() - kFrame) : wanted;
}

void Dialog::setVisible(bool visible) {
  if (visible && !testAttribute(Qt::WA_Resized)) resize(sizeHint());
  QDialog::setVisible(visible);
}

bool Dialog::MayLeave() {
  return !IsDataChanged() ||
         prompter_.AskBeforeLosing(QStringLiteral("Close without saving changes?")) == Answer::Yes;
}

void Dialog::reject() {
  if (MayLeave()) Close(Rejected);
}

bool Dialog::IsAccepted(const std::optional<Refusal>& refusal) {
  return quillary::Accepted(prompter_, this, refusal);
}

void Dialog::Close(DialogCode result) {
  QDialog::done(result);
}

}  // namespace quillary
