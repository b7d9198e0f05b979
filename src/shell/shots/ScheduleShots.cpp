#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Setup.h"
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

template <typename Request>
void Shots::SaveDialogOf(const Request& request) {
  // The request comes back when the dialog has closed, so that the picture is taken from within it.
  QTimer::singleShot(50, program_.MainMenu(), [this] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    if (auto* grid = dialog->findChild<Grid*>()) grid->SelectFirst();
    Save(dialog, dialog->objectName());
    dialog->done(QDialog::Rejected);
  });
  program_.MainMenu()->Tools().navigator.Open(request);
}

void Shots::ScheduleDialogs() {
  Business& business = program_.OpenBusiness();
  const auto first = [&](const char* statement) {
    return business.FirstField(Sql(statement)).ToLong();
  };
  SaveDialogOf(EditJob{
      first("SELECT TOP 1 Diary_ID FROM Diary WHERE Status = 'JD' AND Payment_ID IS NOT NULL")});
  const qint64 client =
      first("SELECT TOP 1 Client_ID FROM Client_Services WHERE Status = 'Regular'");
  SaveDialogOf(AddJob{client});
  SaveDialogOf(EditVisit{first("SELECT TOP 1 Diary_ID FROM Diary WHERE Status = 'V'")});
  SaveDialogOf(OpenReschedule{});
  SaveDialogOf(RescheduleFutureJobs{client});
  SaveDialogOf(EditSuburbPositions{});
}

}  // namespace quillary::shell
