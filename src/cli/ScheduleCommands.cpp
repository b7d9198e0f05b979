#include "cli/Command.h"
#include "cli/Printing.h"
#include "cli/WorkingBusiness.h"
#include "data/settings/LocalSettings.h"
#include "domain/Payer.h"
#include "roll/ScheduleEngine.h"
#include "session/ProgramFolder.h"
#include "session/StartUp.h"

namespace quillary::cli {
namespace {

/// A start that shows nothing and names each step that it reaches.
class NamedSteps : public session::StartUpScreens {
 public:
  NamedSteps(const Call& call, const QString& programFolder)
      : call_(call), programFolder_(programFolder) {}

  std::unique_ptr<Business> SelectDatabaseToAccess() override {
    // The box that tells a user at the screen what to check takes five lines; a script gets one.
    try {
      return session::OpenDatabase(outside_, call_.File(), programFolder_);
    } catch (const std::exception& error) {
      whyNotOpened = QString::fromUtf8(error.what());
      return nullptr;
    }
  }
  void ShowProgress() override {}
  void Advance() override {}
  void Repaint() override {}
  void ShowFirstTime(Business&) override {}
  void ShowMainMenu(Business&) override {}
  void CheckClientSchedules(Business&) override {}
  void OpenMonthlyInvoices(Business&) override {}
  void RenameMenuCaptions(const QString&) override {}
  void FillProgress() override {}
  void CloseProgress() override {}
  void StepReached(const QString& activity) override {
    steps.push_back(activity);
    if (!call_.json) call_.out << activity << '\n';
  }

  QString whyNotOpened;
  QStringList steps;

 private:
  const Call& call_;
  Outside outside_ = call_.world.Ports();
  QString programFolder_;
};

void PrintSteps(const Call& call, const QStringList& steps) {
  if (!call.json) return;
  QStringList texts;
  for (const QString& step : steps) texts += ToJson(step);
  call.out << '[' << texts.join(QStringLiteral(", ")) << "]\n";
}

void RunStart(const Call& call) {
  const QString folder = session::ProgramFolder();
  const Outside outside = call.world.Ports();
  LocalSettings settings(folder, call.world.prompter);
  NamedSteps screens(call, folder);
  const auto business = session::StartUp(outside, settings, {}, screens);
  if (business) {
    PrintSteps(call, screens.steps);
    session::FinishUp(*business, settings);
  } else if (!screens.whyNotOpened.isEmpty()) {
    throw CommandFailure(screens.whyNotOpened);
  } else if (!call.world.ToldOfFailure()) {
    throw CommandFailure(QStringLiteral("the start ended early"));
  }
}

roll::RollCount RollClient(Business& business, const QString& file, Id<Client> client) {
  if (!PayerOf(business, client))
    throw CommandFailure(QStringLiteral("%1 has no client %2").arg(file).arg(client.Number()));
  return roll::AdvanceScheduleForClient(business, client);
}

void RunRoll(const Call& call) {
  const auto client = call.arguments.Key<Client>("client");
  const auto business = OpenCurrentBusiness(call);
  const roll::RollCount count = client ? RollClient(*business, call.File(), *client)
                                       : roll::AdvanceScheduleGlobally(*business);
  business->CloseConnection();
  if (call.world.ToldOfFailure()) return;
  if (call.json) {
    call.out << "{\"entries_deleted\": " << count.entriesDeleted
             << ", \"entries_made\": " << count.entriesMade << "}\n";
  } else {
    call.out << "entries deleted: " << count.entriesDeleted << '\n'
             << "entries made:    " << count.entriesMade << '\n';
  }
}

}  // namespace

std::vector<Command> ScheduleCommands() {
  return {
      {"start",
       "FILE",
       "Starts as the desktop does, without screens, and names each step reached.",
       {},
       1,
       1,
       RunStart},
      {"roll",
       "FILE [--client ID]",
       "Rolls the diary of all clients forward, or rebuilds that of one client.",
       {{"client", "ID", "only this client, from today"}},
       1,
       1,
       RunRoll},
  };
}

}  // namespace quillary::cli
