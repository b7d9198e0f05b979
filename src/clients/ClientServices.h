#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// The services that a client takes: what the roll makes the diary from. The screen edits them in
/// an array that mirrors Client_Services. The oldest is the main service; others may follow its
/// dates.
namespace quillary::clients {

struct ClientServiceRecord {
  qint64 clientServiceId = 0;  // 0 while it is not stored
  qint64 serviceId = 0;        // 0 for none
  QString service;
  Money price;  // tax included, in cents
  QString notes;
  QString status;     // "Casual", "Regular" or "Quote only"
  int frequency = 0;  // days; 0 for none
  qint64 employeeId = 0;
  QString employeeName;
  qint64 otherScheduleClientServiceId = 0;  // the service whose dates it follows; 0 for its own
  QDate nextVisit;                          // one without shows today

  /// Whether nothing stands in it, as in the last element of the array.
  bool IsEmpty() const { return clientServiceId == 0 && serviceId == 0; }
};

/// The main service first; it always ends in one empty element.
using ClientServiceArray = std::vector<ClientServiceRecord>;

/// "Casual", "Regular", "Quote only".
QStringList JobTypes();
/// Whether services of the job type have a frequency; that of the others is 0.
bool HasFrequency(const QString& jobType);

ClientServiceArray LoadClientServicesIntoArray(Business& business, qint64 clientId);

/// The fields from which a service is stored, as they stand on the screen.
struct ClientServiceForm {
  qint64 clientServiceId = 0;  // 0 for a new one
  std::optional<qint64> serviceId;
  QString service;  // its name, for the list
  QString jobType;
  std::optional<QDate> nextVisit;  // nothing when what was typed is no date
  QString frequency;
  std::optional<qint64> employeeId;
  QString employeeName;
  QString price;
  QString notes;
  bool sameScheduleAsMain = false;
};

/// The fields cleared: today, the first job type, the first employee, a price of 0.
ClientServiceForm ClearedServiceForm(Business& business);
/// The fields as a row of the list fills them.
ClientServiceForm ServiceFormOf(const ClientServiceRecord& record);
/// The fields with the schedule of the main service in place of their own, as they show while the
/// service follows it.
ClientServiceForm WithScheduleOfMain(ClientServiceForm form, const ClientServiceArray& services);

/// Refuses, in this order, a form without service, without job type or valid date, a date that is a
/// holiday or past, a regular service with a frequency below 1, a missing employee and a price that
/// is no number.
std::optional<Refusal> CheckClientService(Business& business, const ClientServiceForm& form);
/// For the moment when the field of the frequency is left: refuses an empty text and what lies
/// outside 1 to 365 days.
std::optional<Refusal> CheckServiceFrequency(const QString& typed);

/// Copies the fields into an element; filling the last one adds a new empty element. A service that
/// follows the main one keeps the schedule it had of its own. The main service follows nobody.
void SaveClientServiceToArray(const ClientServiceForm& form, ClientServiceArray& services,
                              size_t element);

enum class SaveServiceAs { New, Selected };

/// Writes the fields straight to Client_Services and gives `form` its key; a form without key is
/// always new. The diary stays as it is. Writes nothing when CheckClientService() refuses.
std::optional<Refusal> SaveClientServiceToDB(Business& business, qint64 clientId,
                                             const ClientServiceArray& services,
                                             ClientServiceForm& form, SaveServiceAs as);

/// Writes the filled elements in their order, inserting those without key, and gives them their
/// keys. One transaction; nothing is checked.
void SaveClientServicesArrayToDB(Business& business, qint64 clientId, ClientServiceArray& services);

/// Stores the array, inserts an empty service and loads the array again; the new service is its
/// last but one element. Refuses while there is no main service.
std::optional<Refusal> AddEmptyClientService(Business& business, qint64 clientId,
                                             ClientServiceArray& services);

/// Deletes a service and loads the array again. Refuses while others follow it.
std::optional<Refusal> RemoveClientService(Business& business, qint64 clientId,
                                           ClientServiceArray& services, qint64 clientServiceId);

}  // namespace quillary::clients
