#pragma once

#include "base/ports/BusyPointer.h"
#include "base/ports/ErrorReporter.h"
#include "base/ports/Prompter.h"

#include <QAbstractButton>
#include <QAction>
#include <QStringList>

#include <functional>
#include <memory>

namespace quillary {

/// The one place where what a user's command throws is caught. Every slot of a screen runs through
/// it, because an exception must not travel through the event loop.
class CommandRunner {
 public:
  CommandRunner(ErrorReporter& errors, BusyPointer& busy) : errors_(errors), busy_(busy) {}

  /// Something that lives for as long as a command of the user's runs, made of what the command is
  /// called: the history notes there what it wrote.
  using Scope = std::function<std::shared_ptr<void>(const QString& what)>;
  void RunWithin(Scope scope) { scope_ = std::move(scope); }
  /// Whose command is under way; empty when none is.
  QString RunningForm() const { return forms_.value(forms_.size() - 1); }

  /// Runs the command; a failure goes to the error screen under the names given. False when it
  /// failed.
  bool Run(const QString& form, const QString& procedure, const std::function<void()>& command);
  /// The same for what is no command of the business's, such as taking one back.
  bool RunAside(const QString& form, const QString& procedure,
                const std::function<void()>& command) {
    return RunNamed({}, form, procedure, command);
  }
  /// The same behind the busy pointer.
  bool RunBusy(const QString& form, const QString& procedure, const std::function<void()>& command);

  /// A click runs the command under the names of the window that the button stands on and
  /// "<button>_Click".
  void OnClick(QAbstractButton* button, const QString& form, std::function<void()> command);

 private:
  bool RunNamed(const QString& what, const QString& form, const QString& procedure,
                const std::function<void()>& command);

  ErrorReporter& errors_;
  BusyPointer& busy_;
  Scope scope_;
  QStringList forms_;  // whose commands are under way, one within the other
};

/// The message of a last-chance trap: lack of memory, or any other failure that nobody caught.
void ReportMemoryOrCrash(Prompter& prompter, const std::exception& error);

}  // namespace quillary
