#include "data/History.h"

#include "data/Business.h"
#include "data/schema/RowNames.h"
#include "data/schema/Schema.h"
#include "data/store/Connection.h"
#include "data/store/RowReplay.h"

namespace quillary {
namespace {

/// Handed out once: a document may bear one that was taken back.
const SpentNumbers& NumbersHandedOut() {
  static const SpentNumbers numbers = {{"infSystem", "Invoice_Number"}};
  return numbers;
}

QString InWords(const ReplayConflict& conflict, const QString& command, bool again) {
  const QString row = RowInWords(conflict.table);
  const QString number = QString::number(conflict.row);
  QString reason;
  switch (conflict.why) {
    case ReplayConflict::Why::Changed:
      reason = QStringLiteral("the %1 (number %2) was changed since");
      break;
    case ReplayConflict::Why::Gone:
      reason = QStringLiteral("the %1 (number %2) is no longer there");
      break;
    case ReplayConflict::Why::Taken:
      reason = QStringLiteral("another %1 bears the number %2 by now");
      break;
  }
  return QStringLiteral("\"%1\" cannot be %2: %3. Nothing was changed.")
      .arg(command, again ? QStringLiteral("done again") : QStringLiteral("taken back"),
           reason.arg(row, number));
}

QStringList WhatTheyDid(const auto& commands) {
  QStringList all;
  for (auto at = commands.rbegin(); at != commands.rend(); ++at) all += at->what;
  return all;
}

/// The shared values that a replay of the log changes. What is not kept comes back.
class ValuesOf {
 public:
  ValuesOf(Business& business, const RowLog& log)
      : business_(business), values_(business.values), holidays_(business.holidays) {
    for (const std::string& table : log.Tables()) {
      touched_ = touched_ || TablesOfSharedValues().Contains(QString::fromStdString(table));
    }
  }
  ~ValuesOf() {
    if (kept_ || !touched_) return;
    business_.values = std::move(values_);
    business_.holidays = std::move(holidays_);
  }
  ValuesOf(const ValuesOf&) = delete;
  ValuesOf& operator=(const ValuesOf&) = delete;

  void Load() {
    if (touched_) LoadSharedValues(business_);
  }
  void Keep() { kept_ = true; }

 private:
  Business& business_;
  SharedValues values_;
  HolidayList holidays_;
  bool touched_ = false;
  bool kept_ = false;
};

}  // namespace

History::History(Business& business) : business_(business) {
  std::set<std::string> leftOut;
  for (const QString& table : WorkTables()) leftOut.insert(table.toStdString());
  business_.StoreConnection().Rows().LeaveOut(std::move(leftOut));
}

History::~History() {
  business_.StoreConnection().Rows().RecordInto(nullptr);
}

QStringList History::ToUndo() const {
  return WhatTheyDid(undo_);
}

QStringList History::ToRedo() const {
  return WhatTheyDid(redo_);
}

void History::BeginCommand(const QString& what) {
  if (!underWay_.empty()) KeepWritten(underWay_.back());
  underWay_.push_back({what, std::make_unique<RowLog>(), {}});
  Record();
}

void History::EndCommand() {
  KeepWritten(underWay_.back());
  underWay_.pop_back();
  Record();
}

void History::Record() {
  RowLog* log = nullptr;
  if (!underWay_.empty()) {
    log = underWay_.back().log.get();
  } else if (!undo_.empty() || !redo_.empty()) {
    log = beside_.get();
  }
  business_.StoreConnection().Rows().RecordInto(log);
}

void History::KeepWritten(Command& command) {
  if (!command.log || command.log->IsEmpty()) return;
  if (command.log->IsLost()) return End();  // what came before could be taken back only past it
  ForgetWhatIsStale();
  redo_.clear();
  Keep(undo_, {command.what, std::exchange(command.log, std::make_unique<RowLog>()), {}});
  Record();
  TellChanged();
}

void History::Keep(Commands& in, Command command) {
  in.push_back(std::move(command));
  if (in.size() > kKept) in.pop_front();
  BoundMemory();
  beside_ = std::make_shared<RowLog>();
  for (Commands* commands : {&undo_, &redo_}) {
    for (Command& earlier : *commands) {
      // What is written from now on came after all of them.
      std::erase_if(earlier.since, [](const auto& log) { return log->IsEmpty(); });
      earlier.since.push_back(beside_);
    }
  }
}

void History::BoundMemory() {
  constexpr size_t kMost = 32 << 20;
  size_t kept = 0;
  for (Commands* commands : {&undo_, &redo_}) {
    for (auto at = commands->rbegin(); at != commands->rend(); ++at) {
      kept += at->log->BytesInMemory();
      if (kept > kMost) at->log->ReleaseMemory();
    }
  }
}

std::optional<Refusal> History::Undo() {
  return TakeBack(undo_, redo_, false);
}

std::optional<Refusal> History::Redo() {
  return TakeBack(redo_, undo_, true);
}

std::optional<Refusal> History::TakeBack(Commands& from, Commands& to, bool again) {
  Connection& connection = business_.StoreConnection();
  business_.ConnectToDatabase();
  if (connection.TransactionDepth() > 0) {
    return Refusal{QStringLiteral("Please wait until the work under way is done."), {}};
  }
  if (!underWay_.empty()) KeepWritten(underWay_.back());
  ForgetWhatIsStale();
  if (from.empty()) {
    return Refusal{again ? QStringLiteral("There is nothing to do again.")
                         : QStringLiteral("There is nothing to take back."),
                   {}};
  }
  auto inverse = std::make_unique<RowLog>();
  if (const auto conflict = TakeBackWithin(from.back(), *inverse)) {
    return Refusal{InWords(*conflict, from.back().what, again), {}};
  }
  const QString what = from.back().what;
  from.pop_back();
  if (inverse->IsLost()) {
    End();
  } else {
    Keep(to, {what, std::move(inverse), {}});
  }
  Record();
  TellChanged();
  return std::nullopt;
}

std::optional<ReplayConflict> History::TakeBackWithin(Command& command, RowLog& inverse) {
  Connection& connection = business_.StoreConnection();
  if (const auto conflict =
          FindConflict(*command.log, command.since, connection.Schema(), NumbersHandedOut())) {
    return conflict;
  }
  struct RecordAgain {
    History& history;
    ~RecordAgain() { history.Record(); }
  } const recordAgain{*this};
  ValuesOf values(business_, *command.log);
  Transaction all(business_);
  connection.Rows().RecordInto(&inverse);
  if (const auto conflict = quillary::TakeBack(connection, *command.log, NumbersHandedOut())) {
    return conflict;
  }
  values.Load();  // listeners of the commit find the values that go with its rows
  all.Commit();
  values.Keep();
  return std::nullopt;
}

void History::ForgetWhatIsStale() {
  const quint64 now = business_.StoreConnection().SchemaChanges();
  const bool isLost = beside_ && beside_->IsLost();
  if (now == schemaChanges_ && !isLost) return;
  schemaChanges_ = now;
  beside_.reset();
  undo_.clear();
  redo_.clear();
  TellChanged();
}

void History::Describe(const QString& what) {
  if (!underWay_.empty()) underWay_.back().what = what;
}

void History::End() {
  undo_.clear();
  redo_.clear();
  for (Command& command : underWay_) command.log.reset();
  Record();
  TellChanged();
}

Subscription History::OnChanged(std::function<void()> listener) {
  return changed_.Listen([listener = std::move(listener)](const Tables&) { listener(); });
}

void History::TellChanged() {
  try {
    changed_.Tell({});
  } catch (const std::exception& error) {
    business_.World().errors.Report(QStringLiteral("History"), QStringLiteral("OnChanged"), error);
  }
}

CommandScope::CommandScope(Business& business, const QString& what)
    : history_(business.StoreConnection().TransactionDepth() > 0 ? nullptr
                                                                 : &business.PastCommands()) {
  if (history_) history_->BeginCommand(what);
}

CommandScope::~CommandScope() {
  if (history_) history_->EndCommand();
}

}  // namespace quillary
