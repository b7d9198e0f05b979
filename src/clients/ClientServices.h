#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"
#include "domain/JobType.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// The services that a client takes: what the roll makes the diary from. The screen edits them in
/// an array that mirrors Client_Services. The oldest is the main service; others may follow its
/// dates. What is typed in the fields for one of them is in ServiceForms.h.
namespace quillary::clients {

struct ClientServiceRecord {
  std::optional<Id<ClientService>> clientServiceId;  // nothing while it is not stored
  std::optional<Id<Service>> serviceId;
  QString service;
  Money price;  // tax included, in cents
  QString notes;
  StoredJobType status;
  int frequency = 0;  // days; 0 for none
  std::optional<Id<Employee>> employeeId;
  QString employeeName;
  std::optional<Id<ClientService>> otherScheduleClientServiceId;  // whose dates it follows
  QDate nextVisit;                                                // one without shows today

  /// Whether nothing stands in it, as in the last element of the array.
  bool IsEmpty() const { return !clientServiceId && !serviceId; }
  bool operator==(const ClientServiceRecord&) const = default;
};

/// The main service first; it always ends in one empty element.
using ClientServiceArray = std::vector<ClientServiceRecord>;

ClientServiceArray LoadClientServicesIntoArray(Business& business, Id<Client> client);

/// The element of that service; nothing when it is not among them.
std::optional<size_t> ElementOf(const ClientServiceArray& services, Id<ClientService> service);

/// Writes, in their order, the filled elements that differ from `loaded`, the array as it was read:
/// of each what was changed, so that a frequency or a date which others wrote meanwhile stays.
/// Inserts those without key and gives them theirs. One transaction; nothing is checked. Throws
/// WriteFailed when a service has gone meanwhile.
void SaveClientServicesArrayToDB(Business& business, Id<Client> client,
                                 ClientServiceArray& services, const ClientServiceArray& loaded);

/// Stores the array, inserts an empty service and loads the array again; the new service is its
/// last but one element. Refuses while there is no main service.
std::optional<Refusal> AddEmptyClientService(Business& business, Id<Client> client,
                                             ClientServiceArray& services,
                                             const ClientServiceArray& loaded);

/// Takes an element away: stores the others, deletes its row and loads the array again. Refuses
/// while others follow it.
std::optional<Refusal> RemoveClientService(Business& business, Id<Client> client,
                                           ClientServiceArray& services,
                                           const ClientServiceArray& loaded, size_t element);

}  // namespace quillary::clients
