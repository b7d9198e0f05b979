#pragma once

#include "base/ports/BusyPointer.h"
#include "base/ports/Clock.h"
#include "base/ports/Desktop.h"
#include "base/ports/ErrorReporter.h"
#include "base/ports/HeadOffice.h"
#include "base/ports/Prompter.h"
#include "base/ports/SettingsStore.h"

namespace quillary {

/// The outside world, as one bundle for those who open a business.
struct Outside {
  Clock& clock;
  Prompter& prompter;
  ErrorReporter& errors;
  BusyPointer& busy;
  SettingsStore& settings;
  HeadOffice& headOffice;
  Desktop& desktop;
};

}  // namespace quillary
