#pragma once

#include <QAbstractButton>
#include <QBasicTimer>

namespace quillary::diary {

/// A little picture that turns while its timer runs; a click stops or starts it. It stands still
/// until somebody wants otherwise, and nothing depends on it.
class StopGoImage : public QAbstractButton {
  Q_OBJECT

 public:
  explicit StopGoImage(QWidget* parent = nullptr);
  QSize sizeHint() const override { return {24, 24}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;

 private:
  QBasicTimer timer_;
  int turn_ = 0;
};

}  // namespace quillary::diary
