#pragma once

#include "kit/Boxes.h"
#include "support/ScriptedOutside.h"

#include <QFile>
#include <QTemporaryDir>

namespace quillary::monkey {

/// What was pressed, in a file that outlives a crash.
class Steps {
 public:
  Steps(unsigned seed, QTemporaryDir& home);
  void Add(const QString& what);
  /// What the program said to a step.
  void AddSaid(const QString& what);
  int Count() const { return count_; }
  /// Ends the process with what was found, the seed and the latest steps.
  [[noreturn]] void Find(const QString& finding);

 private:
  unsigned seed_;
  int count_ = 0;
  QTemporaryDir& home_;
  QFile file_;
  QStringList latest_;
};

/// The boxes of the desktop, which also note what they say. Nobody leaves before the time is over.
class NotedBoxes : public MessageBoxPrompter {
 public:
  explicit NotedBoxes(Steps& steps) : steps_(steps) {}
  Answer Ask(const QString& text, const QString& title) override;
  Answer AskBeforeLosing(const QString& text, const QString& title) override;
  void Tell(Tone tone, const QString& text, const QString& title) override;

 private:
  Steps& steps_;
};

/// Every failure that reaches the error screen, and every statement refused in silence, is a
/// finding.
class FoundErrors : public ErrorReporter {
 public:
  explicit FoundErrors(Steps& steps) : steps_(steps) {}
  void ReportError(const QString& form, const QString& errorLine, const QString& procedure,
                   const QString& furtherInformation) override;
  void NoteRefused(const RefusedStatement& refused) override;

 private:
  Steps& steps_;
};

/// The desktop's questions, and otherwise a world in which nothing can be harmed.
struct MonkeyOutside {
  explicit MonkeyOutside(Steps& steps) : prompter(steps), errors(steps) {}
  Outside Ports() { return {clock, prompter, errors, busy, settings, headOffice, desktop}; }

  PinnedClock clock;
  NotedBoxes prompter;
  FoundErrors errors;
  CountedBusyPointer busy;
  MemorySettings settings;
  ScriptedHeadOffice headOffice;
  RecordedDesktop desktop;
};

}  // namespace quillary::monkey
