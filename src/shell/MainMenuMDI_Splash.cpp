#include "shell/MainMenuMDI_Splash.h"

#include "base/Version.h"
#include "kit/Controls.h"
#include "shell/ProgramIcon.h"

#include <QApplication>
#include <QTimer>
#include <QVBoxLayout>

namespace quillary::shell {

namespace {
constexpr int kShownForSeconds = 2;
}

MainMenuMDI_Splash::MainMenuMDI_Splash(const QString& companyName, QWidget* frame)
    : QFrame(frame, Qt::SplashScreen | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus) {
  setProperty("role", QStringLiteral("card"));
  setObjectName(QStringLiteral("MainMenuMDI_Splash"));
  setAttribute(Qt::WA_DeleteOnClose);
  setAttribute(Qt::WA_ShowWithoutActivating);
  auto* picture = new QLabel;
  picture->setPixmap(ProgramIcon().pixmap(72, 72));
  lblCompanyName = MakeLabel("lblCompanyName", companyName, LabelRole::Title);
  lblVersion =
      MakeLabel("lblVersion", tr("Quillary version %1").arg(VersionText()), LabelRole::Muted);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(48, 32, 48, 32);
  column->setSpacing(8);
  for (QLabel* line : {picture, lblCompanyName, lblVersion})
    column->addWidget(line, 0, Qt::AlignHCenter);
  setMinimumWidth(360);
  adjustSize();
  qApp->installEventFilter(this);
}

bool MainMenuMDI_Splash::eventFilter(QObject*, QEvent* event) {
  // Who has begun to work need not look at it any longer.
  if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) close();
  return false;
}

void MainMenuMDI_Splash::ShowOver(const QWidget* frame, QTime now) {
  const QPoint middle = frame->frameGeometry().center();
  move(middle - rect().center());
  show();
  repaint();
  QTimer::singleShot(MillisecondsOfPause(now, kShownForSeconds), this, &QWidget::close);
}

int MillisecondsOfPause(QTime begun, int seconds) {
  const int goal = qMin(begun.second() + seconds, 59);
  return qMax(0, (goal - begun.second()) * 1000 - begun.msec());
}

}  // namespace quillary::shell
