#pragma once

#include "base/Id.h"
#include "cli/Ports.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <algorithm>
#include <limits>
#include <optional>
#include <stdexcept>
#include <vector>

namespace quillary::cli {

/// The command could not be done; exit code 1.
class CommandFailure : public std::runtime_error {
 public:
  explicit CommandFailure(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// The command line makes no sense; exit code 2.
class WrongUsage : public std::runtime_error {
 public:
  explicit WrongUsage(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// The words of a command line, sorted.
struct Arguments {
  QStringList positional;
  QHash<QString, QString> options;       // without the dashes; a switch has an empty value
  QHash<QString, QStringList> repeated;  // every value of an option, in order

  bool Has(const char* option) const { return options.contains(QLatin1String(option)); }
  /// All values of an option that may be given several times.
  QStringList All(const char* option) const { return repeated.value(QLatin1String(option)); }
  /// Throw CommandFailure for what is no day of the calendar, and WrongUsage for what is no whole
  /// number in the range.
  std::optional<QDate> Date(const char* option) const;
  std::optional<qint64> Number(const char* option, qint64 least, qint64 most) const;
  /// The number of a row; nothing without the option.
  template <NumberedRow Row>
  std::optional<Id<Row>> Key(const char* option) const {
    return IdFrom<Row>(Number(option, 1, std::numeric_limits<qint32>::max()));
  }
};

/// A whole number from 1 on, such as a key. Throws WrongUsage.
qint64 ParseKey(const QString& text);
template <NumberedRow Row>
Id<Row> ParseId(const QString& text) {
  return Id<Row>(ParseKey(text));
}
/// Several, each once, in their order.
template <NumberedRow Row>
std::vector<Id<Row>> ParseIds(const QStringList& words) {
  std::vector<Id<Row>> ids;
  for (const QString& word : words) {
    const Id<Row> id = ParseId<Row>(word.trimmed());
    if (std::find(ids.begin(), ids.end(), id) == ids.end()) ids.push_back(id);
  }
  return ids;
}

/// One use of a command.
struct Call {
  const Arguments& arguments;
  bool json = false;
  CompanionWorld& world;
  QTextStream& out;

  const QString& File() const { return arguments.positional.first(); }
};

struct Option {
  const char* name;   // without the dashes
  const char* value;  // how help names its value; null for a switch
  const char* help;
};

struct Command {
  const char* name;
  const char* usage;  // the words behind the name
  const char* help;
  std::vector<Option> options;
  int fewest;  // positional arguments
  int most;
  void (*run)(const Call& call);
};

// Each group of commands.
std::vector<Command> FileCommands();
std::vector<Command> StatementCommands();
std::vector<Command> ScheduleCommands();
std::vector<Command> DiaryCommands();
std::vector<Command> ClientCommands();
std::vector<Command> BalanceCommands();
std::vector<Command> InvoiceCommands();
std::vector<Command> PaymentCommands();
std::vector<Command> PurchaseCommands();
std::vector<Command> BankingCommands();
std::vector<Command> DocumentCommands();
std::vector<Command> ReportCommands();
std::vector<Command> RepairCommands();
std::vector<Command> BackupCommands();
std::vector<Command> SettingsCommands();
std::vector<Command> ImportClientsCommands();
std::vector<Command> TodayCommands();
std::vector<Command> HeadOfficeCommands();
std::vector<Command> MailCommands();
std::vector<Command> YearEndCommands();
std::vector<Command> QuoteCommands();
std::vector<Command> BudgetCommands();
std::vector<Command> OlderCommands();

}  // namespace quillary::cli
