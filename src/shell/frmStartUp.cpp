#include "shell/frmStartUp.h"

#include "kit/Controls.h"

#include <QCoreApplication>
#include <QVBoxLayout>

namespace quillary::shell {

frmStartUp::frmStartUp() {
  setObjectName(QStringLiteral("frmStartUp"));
  setWindowTitle(QStringLiteral("Quillary"));
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  lblPleaseWait = MakeLabel("lblPleaseWait", QStringLiteral("Please wait...."));
  pb = new QProgressBar;
  pb->setObjectName(QStringLiteral("pb"));
  pb->setAccessibleName(tr("Progress of the start"));
  pb->setRange(0, kSteps);
  pb->setTextVisible(false);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 24, 24, 24);
  column->setSpacing(12);
  column->addWidget(lblPleaseWait);
  column->addWidget(pb);
  setFixedSize(360, sizeHint().height());
}

void frmStartUp::Start() {
  pb->setValue(0);
  show();
  repaint();
}

void frmStartUp::Advance() {
  pb->setValue(pb->value() + 1);
  Repaint();
}

void frmStartUp::Repaint() {
  repaint();
  // Lets the screen reach the display; keys and clicks wait until the business is ready.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmStartUp::Fill() {
  pb->setValue(pb->maximum());
  repaint();
}

}  // namespace quillary::shell
