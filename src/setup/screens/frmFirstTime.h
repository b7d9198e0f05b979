#pragma once

#include "data/Business.h"
#include "data/settings/LocalSettings.h"
#include "kit/Dialog.h"
#include "kit/Screen.h"
#include "setup/firstday/FirstDay.h"

#include <vector>

class QLabel;

namespace quillary::setup {

/// The checklist of the first day: one line a screen of the set-up, with a tick at what is done.
/// Nothing has to be done; what is not can be done from the menu at any time.
class frmFirstTime : public Dialog {
  Q_OBJECT

 public:
  frmFirstTime(Business& business, LocalSettings& settings, const ScreenTools& tools);

  /// Offers data of older products that lies about, then shows the checklist. `drive` is where to
  /// look for them.
  static void ShowYourself(Business& business, LocalSettings& settings, const ScreenTools& tools,
                           const QString& drive = DriveOfOlderProducts());

 private:
  struct Line {
    SetUpStep step;
    QLabel* tick;
    QPushButton* command;
  };
  QLayout* Lines(const ScreenTools& tools);
  void ShowTicks();

  Business& business_;
  std::vector<Line> lines_;
  QPushButton* cmdBegin;
  Subscription commits_;
};

}  // namespace quillary::setup
