#include "base/ports/requests/Scheduling.h"
#include "clients/ClientCommands.h"
#include "clients/screens/ClientServicesPage.h"
#include "kit/Grid.h"

#include <QLineEdit>

/// The commands below the services.
namespace quillary::clients {

void ClientServicesPage::Save(SaveServiceAs as) {
  desk_.takeFields();
  ClientServiceForm form = Fields();
  const auto refusal =
      SaveServiceAndAsk(desk_.business, desk_.Prompt(), desk_.client, desk_.services, form, as);
  // A refusal that concerns another page came after the service was stored.
  if (!refusal || !findChild<QWidget*>(refusal->field)) ShowServices(form.clientServiceId);
  if (!desk_.accepted(refusal)) return;
  desk_.showIfSaved();
  desk_.loadJobs();
}

void ClientServicesPage::AddNewService() {
  if (!desk_.accepted(AddEmptyClientService(desk_.business, desk_.client.clientId, desk_.services)))
    return;
  ShowServices(desk_.services[desk_.services.size() - 2].clientServiceId);
  FocusField(this, QStringLiteral("cmbService"));
}

void ClientServicesPage::RemoveService() {
  const qint64 key = txtClientServiceID->text().toLongLong();
  if (!desk_.accepted(
          RemoveClientService(desk_.business, desk_.client.clientId, desk_.services, key)))
    return;
  ShowServices();
}

void ClientServicesPage::ClearFields() {
  grdServices->clearSelection();
  ShowFields(ClearedServiceForm(desk_.business));
  FocusField(this, QStringLiteral("cmbService"));
}

void ClientServicesPage::Reschedule() {
  desk_.takeFields();
  std::optional<Refusal> refusal;
  {
    const BusyWhile busy(desk_.business.World().busy);
    refusal = CreateScheduleOfClient(desk_.business, desk_.client, desk_.services);
  }
  if (!desk_.accepted(refusal)) return;
  desk_.showRecord();
  desk_.loadJobs();
}

void ClientServicesPage::AddAJob() {
  desk_.takeFields();
  const MayGoOn answer =
      SaveBeforeAddingJob(desk_.business, desk_.Prompt(), desk_.client, desk_.stored);
  if (!desk_.accepted(answer.refusal) || !answer.yes) return;
  desk_.showRecord();
  desk_.tools.navigator.Open(AddJob{Id<Client>(desk_.client.clientId)});
  desk_.loadJobs();
  desk_.showBalance();
}

void ClientServicesPage::AddAVisit() {
  desk_.tools.navigator.Open(AddVisit{Id<Client>(desk_.client.clientId)});
  desk_.loadJobs();
}

}  // namespace quillary::clients
