#include "kit/Screen.h"

#include "kit/Controls.h"
#include "kit/Shortcuts.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QTimer>

namespace quillary {

namespace {

// An open cell takes no new rows under its editor; it closes soon.
constexpr int kLookAgainAfter = 250;

bool IsEditingACell(const QWidget* screen) {
  const QWidget* focus = QApplication::focusWidget();
  return focus && screen->isAncestorOf(focus) && focus->objectName() == QLatin1StringView("editor");
}

}  // namespace

Screen::Screen(const QString& name, const QString& title) {
  setObjectName(name);
  setWindowTitle(title);
  AddShortcut(this, QKeySequence::Refresh, tr("Loads the screen again"), [this] { Reload(); });
}

void Screen::TakeCommit(const Tables& written) {
  if (isStale_ || !Shows().HaveAnyOf(written)) return;
  isStale_ = true;
  // After the command that wrote has done the rest of its work.
  QTimer::singleShot(0, this, &Screen::CatchUp);
}

void Screen::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (isStale_) QTimer::singleShot(0, this, &Screen::CatchUp);
}

void Screen::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PlaceBar();
}

void Screen::CatchUp() {
  if (!isStale_ || !isVisible()) return;
  if (QApplication::activeModalWidget() || IsEditingACell(this)) {
    QTimer::singleShot(kLookAgainAfter, this, &Screen::CatchUp);
    return;
  }
  if (HasEdits()) {
    AskBeforeReloading();
    return;
  }
  isStale_ = false;
  Reload();
}

void Screen::AskBeforeReloading() {
  if (bar_) return;
  bar_ = new QFrame(this);
  bar_->setObjectName(QStringLiteral("barChanged"));
  bar_->setProperty("role", QStringLiteral("card"));
  auto* line = new QHBoxLayout(bar_);
  line->setContentsMargins(12, 6, 6, 6);
  line->setSpacing(8);
  line->addWidget(MakeLabel("lblChanged",
                            tr("This record was changed elsewhere since you opened it."),
                            LabelRole::Warning));
  auto* reload = MakeButton("cmdReloadChanged", tr("Reload"));
  auto* keep = MakeButton("cmdKeepTyped", tr("Keep what I typed"));
  line->addWidget(reload);
  line->addWidget(keep);
  const auto settle = [this] {
    isStale_ = false;
    bar_->deleteLater();
    bar_ = nullptr;
  };
  connect(keep, &QPushButton::clicked, this, settle);
  connect(reload, &QPushButton::clicked, this, [this, settle] {
    settle();
    Reload();
  });
  bar_->show();
  PlaceBar();
}

void Screen::PlaceBar() {
  if (!bar_) return;
  bar_->adjustSize();
  bar_->move((width() - bar_->width()) / 2, 4);
  bar_->raise();
}

}  // namespace quillary
