#pragma once

#include "kit/Dialog.h"
#include "setup/firstday/FirstDay.h"

namespace quillary::setup {

enum class DataToPort { None = 0, BravantiOne = 1, Verdo = 2, HeadOfficeFile = 3 };

/// Asks which of the older products' data is to be brought along. A source that is not there cannot
/// be chosen.
class frmFirstTime_PortData : public Dialog {
  Q_OBJECT

 public:
  frmFirstTime_PortData(Prompter& prompter, const OlderData& found);
  /// What the user chose; None also when the screen was closed.
  DataToPort GetDataFile();

 private:
  DataToPort chosen_ = DataToPort::None;
};

}  // namespace quillary::setup
