#pragma once

#include <QFrame>
#include <QLabel>
#include <QTime>

namespace quillary::shell {

/// The greeting over the main window: whose business this is, and which version runs. Closes by
/// itself.
class MainMenuMDI_Splash : public QFrame {
  Q_OBJECT

 public:
  MainMenuMDI_Splash(const QString& companyName, QWidget* frame);
  /// Shows it in the middle of the frame.
  void ShowOver(const QWidget* frame, QTime now);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLabel* lblCompanyName;
  QLabel* lblVersion;
};

/// How long a pause of that many seconds lasts, in milliseconds: until the second hand stands where
/// it should, and never beyond second 59. So a pause ends with the minute at the latest, and one
/// begun at second 59 at once.
int MillisecondsOfPause(QTime begun, int seconds);

}  // namespace quillary::shell
