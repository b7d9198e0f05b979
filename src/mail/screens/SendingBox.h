#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

namespace quillary::mail {

/// Stands over the window while mails are sent: how many of how many, and a button to pause.
/// Nothing else can be clicked meanwhile, since the outbox is in use.
class SendingBox : public QDialog {
  Q_OBJECT

 public:
  SendingBox();

  /// False when the user has paused the run.
  bool Show(int done, int total);
  /// Lets the window paint while a server makes us wait. Always true: a mail that is on its way is
  /// not torn off, since then nobody would know whether it arrived.
  bool Breathe();
  bool IsPaused() const { return paused_; }

  void reject() override { paused_ = true; }

 private:
  QProgressBar* prgSending;
  QLabel* lblSending;
  QPushButton* cmdPause;
  bool paused_ = false;
};

}  // namespace quillary::mail
