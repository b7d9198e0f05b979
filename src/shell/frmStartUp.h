#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QWidget>

namespace quillary::shell {

/// The sign of life while the business is made ready.
class frmStartUp : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kSteps = 17;

  frmStartUp();
  void Start();
  void Advance();
  /// Shows a sign of life without a step forward.
  void Repaint();
  void Fill();

 private:
  QLabel* lblPleaseWait;
  QProgressBar* pb;
};

}  // namespace quillary::shell
