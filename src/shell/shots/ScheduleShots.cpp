#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Setup.h"
#include "diary/screens/dlgMoveTo.h"
#include "domain/EntryStatus.h"
#include "domain/JobType.h"
#include "kit/Grid.h"
#include "shell/shots/Shots.h"

#include <QApplication>
#include <QDialog>
#include <QTabWidget>
#include <QTimer>

/// The pictures of jobs, visits and the schedule's lists.
namespace quillary::shell {

void Shots::ScheduleLists() {
  MainMenuMDI* window = program_.MainMenu();
  const Navigator& to = window->Tools().navigator;
  const auto save = [&](const auto& request) {
    to.Open(request);
    auto* tabs = window->findChild<QTabWidget*>(QStringLiteral("tabs"));
    auto* grid = tabs->currentWidget()->findChild<Grid*>();
    if (grid != nullptr && !grid->SelectedRow()) grid->SelectFirst();
    Save(window, tabs->currentWidget()->objectName());
    CloseScreen();
  };
  save(OpenJobsList{});
  save(OpenJobsAndPaymentChecker{});
  save(OpenListOfClientsWithSchedulingProblem{});
  save(OpenHoliday{});
  save(OpenServices{});
  save(OpenVisitFrequencies{});
  save(OpenDivisions{});
}

void Shots::ScheduleDialogs() {
  Business& business = program_.OpenBusiness();
  const auto first = [&](const Sql& statement) { return business.FirstField(statement).ToLong(); };
  SaveRequest(
      EditJob{Id<Entry>(first(Sql("SELECT TOP 1 Diary_ID FROM Diary WHERE Status = {} "
                                  "AND Payment_ID IS NOT NULL",
                                  EntryStatus::JobDone)))});
  const Id<Client> client(first(
      Sql("SELECT TOP 1 Client_ID FROM Client_Services WHERE Status = {}", JobType::Regular)));
  SaveRequest(AddJob{client});
  SaveRequest(EditVisit{Id<Entry>(
      first(Sql("SELECT TOP 1 Diary_ID FROM Diary WHERE Status = {}", EntryStatus::VisitOpen)))});
  const diary::Entries today =
      diary::LoadDiary(business, {.days = DateRange::Of(business.Today())}).rows;
  diary::dlgMoveTo move(business, program_.MainMenu()->Tools(), today, today);
  move.show();
  Save(&move, move.objectName());
  move.hide();
  SaveRequest(OpenReschedule{});
  SaveRequest(RescheduleFutureJobs{client});
  SaveRequest(EditSuburbPositions{});
}

}  // namespace quillary::shell
