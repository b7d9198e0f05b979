#include "clients/ClientServices.h"

#include "clients/ClientRecord.h"

#include <algorithm>

namespace quillary::clients {
namespace {

Sql ServicesWhere(const Sql& which) {
  return Sql("SELECT cs.*, s.Service, e.Employee_Name FROM ((Client_Services cs "
             "LEFT JOIN Services s ON cs.Service_ID = s.Service_ID) "
             "LEFT JOIN Employees e ON cs.Employee_ID = e.Employee_ID) WHERE ") +
         which + Sql(" ORDER BY cs.Client_Service_ID ASC;");
}

ClientServiceRecord RecordOf(const Record& row, QDate today) {
  return {.clientServiceId = row[u"Client_Service_ID"].ToId<ClientService>(),
          .serviceId = row[u"Service_ID"].ToId<Service>(),
          .service = row[u"Service"].ToText(),
          .price = row[u"Price"].ToMoney().Rounded(2),
          .notes = row[u"Notes"].ToText(),
          .status = StoredJobType(row[u"Status"].ToText()),
          .frequency = static_cast<int>(row[u"Frequency"].ToLong()),
          .employeeId = row[u"Employee_ID"].ToId<Employee>(),
          .employeeName = row[u"Employee_Name"].ToText(),
          .otherScheduleClientServiceId =
              row[u"Other_Schedule_Client_Service_ID"].ToId<ClientService>(),
          .nextVisit = row[u"Next_Visit"].ToDate(today)};
}

Id<ClientService> InsertService(Business& business, Id<Client> client) {
  return business.InsertReturningKey<ClientService>(
      Sql("INSERT INTO Client_Services(Client_ID) VALUES ({});", client));
}

/// Whom a service has none of is written as 0.
void UpdateService(Business& business, const ClientServiceRecord& record) {
  const Value nextVisit = record.nextVisit.isValid() ? Value(record.nextVisit) : Value();
  business.Write(
      Sql("UPDATE Client_Services SET Service_ID = {}, Price = {}, Notes = {}, "
          "Other_Schedule_Client_Service_ID = {}, Employee_ID = {}, Status = {}, "
          "Next_Visit = {}, Frequency = {} WHERE Client_Service_ID = {};",
          NumberOrZero(record.serviceId), record.price, record.notes,
          NumberOrZero(record.otherScheduleClientServiceId), NumberOrZero(record.employeeId),
          record.status, nextVisit, record.frequency, record.clientServiceId),
      Rows::Exactly(1));
}

/// What the user changed of a service, on top of what stands in the file now. A service that is not
/// there any more stays as it is on the screen, and its update fails.
ClientServiceRecord WithChanges(Business& business, const ClientServiceRecord& edited,
                                const ClientServiceRecord& loaded) {
  const Recordset row =
      business.RunSQL(ServicesWhere(Sql("cs.Client_Service_ID = {}", edited.clientServiceId)));
  if (row.EndOfFile()) return edited;
  ClientServiceRecord merged = RecordOf(row.Row(0), business.Today());
  const auto take = [&](auto member) {
    if (edited.*member != loaded.*member) merged.*member = edited.*member;
  };
  using Record = ClientServiceRecord;
  take(&Record::serviceId);
  take(&Record::service);
  take(&Record::price);
  take(&Record::notes);
  take(&Record::status);
  take(&Record::frequency);
  take(&Record::employeeId);
  take(&Record::employeeName);
  take(&Record::otherScheduleClientServiceId);
  take(&Record::nextVisit);
  return merged;
}

void StoreElement(Business& business, Id<Client> client, ClientServiceRecord& record,
                  const ClientServiceArray& loaded) {
  if (!record.clientServiceId) {
    record.clientServiceId = InsertService(business, client);
    UpdateService(business, record);
    return;
  }
  const auto before = ElementOf(loaded, *record.clientServiceId);
  if (before && loaded[*before] == record) return;
  if (before) record = WithChanges(business, record, loaded[*before]);
  UpdateService(business, record);
}

}  // namespace

ClientServiceArray LoadClientServicesIntoArray(Business& business, Id<Client> client) {
  ClientServiceArray services(1);
  for (const Record row : business.RunSQL(ServicesWhere(Sql("Client_ID = {}", client)))) {
    services.back() = RecordOf(row, business.Today());
    services.emplace_back();
  }
  return services;
}

std::optional<size_t> ElementOf(const ClientServiceArray& services, Id<ClientService> service) {
  const auto at = std::ranges::find(services, service, &ClientServiceRecord::clientServiceId);
  if (at == services.end()) return std::nullopt;
  return static_cast<size_t>(at - services.begin());
}

void SaveClientServicesArrayToDB(Business& business, Id<Client> client,
                                 ClientServiceArray& services, const ClientServiceArray& loaded) {
  Transaction save(business);
  ClientServiceArray saved = services;
  for (ClientServiceRecord& record : saved)
    if (!record.IsEmpty()) StoreElement(business, client, record, loaded);
  save.Commit();
  services = std::move(saved);
}

std::optional<Refusal> AddEmptyClientService(Business& business, Id<Client> client,
                                             ClientServiceArray& services,
                                             const ClientServiceArray& loaded) {
  if (services.empty() || services.front().IsEmpty())
    return Refusal{"Please enter the main service first before adding a new one.", "service"};
  if (auto refusal = CheckClientIsThere(business, client)) return refusal;
  Transaction addition(business);
  SaveClientServicesArrayToDB(business, client, services, loaded);
  InsertService(business, client);
  addition.Commit();
  services = LoadClientServicesIntoArray(business, client);
  return std::nullopt;
}

std::optional<Refusal> RemoveClientService(Business& business, Id<Client> client,
                                           ClientServiceArray& services,
                                           const ClientServiceArray& loaded, size_t element) {
  ClientServiceArray others = services;
  const auto removed = others.at(element).clientServiceId;
  others.erase(others.begin() + static_cast<std::ptrdiff_t>(element));
  const bool isFollowed =
      removed && std::ranges::any_of(others, [&](const ClientServiceRecord& other) {
        return other.otherScheduleClientServiceId == removed;
      });
  const Value followers = business.FirstField(
      Sql("SELECT Count(*) FROM Client_Services WHERE Other_Schedule_Client_Service_ID = {};",
          removed));
  if (isFollowed || followers.ToLong() > 0)
    return Refusal{
        "You cannot delete this service as other services are dependent on this. "
        "Please remove the dependents first before removing this service.",
        "services"};
  Transaction removal(business);
  SaveClientServicesArrayToDB(business, client, others, loaded);
  // Gone already is as good as removed now.
  if (removed)
    business.Write(Sql("DELETE FROM Client_Services WHERE Client_Service_ID = {}; ", removed));
  removal.Commit();
  services = LoadClientServicesIntoArray(business, client);
  return std::nullopt;
}

}  // namespace quillary::clients
