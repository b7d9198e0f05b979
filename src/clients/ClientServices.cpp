#include "clients/ClientServices.h"

#include "clients/ClientRecord.h"

#include <algorithm>

namespace quillary::clients {
namespace {

ClientServiceRecord RecordOf(const Record& row, QDate today) {
  ClientServiceRecord record;
  record.clientServiceId = row[u"Client_Service_ID"].ToLong();
  record.serviceId = row[u"Service_ID"].ToLong();
  record.service = row[u"Service"].ToText();
  record.price = row[u"Price"].ToMoney().Rounded(2);
  record.notes = row[u"Notes"].ToText();
  record.status = row[u"Status"].ToText();
  record.frequency = static_cast<int>(row[u"Frequency"].ToLong());
  record.employeeId = row[u"Employee_ID"].ToLong();
  record.employeeName = row[u"Employee_Name"].ToText();
  record.otherScheduleClientServiceId = row[u"Other_Schedule_Client_Service_ID"].ToLong();
  record.nextVisit = row[u"Next_Visit"].ToDate(today);
  return record;
}

qint64 InsertService(Business& business, qint64 clientId) {
  return business
      .InsertReturningKey<ClientService>(
          Sql("INSERT INTO Client_Services(Client_ID) VALUES ({});", clientId))
      .Number();
}

void UpdateService(Business& business, const ClientServiceRecord& record) {
  const Value nextVisit = record.nextVisit.isValid() ? Value(record.nextVisit) : Value();
  business.Write(
      Sql("UPDATE Client_Services SET Service_ID = {}, Price = {}, Notes = {}, "
          "Other_Schedule_Client_Service_ID = {}, Employee_ID = {}, Status = {}, "
          "Next_Visit = {}, Frequency = {} WHERE Client_Service_ID = {};",
          record.serviceId, record.price, record.notes, record.otherScheduleClientServiceId,
          record.employeeId, record.status, nextVisit, record.frequency, record.clientServiceId),
      Rows::Exactly(1));
}

/// The place of the service that the fields were filled from; that of the empty last element for
/// one that is to be new.
size_t PlaceOf(const ClientServiceArray& services, qint64 clientServiceId) {
  const auto at = std::find_if(services.begin(), services.end(), [&](const auto& record) {
    return record.clientServiceId == clientServiceId;
  });
  return static_cast<size_t>(at - services.begin());
}

}  // namespace

ClientServiceArray LoadClientServicesIntoArray(Business& business, qint64 clientId) {
  ClientServiceArray services(1);
  const Recordset rows =
      business.RunSQL(Sql("SELECT cs.*, s.Service, e.Employee_Name FROM ((Client_Services cs "
                          "LEFT JOIN Services s ON cs.Service_ID = s.Service_ID) "
                          "LEFT JOIN Employees e ON cs.Employee_ID = e.Employee_ID) "
                          "WHERE Client_ID = {} ORDER BY cs.Client_Service_ID ASC;",
                          clientId));
  for (const Record row : rows) {
    services.back() = RecordOf(row, business.Today());
    services.emplace_back();
  }
  return services;
}

std::optional<Refusal> SaveClientServiceToDB(Business& business, qint64 clientId,
                                             const ClientServiceArray& services,
                                             ClientServiceForm& form, SaveServiceAs as) {
  if (auto refusal = CheckClientService(business, form)) return refusal;
  if (auto refusal = CheckClientIsThere(business, clientId)) return refusal;
  const bool isNew = as == SaveServiceAs::New || form.clientServiceId == 0;
  ClientServiceArray edited = services;
  if (edited.empty()) edited.emplace_back();
  size_t place = isNew ? edited.size() - 1 : PlaceOf(edited, form.clientServiceId);
  if (place == edited.size()) edited.emplace_back();  // stored since the array was loaded
  SaveClientServiceToArray(form, edited, place);

  Transaction save(business);
  ClientServiceRecord& record = edited[place];
  record.clientServiceId = isNew ? InsertService(business, clientId) : form.clientServiceId;
  UpdateService(business, record);
  save.Commit();
  form.clientServiceId = record.clientServiceId;
  return std::nullopt;
}

void SaveClientServicesArrayToDB(Business& business, qint64 clientId,
                                 ClientServiceArray& services) {
  Transaction save(business);
  ClientServiceArray saved = services;
  for (ClientServiceRecord& record : saved) {
    if (record.IsEmpty()) continue;
    if (record.clientServiceId == 0) record.clientServiceId = InsertService(business, clientId);
    UpdateService(business, record);
  }
  save.Commit();
  services = std::move(saved);
}

std::optional<Refusal> AddEmptyClientService(Business& business, qint64 clientId,
                                             ClientServiceArray& services) {
  if (services.empty() || services.front().IsEmpty()) {
    return Refusal{QStringLiteral("Please enter the main service first before adding a new one."),
                   QStringLiteral("cmbService")};
  }
  if (auto refusal = CheckClientIsThere(business, clientId)) return refusal;
  Transaction addition(business);
  SaveClientServicesArrayToDB(business, clientId, services);
  InsertService(business, clientId);
  addition.Commit();
  services = LoadClientServicesIntoArray(business, clientId);
  return std::nullopt;
}

std::optional<Refusal> RemoveClientService(Business& business, qint64 clientId,
                                           ClientServiceArray& services, qint64 clientServiceId) {
  if (clientServiceId != 0) {  // 0 is what all services with dates of their own follow
    const qint64 dependants = business
                                  .FirstField(Sql("SELECT Count(*) FROM Client_Services "
                                                  "WHERE Other_Schedule_Client_Service_ID = {};",
                                                  clientServiceId))
                                  .ToLong();
    if (dependants > 0) {
      return Refusal{
          QStringLiteral("You cannot delete this service as other services are dependent on this. "
                         "Please remove the dependents first before removing this service."),
          QStringLiteral("grdServices")};
    }
    business.Write(
        Sql("DELETE FROM Client_Services WHERE Client_Service_ID = {}; ", clientServiceId),
        Rows::Exactly(1));
  }
  services = LoadClientServicesIntoArray(business, clientId);
  return std::nullopt;
}

}  // namespace quillary::clients
