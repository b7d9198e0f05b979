#include "mail/screens/SendingBox.h"

#include "kit/Layouts.h"

#include <QApplication>
#include <QProgressBar>

namespace quillary::mail {

SendingBox::SendingBox() : QDialog(QApplication::activeWindow()) {
  setObjectName(QStringLiteral("SendingBox"));
  setWindowTitle(tr("Sending mails"));
  setModal(true);
  lblSending = MakeLabel("lblSending", tr("Connecting"));
  prgSending = Named(new QProgressBar, "prgSending", tr("Mails sent"));
  prgSending->setRange(0, 0);
  prgSending->setFormat(tr("%v of %m"));
  cmdPause = MakeButton("cmdPause", tr("&Pause"));
  cmdPause->setToolTip(tr("Stops after the mail that is on its way; the rest waits"));
  connect(cmdPause, &QPushButton::clicked, this, [this] { reject(); });
  auto* line = new QHBoxLayout;
  line->addStretch(1);
  line->addWidget(cmdPause);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 16);
  column->setSpacing(12);
  column->addWidget(lblSending);
  column->addWidget(prgSending);
  column->addLayout(line);
  setMinimumWidth(360);
  show();
  QCoreApplication::processEvents();
}

bool SendingBox::Show(int done, int total) {
  prgSending->setRange(0, total);
  prgSending->setValue(done);
  lblSending->setText(tr("%1 of %2 mails").arg(done).arg(total));
  QCoreApplication::processEvents();
  if (paused_) {
    lblSending->setText(tr("Paused"));
    cmdPause->setEnabled(false);
  }
  return !paused_;
}

bool SendingBox::Breathe() {
  QCoreApplication::processEvents();
  return true;
}

}  // namespace quillary::mail
