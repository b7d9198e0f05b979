#pragma once

#include "base/ports/SettingsStore.h"
#include "data/Business.h"
#include "domain/ClientStatus.h"

#include <QDate>
#include <QString>

#include <vector>

/// Finds the clients whose regular visits are missing from the diary.
namespace quillary::roll {

struct ScheduleProblem {
  Id<Client> client;
  StoredClientStatus status;
  QString displayName;
  QString address;  // suburb, post code, street, number
  Id<ClientService> clientService;
  std::optional<Id<Service>> service;
  int frequency = 0;
  QDate nextVisit;
  QDate missingOn;  // where the diary should have an entry; invalid when the service has no rhythm
};

/// Follows the rhythm of each regular service of an active client from its next visit to the
/// horizon, moved off holidays as the roll moves it, and lists the services with a visit for which
/// the client has no entry of any kind on that day, by name of the client. A service without date,
/// or due and without frequency, is listed too. It means "might": a service that was given new
/// dates, or a job moved by hand, shows as well. Writes nothing.
std::vector<ScheduleProblem> CheckClientSchedules(Business& business);

/// Whether the user wants the list at start-up, which is so until it is switched off.
bool ShowsScheduleProblemsAtStartUp(const SettingsStore& settings);
void ShowScheduleProblemsAtStartUp(SettingsStore& settings, bool show);

}  // namespace quillary::roll
