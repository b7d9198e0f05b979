#include "cli/CommandLine.h"

#include "base/DateTime.h"
#include "base/Errors.h"
#include "base/Version.h"
#include "cli/Command.h"
#include "cli/Completion.h"
#include "cli/Parsing.h"

namespace quillary::cli {
namespace {

constexpr int kDone = 0;
constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;

const std::vector<Command>& AllCommands() {
  static const std::vector<Command> commands = [] {
    std::vector<Command> all;
    for (const auto& group :
         {FileCommands(),     StatementCommands(),  ScheduleCommands(), DiaryCommands(),
          ClientCommands(),   BalanceCommands(),    InvoiceCommands(),  PaymentCommands(),
          PurchaseCommands(), BankingCommands(),    DocumentCommands(), ReportCommands(),
          RepairCommands(),   BackupCommands(),     SettingsCommands(), ImportClientsCommands(),
          TodayCommands(),    HeadOfficeCommands(), MailCommands(),     YearEndCommands(),
          QuoteCommands(),    BudgetCommands(),     OlderCommands()}) {
      all.insert(all.end(), group.begin(), group.end());
    }
    all.push_back({"completion",
                   "",
                   "Prints what bash needs to complete this command line.",
                   {},
                   0,
                   0,
                   [](const Call& call) { PrintCompletion(AllCommands(), call.out); }});
    return all;
  }();
  return commands;
}

void PrintOptions(const std::vector<Option>& options, QTextStream& out) {
  for (const Option& option : options) {
    QString left = QStringLiteral("  --") + QLatin1String(option.name);
    if (option.value != nullptr) left += u' ' + QLatin1String(option.value);
    out << left.leftJustified(22) << option.help << '\n';
  }
}

void PrintHelp(QTextStream& out) {
  out << "Usage: quillaryctl [--today YYYY-MM-DD] [--json] COMMAND ...\n\n"
         "Works on a business file without a screen.\n\n"
         "Commands:\n";
  for (const Command& command : AllCommands()) {
    out << "  " << command.name << ' ' << command.usage << "\n      " << command.help << '\n';
  }
  out << "\nOptions:\n";
  PrintOptions(GlobalOptions(), out);
  out << "\nExit code: 0 done, 1 failed with a line on stderr, 2 wrong usage.\n";
}

void PrintHelp(const Command& command, QTextStream& out) {
  out << "quillaryctl " << command.name << ' ' << command.usage << "\n\n"
      << command.help << "\n\nOptions:\n";
  PrintOptions(command.options, out);
  PrintOptions(GlobalOptions(), out);
}

/// The day that all rules take for today. A pinned day that does not exist would otherwise pass
/// unnoticed, and the work be done for another day.
SystemClock ClockFor(const CommandLine& line) {
  if (line.today) return SystemClock(*line.today);
  const QString pinned = qEnvironmentVariable("QUILLARY_TODAY").trimmed();
  if (!pinned.isEmpty() && !FromIsoText(pinned)) {
    throw CommandFailure(QStringLiteral("QUILLARY_TODAY is %1, which is no date").arg(pinned));
  }
  return SystemClock();
}

int Run(const QStringList& words, QTextStream& out, QTextStream& err) {
  const CommandLine line = ParseCommandLine(words, AllCommands());
  if (line.help && line.command != nullptr) {
    PrintHelp(*line.command, out);
    return kDone;
  }
  if (line.help) {
    PrintHelp(out);
    return kDone;
  }
  if (line.version) {
    out << "quillaryctl " << VersionText() << '\n';
    return kDone;
  }
  CompanionWorld world(ClockFor(line), out, err);
  if (line.yes) world.prompter.AnswerYes();
  if (line.json) world.prompter.BeQuiet();
  line.command->run(Call{line.arguments, line.json, world, out});
  return world.ToldOfFailure() ? kFailed : kDone;
}

}  // namespace

int RunCommandLine(const QStringList& arguments, QTextStream& out, QTextStream& err) {
  const auto tell = [&](const char* what) {
    err << "quillaryctl: " << OneLine(QString::fromUtf8(what)) << '\n';
  };
  try {
    return Run(arguments, out, err);
  } catch (const WrongUsage& wrong) {
    tell(wrong.what());
    err << "Try quillaryctl --help.\n";
    return kWrongUsage;
  } catch (const ProcessEnded& end) {
    return end.exitCode == 0 ? kFailed : end.exitCode;
  } catch (const std::exception& error) {
    const QString further = FurtherInformation(error);
    err << "quillaryctl: " << OneLine(QString::fromUtf8(error.what()));
    err << (further.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(OneLine(further))) << '\n';
    return kFailed;
  }
}

}  // namespace quillary::cli
