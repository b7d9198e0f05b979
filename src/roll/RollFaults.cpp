#include "roll/RollFaults.h"

#include <QCoreApplication>

namespace quillary::roll {

void RollFaults::OfferRepair() {
  if (declinedRepair_) return;  // steps lie within steps, and each sees the failure pass
  const Answer answer = business_.World().prompter.Ask(
      QStringLiteral("The system has detected a database corruption. The database needs to be "
                     "repaired.\n\nDo you want to run the program that can fix the problem?"));
  if (answer == Answer::Yes) throw RepairWanted();
  declinedRepair_ = true;
}

void RollFaults::Report(const std::exception& error) {
  business_.World().errors.Report(QStringLiteral("Crunchers"),
                                  QStringLiteral("AdvanceScheduleForClient"), error);
}

void HandOverToRepair(Business& business) {
  constexpr int kExitForRepair = 1;
  const Outside& world = business.World();
  const QStringList file = {business.DatabaseFile()};
  const bool started = world.desktop.StartProgram(QStringLiteral("CompactDB.EXE"), file) ||
                       world.desktop.StartProgram(QStringLiteral("CompactDB"), file);
  if (!started) {
    world.prompter.Tell(
        Tone::Exclamation,
        QStringLiteral("The program CompactDB.EXE was not found in %1. Please search the file in "
                       "other drives or folders and run independently.")
            .arg(QCoreApplication::applicationDirPath()));
  }
  business.CloseConnection();
  world.desktop.EndProcess(kExitForRepair);
}

}  // namespace quillary::roll
