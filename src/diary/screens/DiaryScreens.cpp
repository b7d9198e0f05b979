#include "diary/screens/DiaryScreens.h"

#include "base/ports/requests/Scheduling.h"
#include "base/ports/requests/Screens.h"
#include "diary/screens/frmClients_RescheduleFutureJobs.h"
#include "diary/screens/frmDiary.h"
#include "diary/screens/frmJobs.h"
#include "diary/screens/frmJobsList.h"
#include "diary/screens/frmListOfClientsWithSchedulingProblem.h"
#include "diary/screens/frmQuote.h"
#include "diary/screens/frmReschedule.h"
#include "diary/screens/frmVisit.h"

namespace quillary::diary {

namespace {

/// Shows the screen as its command shows it, from today on, also when it is open already.
template <typename Kind, typename Show>
void ShowAnew(Business& business, const ScreenTools& tools, const char* name, const Show& show) {
  auto* screen = qobject_cast<Kind*>(tools.host.BringToFront(QLatin1StringView(name)));
  if (!screen) {
    screen = new Kind(business, tools);
    tools.host.ShowScreen(screen);
  }
  show(*screen);
}

JobsListQuery QueryOf(const OpenJobsList& request, QDate today) {
  JobsListQuery query = JobsOfMonth(today);
  if (request.days) query.days = *request.days;
  if (request.which == OpenJobsList::Which::Done) query.filter = JobFilter::Done;
  if (request.which == OpenJobsList::Which::DueForInvoice) query.filter = JobFilter::DueForInvoice;
  return query;
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
  tools.navigator.Register<OpenDiary>([&business, tools](const OpenDiary& request) {
    ShowAnew<frmDiary>(business, tools, "frmDiary", [&](frmDiary& diary) {
      if (request.days)
        diary.ShowDays(*request.days);
      else
        diary.ShowYourself();
    });
  });
  tools.navigator.Register<OpenJobsList>([&business, tools](const OpenJobsList& request) {
    ShowAnew<frmJobsList>(business, tools, "frmJobsList", [&](frmJobsList& jobs) {
      jobs.ShowJobs(QueryOf(request, business.Today()));
    });
  });
}

void RegisterEntries(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<EditJob>([&business, tools](const EditJob& request) {
    const auto job = LoadJob(business, request.entry);
    return job ? Run(frmJobs(business, tools, *job)) : TellGone(business);
  });
  navigator.Register<AddJob>([&business, tools](const AddJob& request) {
    return Run(frmJobs(business, tools, NewJob(business, request.client)));
  });
  navigator.Register<EditVisit>([&business, tools](const EditVisit& request) {
    const auto visit = LoadVisit(business, request.entry);
    return visit ? Run(frmVisit(business, tools, *visit)) : TellGone(business);
  });
  navigator.Register<EditQuoteVisit>([&business, tools](const EditQuoteVisit& request) {
    if (const auto visit = LoadQuoteVisit(business, request.entry))
      return Run(frmQuote(business, tools, *visit));
    business.World().prompter.Tell(Tone::Stop,
                                   QStringLiteral("Sorry, I can't find this quote record! I won't "
                                                  "be able to load this quote."));
    return false;
  });
  navigator.Register<AddVisit>([&business, tools](const AddVisit& request) {
    return Run(frmVisit(business, tools, NewVisit(business, request.client)));
  });
}

void RegisterRescheduling(Business& business, const ScreenTools& tools) {
  Navigator& navigator = tools.navigator;
  navigator.Register<OpenReschedule>(
      [&business, tools](const OpenReschedule&) { frmReschedule(business, tools).exec(); });
  navigator.Register<RescheduleFutureJobs>([&business, tools](const RescheduleFutureJobs& request) {
    return Run(frmClients_RescheduleFutureJobs(business, tools, request.client));
  });
  navigator.Register<OpenListOfClientsWithSchedulingProblem>(
      [&business, tools](const OpenListOfClientsWithSchedulingProblem& request) {
        const auto show = [&](const std::vector<roll::ScheduleProblem>& found) {
          const QString name = QStringLiteral("frmListOfClientsWithSchedulingProblem");
          auto* list =
              qobject_cast<frmListOfClientsWithSchedulingProblem*>(tools.host.BringToFront(name));
          if (!list) {
            list = new frmListOfClientsWithSchedulingProblem(business, tools);
            tools.host.ShowScreen(list);
          }
          list->ShowFound(found);
        };
        if (request.atStartUp && !roll::ShowsScheduleProblemsAtStartUp(business.World().settings))
          return;
        tools.runner.RunBusy(QStringLiteral("frmListOfClientsWithSchedulingProblem"),
                             QStringLiteral("CheckClientSchedules"), [&] {
                               const auto found = roll::CheckClientSchedules(business);
                               if (!request.atStartUp || !found.empty()) show(found);
                             });
      });
}

}  // namespace

void RegisterDiaryScreens(Business& business, const ScreenTools& tools) {
  RegisterDiary(business, tools);
  RegisterEntries(business, tools);
  RegisterRescheduling(business, tools);
}

}  // namespace quillary::diary
