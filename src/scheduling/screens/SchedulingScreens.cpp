#include "scheduling/screens/SchedulingScreens.h"

#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Screens.h"
#include "base/ports/requests/Setup.h"
#include "scheduling/screens/frmClients_RescheduleFutureJobs.h"
#include "scheduling/screens/frmDiary.h"
#include "scheduling/screens/frmDivisions.h"
#include "scheduling/screens/frmHoliday.h"
#include "scheduling/screens/frmJobs.h"
#include "scheduling/screens/frmJobsAndPaymentChecker.h"
#include "scheduling/screens/frmJobsList.h"
#include "scheduling/screens/frmListOfClientsWithSchedulingProblem.h"
#include "scheduling/screens/frmReschedule.h"
#include "scheduling/screens/frmServices.h"
#include "scheduling/screens/frmSuburb_Position.h"
#include "scheduling/screens/frmVisit.h"
#include "scheduling/screens/frmVisitFrequencies.h"

namespace quillary {

namespace {

/// Shows the screen of that name, making it when none is open, and loads it.
template <typename Make>
void ShowTab(const ScreenTools& tools, const char* name, const Make& make) {
  Screen* screen = tools.host.BringToFront(QLatin1StringView(name));
  if (!screen) {
    screen = make();
    tools.host.ShowScreen(screen);
  }
  screen->Reload();
  screen->setFocus();  // on the list: the arrow keys work at once
}

/// Shows the screen as its command shows it, from today on, also when it is open already.
template <typename Kind>
void ShowAnew(Business& business, const ScreenTools& tools, const char* name) {
  auto* screen = qobject_cast<Kind*>(tools.host.BringToFront(QLatin1StringView(name)));
  if (!screen) {
    screen = new Kind(business, tools);
    tools.host.ShowScreen(screen);
  }
  screen->ShowYourself();
}

bool Run(Dialog&& dialog) {
  return dialog.exec() == QDialog::Accepted;
}

/// An entry can have gone since its list was loaded: the roll builds open ones again.
bool TellGone(Business& business) {
  business.World().prompter.Tell(
      Tone::Exclamation,
      QObject::tr("This entry is no longer in the diary. Please refresh the list."));
  return false;
}

void RegisterDiary(Business& business, const ScreenTools& tools) {
  tools.navigator.Register<OpenDiary>(
      [&business, tools](const OpenDiary&) { ShowAnew<frmDiary>(business, tools, "frmDiary"); });
  tools.navigator.Register<OpenJobsList>([&business, tools](const OpenJobsList&) {
    ShowAnew<frmJobsList>(business, tools, "frmJobsList");
  });
  tools.navigator.Register<OpenJobsAndPaymentChecker>(
      [&business, tools](const OpenJobsAndPaymentChecker&) {
        ShowTab(tools, "frmJobsAndPaymentChecker",
                [&] { return new frmJobsAndPaymentChecker(business, tools); });
      });
}

void RegisterEntries(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<EditJob>([&business, tools](const EditJob& request) {
    const auto job = LoadJob(business, request.diaryId);
    return job ? Run(frmJobs(business, tools, *job)) : TellGone(business);
  });
  navigator.Register<AddJob>([&business, tools](const AddJob& request) {
    return Run(frmJobs(business, tools, NewJob(business, request.clientId)));
  });
  navigator.Register<EditVisit>([&business, tools](const EditVisit& request) {
    const auto visit = LoadVisit(business, request.diaryId);
    return visit ? Run(frmVisit(business, tools, *visit)) : TellGone(business);
  });
  navigator.Register<AddVisit>([&business, tools](const AddVisit& request) {
    return Run(frmVisit(business, tools, NewVisit(business, request.clientId)));
  });
}

void RegisterRescheduling(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenReschedule>(
      [&business, tools](const OpenReschedule&) { frmReschedule(business, tools).exec(); });
  navigator.Register<RescheduleFutureJobs>([&business, tools](const RescheduleFutureJobs& request) {
    return Run(frmClients_RescheduleFutureJobs(business, tools, request.clientId));
  });
  navigator.Register<OpenListOfClientsWithSchedulingProblem>(
      [&business, tools](const OpenListOfClientsWithSchedulingProblem& request) {
        const auto show = [&](const std::vector<ScheduleProblem>& found) {
          const QString name = QStringLiteral("frmListOfClientsWithSchedulingProblem");
          auto* list =
              qobject_cast<frmListOfClientsWithSchedulingProblem*>(tools.host.BringToFront(name));
          if (!list) {
            list = new frmListOfClientsWithSchedulingProblem(business, tools);
            tools.host.ShowScreen(list);
          }
          list->ShowFound(found);
        };
        if (request.atStartUp && !ShowsScheduleProblemsAtStartUp(business.World().settings)) return;
        tools.runner.RunBusy(QStringLiteral("frmListOfClientsWithSchedulingProblem"),
                             QStringLiteral("CheckClientSchedules"), [&] {
                               const auto found = CheckClientSchedules(business);
                               if (!request.atStartUp || !found.empty()) show(found);
                             });
      });
}

void RegisterLists(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<EditSuburbPositions>([&business, tools](const EditSuburbPositions&) {
    return Run(frmSuburb_Position(business, tools));
  });
  navigator.Register<OpenHoliday>([&business, tools](const OpenHoliday&) {
    ShowTab(tools, "frmHoliday", [&] { return new frmHoliday(business, tools); });
  });
  navigator.Register<OpenServices>([&business, tools](const OpenServices&) {
    ShowTab(tools, "frmServices", [&] { return new frmServices(business, tools); });
  });
  navigator.Register<OpenVisitFrequencies>([&business, tools](const OpenVisitFrequencies&) {
    ShowTab(tools, "frmVisitFrequencies", [&] {
      return new RecordListScreen(VisitFrequenciesList(business), tools, business.World());
    });
  });
  navigator.Register<OpenDivisions>([&business, tools](const OpenDivisions&) {
    ShowTab(tools, "frmDivisions",
            [&] { return new RecordListScreen(DivisionsList(business), tools, business.World()); });
  });
}

}  // namespace

void RegisterSchedulingScreens(Business& business, const ScreenTools& tools) {
  RegisterDiary(business, tools);
  RegisterEntries(business, tools);
  RegisterRescheduling(business, tools);
  RegisterLists(business, tools);
}

}  // namespace quillary
