#pragma once

#include "base/Refusal.h"
#include "data/Changes.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quillary {

class Business;
class RowLog;
struct ReplayConflict;

/// What commands wrote to the business, row by row, so that the latest ones can be taken back and
/// made again. It ends where rows stop being comparable with what was written down: with a change
/// of the schema and with another file under the same name.
class History {
 public:
  static constexpr size_t kKept = 50;

  explicit History(Business& business);
  ~History();
  History(const History&) = delete;
  History& operator=(const History&) = delete;

  /// What the commands did that can be taken back, the latest first.
  QStringList ToUndo() const;
  /// What was taken back and can be made again, the next one first.
  QStringList ToRedo() const;

  /// Takes the latest command back, in one transaction. When a row was changed since in a way that
  /// this would overwrite, nothing is done and the refusal says what stands in the way. Counters
  /// and invoice numbers stay spent. Loads the shared values anew when they may have changed.
  /// Throws StorageFailure.
  std::optional<Refusal> Undo();
  /// Makes the latest command that was taken back again, under the same conditions.
  std::optional<Refusal> Redo();

  /// Says what the command under way did, such as "Done: 3 jobs", instead of what it is called.
  void Describe(const QString& what);
  /// Forgets all, also what the command under way wrote so far.
  void End();
  /// Told whenever one of the lists changed.
  [[nodiscard]] Subscription OnChanged(std::function<void()> listener);

 private:
  friend class CommandScope;
  struct Command {
    QString what;
    std::unique_ptr<RowLog> log;  // none for one that is not kept
    /// What was written since by nobody's command, which taking this one back may not overwrite.
    std::vector<std::shared_ptr<RowLog>> since;
  };
  using Commands = std::deque<Command>;  // the latest last

  void BeginCommand(const QString& what);
  void EndCommand();
  void KeepWritten(Command& command);
  void Keep(Commands& in, Command command);
  void BoundMemory();
  /// Lets the store write down what follows: for the command under way, or beside the commands.
  void Record();
  std::optional<Refusal> TakeBack(Commands& from, Commands& to, bool again);
  std::optional<ReplayConflict> TakeBackWithin(Command& command, RowLog& inverse);
  void ForgetWhatIsStale();
  void TellChanged();

  Business& business_;
  std::vector<Command> underWay_;  // one within the other
  Commands undo_;
  Commands redo_;                   // their logs tell how they were taken back
  std::shared_ptr<RowLog> beside_;  // since the latest command was kept
  quint64 schemaChanges_ = 0;       // of the connection, when the latest command was kept
  Changes changed_;
};

/// A command of the user's, for as long as it lives. What it commits is one step of the history.
/// One begun within another, as a command of a dialog is, is a step of its own, and so is what the
/// outer one writes before and after it; within a transaction it is part of the outer one.
class CommandScope {
 public:
  /// `what` is shown where the command says nothing better of itself.
  CommandScope(Business& business, const QString& what);
  ~CommandScope();
  CommandScope(const CommandScope&) = delete;
  CommandScope& operator=(const CommandScope&) = delete;

 private:
  History* history_;  // null within a transaction
};

}  // namespace quillary
