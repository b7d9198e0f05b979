#include "base/ports/requests/Scheduling.h"
#include "clients/screens/ClientServicesPage.h"
#include "kit/Grid.h"

#include <QLineEdit>

/// The commands below the services.
namespace quillary::clients {

void ClientServicesPage::Save(SaveServiceAs as) {
  desk_.takeFields();
  const ServiceSaved saved =
      SaveServiceAndAsk(desk_.business, desk_.Prompt(), desk_.edit, Fields(), as, element_);
  if (saved.service) ShowServices(ElementOf(desk_.edit.services, *saved.service));
  if (!desk_.accepted(saved.refusal)) return;
  desk_.showIfSaved();
  desk_.loadJobs();
}

void ClientServicesPage::AddNewService() {
  if (!TakeEdited() || !desk_.accepted(AddService(desk_.business, desk_.edit))) return;
  ShowServices(desk_.edit.services.size() - 2);
  FocusField(this, QStringLiteral("service"));
}

void ClientServicesPage::RemoveService() {
  if (!desk_.accepted(quillary::clients::RemoveService(desk_.business, desk_.edit, element_)))
    return;
  ShowServices();
}

void ClientServicesPage::ClearFields() {
  {
    const QSignalBlocker quiet(grdServices);
    grdServices->clearSelection();
  }
  ShowSelected();
  FocusField(this, QStringLiteral("service"));
}

void ClientServicesPage::Reschedule() {
  if (!TakeEdited()) return;
  desk_.takeFields();
  std::optional<Refusal> refusal;
  {
    const BusyWhile busy(desk_.business.World().busy);
    refusal = CreateScheduleOfClient(desk_.business, desk_.edit);
  }
  if (!desk_.accepted(refusal)) return;
  ShowServices(element_);
  desk_.showRecord();
  desk_.loadJobs();
}

void ClientServicesPage::AddAJob() {
  desk_.takeFields();
  const MayGoOn answer = SaveBeforeAddingJob(desk_.business, desk_.Prompt(), desk_.edit);
  if (!desk_.accepted(answer.refusal) || !answer.yes) return;
  desk_.showRecord();
  desk_.tools.navigator.Open(AddJob{*desk_.edit.client.clientId});
  desk_.loadJobs();
  desk_.showBalance();
}

void ClientServicesPage::AddAVisit() {
  desk_.tools.navigator.Open(AddVisit{desk_.edit.client.clientId});
  desk_.loadJobs();
}

}  // namespace quillary::clients
