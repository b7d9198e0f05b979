#include "base/Errors.h"
#include "base/Version.h"
#include "kit/Theme.h"
#include "session/ProgramFolder.h"
#include "shell/DayRun.h"
#include "shell/Ports.h"
#include "shell/Program.h"
#include "shell/ProgramIcon.h"

#include <QApplication>
#include <QLoggingCategory>
#include <QTextStream>

#include <iostream>
#include <optional>

using namespace quillary;

namespace {

/// The last net: whatever a handler of the toolkit lets through is told to the user, instead of
/// ending the program with the user's work.
class DesktopApplication : public QApplication {
 public:
  using QApplication::QApplication;
  void UsePorts(shell::DesktopPorts* ports) { ports_ = ports; }

  bool notify(QObject* receiver, QEvent* event) override {
    try {
      return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
      if (!ports_) throw;
      ReportMemoryOrCrash(ports_->prompter, error);
      ports_->errors.Report(receiver->objectName(), QStringLiteral("notify"), error);
    }
    return true;
  }

 private:
  shell::DesktopPorts* ports_ = nullptr;
};

struct Options {
  QString file;
  QString dayRunFolder;
  QStringList rest;  // as it stands, the command line that the start-up reads
  bool help = false;
  bool version = false;
  QString wrong;
};

Options ReadOptions(const QStringList& arguments) {
  Options options;
  for (qsizetype at = 1; at < arguments.size(); ++at) {
    const QString& word = arguments[at];
    const auto value = [&](QString& into) {
      if (at + 1 < arguments.size())
        into = arguments[++at];
      else
        options.wrong = word;
    };
    if (word == u"--file")
      value(options.file);
    else if (word == u"--day-run")
      value(options.dayRunFolder);
    else if (word == u"--help" || word == u"-h")
      options.help = true;
    else if (word == u"--version")
      options.version = true;
    else if (!word.startsWith(u'-') && options.file.isEmpty())
      options.file = word;  // what the desktop says for a business that was double-clicked
    else
      options.rest += word;
  }
  return options;
}

const char* const kHelp =
    "Usage: quillary [-i] [--day-run DIR] [[--file] PATH]\n"
    "\n"
    "Runs a home-services business, which is one file, from one desk. Where the business is open\n"
    "already, its window comes to the front.\n"
    "\n"
    "Options:\n"
    "  -i             opens the first-run setup again\n"
    "  --file PATH    opens this business file without asking\n"
    "  --day-run DIR  does the day's first job without a user and lays a picture of the\n"
    "                 main window into DIR\n"
    "  --version      says which version this is\n"
    "  --help         says this\n";

int RunDesktop(DesktopApplication& application, const Options& options) {
  shell::DesktopPorts ports;
  application.UsePorts(&ports);
  int code = 1;
  {
    shell::Program program(ports.All(), ports.navigator, session::ProgramFolder());
    program.UseFile(options.file);
    if (program.Start(options.rest.join(u' '))) {
      QObject::connect(
          program.MainMenu(), &shell::MainMenuMDI::left, &application,
          [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
      code = application.exec();
    } else if (program.UserLeft()) {
      code = 0;
    }
  }
  application.UsePorts(nullptr);
  return code;
}

/// What needs no display is answered before one is asked for. Nothing when the program is to run.
std::optional<int> AnswerWithoutDisplay(const Options& options) {
  if (options.help || options.version) {
    std::cout << (options.help ? kHelp
                               : qPrintable(QStringLiteral("quillary %1\n").arg(VersionText())));
    return 0;
  }
  if (options.wrong.isEmpty()) return std::nullopt;
  std::cerr << "quillary: " << qPrintable(options.wrong) << " needs a value\n" << kHelp;
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  QStringList words;
  for (int at = 0; at < argc; ++at) words += QString::fromLocal8Bit(argv[at]);
  const Options asked = ReadOptions(words);
  if (const auto code = AnswerWithoutDisplay(asked)) return *code;
  if (!asked.dayRunFolder.isEmpty() && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");

  DesktopApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Quillary"));
  QApplication::setApplicationVersion(VersionText());
  QApplication::setDesktopFileName(QStringLiteral("quillary"));
  QApplication::setQuitOnLastWindowClosed(false);  // the main window decides when we leave
  QApplication::setWindowIcon(shell::ProgramIcon());

  // Without the words that the toolkit takes for itself.
  const Options options = ReadOptions(QCoreApplication::arguments());
  ApplyTheme(application, ReadThemeChoice(PerUserSettings()));
  if (options.dayRunFolder.isEmpty()) return RunDesktop(application, options);
  // The platform without a display remarks on every window that it does not show.
  QLoggingCategory::setFilterRules(QStringLiteral("default.warning=false"));
  return shell::RunTheDay(options.rest.join(u' '), options.file, options.dayRunFolder);
}
