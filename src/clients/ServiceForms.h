#pragma once

#include "clients/ClientServices.h"

/// The fields from which one service of a client is stored, as they stand on the screen.
namespace quillary::clients {

struct ClientServiceForm {
  std::optional<Id<ClientService>> clientServiceId;  // nothing for a new one
  std::optional<Id<Service>> serviceId;
  QString service;  // its name, for the list
  StoredJobType jobType;
  std::optional<QDate> nextVisit;  // nothing when what was typed is no date
  QString frequency;
  std::optional<Id<Employee>> employeeId;
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
/// The same before the fields are taken in passing, without a command of their own: a date that
/// stays as `element` has it is not held against the calendar again.
std::optional<Refusal> CheckTakenService(Business& business, const ClientServiceForm& form,
                                         const ClientServiceRecord& element);
/// For the moment when the field of the frequency is left: refuses an empty text and what lies
/// outside 1 to 365 days.
std::optional<Refusal> CheckServiceFrequency(const QString& typed);

/// Copies the fields into an element; filling the last one adds a new empty element. A service that
/// follows the main one keeps the schedule it had of its own. The main service follows nobody.
void SaveClientServiceToArray(const ClientServiceForm& form, ClientServiceArray& services,
                              size_t element);

/// Copies the fields into an element, the last, empty one for a new service, and writes that
/// element alone straight to Client_Services, inserting it when it is not stored. The diary stays
/// as it is. Writes nothing when CheckClientService() or CheckClientIsThere() refuses. Throws
/// WriteFailed when the service has gone meanwhile.
std::optional<Refusal> SaveClientServiceToDB(Business& business, Id<Client> client,
                                             ClientServiceArray& services,
                                             const ClientServiceArray& loaded,
                                             const ClientServiceForm& form, size_t element);

}  // namespace quillary::clients
