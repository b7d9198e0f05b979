#pragma once

#include "base/ports/BusyPointer.h"
#include "base/ports/ErrorReporter.h"
#include "base/ports/Prompter.h"

#include <QAbstractButton>
#include <QAction>

#include <functional>

namespace quillary {

/// The one place where what a user's command throws is caught. Every slot of a screen runs through
/// it, because an exception must not travel through the event loop.
class CommandRunner {
 public:
  CommandRunner(ErrorReporter& errors, BusyPointer& busy) : errors_(errors), busy_(busy) {}

  /// Runs the command; a failure goes to the error screen under the names given. False when it
  /// failed.
  bool Run(const QString& form, const QString& procedure, const std::function<void()>& command);
  /// The same behind the busy pointer.
  bool RunBusy(const QString& form, const QString& procedure, const std::function<void()>& command);

  /// A click runs the command under the names of the window that the button stands on and
  /// "<button>_Click".
  void OnClick(QAbstractButton* button, const QString& form, std::function<void()> command);

 private:
  ErrorReporter& errors_;
  BusyPointer& busy_;
};

/// The message of a last-chance trap: lack of memory, or any other failure that nobody caught.
void ReportMemoryOrCrash(Prompter& prompter, const std::exception& error);

}  // namespace quillary
