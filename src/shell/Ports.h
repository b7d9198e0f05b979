#pragma once

#include "base/ports/Navigator.h"
#include "base/ports/Outside.h"
#include "data/settings/LocalSettings.h"
#include "data/settings/PerUserSettings.h"
#include "kit/Boxes.h"
#include "link/OstrelHeadOffice.h"
#include "session/ProgramFolder.h"
#include "shell/MachineDesktop.h"
#include "shell/frmErrorHandler.h"

namespace quillary::shell {

/// The outside world of the desktop program.
struct DesktopPorts {
  SystemClock clock;
  MessageBoxPrompter prompter;
  MachineDesktop desktop;
  PerUserSettings settings;
  link::OstrelHeadOffice headOffice{clock, prompter, session::ProgramFolder()};
  CursorBusyPointer busy;
  Navigator navigator;
  LocalSettings installation{session::ProgramFolder(), prompter};
  ScreenErrorReporter errors{clock,    prompter,  desktop,
                             settings, navigator, session::ReadSupport(installation)};

  Outside All() { return {clock, prompter, errors, busy, settings, headOffice, desktop}; }
};

}  // namespace quillary::shell
