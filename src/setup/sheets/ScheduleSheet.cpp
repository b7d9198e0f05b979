#include "setup/sheets/ScheduleSheet.h"

#include "clients/ServiceForms.h"
#include "domain/ClientStatus.h"
#include "domain/JobType.h"
#include "lists/Choices.h"
#include "roll/ScheduleEngine.h"

#include <set>

namespace quillary::setup {
namespace {

using clients::ClientServiceArray;
using clients::ClientServiceForm;

/// The columns of the sheet, in their order.
enum ScheduleColumn { kClient, kService, kKind, kNextVisit, kFrequency, kEmployee, kPrice, kNotes };

const char* const kTitles[] = {"Client",    "Service",  "Kind",  "Next visit",
                               "Frequency", "Employee", "Price", "Notes"};
const char* const kFields[] = {"",          "service",  "jobType", "nextVisit",
                               "frequency", "employee", "price",   "notes"};

template <NumberedRow Row>
QStringList WordsOf(const std::vector<lists::Choice<Row>>& choices) {
  QStringList words;
  for (const auto& choice : choices) words += choice.words;
  return words;
}

template <NumberedRow Row>
const lists::Choice<Row>* Called(const std::vector<lists::Choice<Row>>& choices,
                                 const QString& words) {
  for (const auto& choice : choices)
    if (choice.words.compare(words.trimmed(), Qt::CaseInsensitive) == 0) return &choice;
  return nullptr;
}

/// The service and employee of that name, and the kind, as choices of the form.
std::optional<Refusal> PutCell(Business& business, ClientServiceForm& form, int column,
                               const QString& typed) {
  switch (column) {
    case kService: {
      const auto services = lists::ListServiceChoices(business);
      const auto* service = Called(services, typed);
      if (!service)
        return Refusal{QStringLiteral("There is no service \"%1\".").arg(typed), "service"};
      form.serviceId = service->id;
      form.service = service->words;
      break;
    }
    case kKind:
      form.jobType = StoredJobType(typed.trimmed());
      break;
    case kNextVisit:
      form.nextVisit = ParseTypedDate(typed, business.Today());
      break;
    case kFrequency:
      form.frequency = typed;
      if (typed.trimmed() != u"0") {
        if (auto refusal = clients::CheckServiceFrequency(typed)) return refusal;
        form.jobType = JobType::Regular;
      }
      break;
    case kEmployee: {
      const auto employees = lists::ListEmployeesByName(business);
      const auto* employee = Called(employees, typed);
      if (!employee)
        return Refusal{QStringLiteral("There is no employee \"%1\".").arg(typed), "employee"};
      form.employeeId = employee->id;
      form.employeeName = employee->words;
      break;
    }
    case kPrice:
      form.price = typed;
      break;
    case kNotes:
      form.notes = typed;
      break;
    default:
      break;
  }
  return std::nullopt;
}

void ProposeService(Business& business, ClientServiceForm& form) {
  for (const auto& choice : lists::ListServiceChoices(business)) {
    if (choice.id != business.values.defaultService) continue;
    form.serviceId = choice.id;
    form.service = choice.words;
  }
}

/// The client that a row is about, and the element of its services.
struct RowPlace {
  Id<Client> client;
  ClientServiceArray services;
  size_t element;
};

std::optional<RowPlace> PlaceOf(Business& business, qint64 key) {
  if (key < 0) {
    const Id<Client> client(-key);
    ClientServiceArray services = clients::LoadClientServicesIntoArray(business, client);
    const size_t last = services.size() - 1;
    return RowPlace{client, std::move(services), last};
  }
  const Id<ClientService> service(key);
  const auto client = business
                          .FirstField(Sql("SELECT Client_ID FROM Client_Services WHERE "
                                          "Client_Service_ID = {}",
                                          service))
                          .ToId<Client>();
  if (!client) return std::nullopt;
  ClientServiceArray services = clients::LoadClientServicesIntoArray(business, *client);
  const auto element = clients::ElementOf(services, service);
  if (!element) return std::nullopt;
  return RowPlace{*client, std::move(services), *element};
}

std::optional<Refusal> StoreRow(Business& business, RowPlace& place, int firstColumn,
                                const QStringList& cells) {
  const ClientServiceArray loaded = place.services;
  const clients::ClientServiceRecord& before = loaded[place.element];
  ClientServiceForm form =
      before.IsEmpty() ? clients::ClearedServiceForm(business) : clients::ServiceFormOf(before);
  if (before.IsEmpty()) ProposeService(business, form);
  for (qsizetype at = 0; at < cells.size(); ++at) {
    const bool keepsDefault = before.IsEmpty() && cells[at].isEmpty();
    if (keepsDefault) continue;
    if (auto refusal = PutCell(business, form, firstColumn + static_cast<int>(at), cells[at]))
      return refusal;
  }
  if (auto refusal = clients::CheckTakenService(business, form, before)) return refusal;
  clients::SaveClientServiceToArray(form, place.services, place.element);
  clients::SaveClientServicesArrayToDB(business, place.client, place.services, loaded);
  return std::nullopt;
}

QString TitleOfField(const QString& field) {
  for (size_t at = 1; at < std::size(kFields); ++at)
    if (field == QLatin1StringView(kFields[at])) return QString::fromLatin1(kTitles[at]);
  return {};
}

QString WordsOfDate(const Value& value) {
  const auto moment = value.ToDateTime();
  return moment ? ToShortDateText(moment->date) : QString();
}

}  // namespace

std::vector<SheetColumn> ScheduleSheetColumns(Business& business) {
  return {{"Display_Name", kTitles[kClient], 190, {}},
          {"Service", kTitles[kService], 160, WordsOf(lists::ListServiceChoices(business))},
          {"Status", kTitles[kKind], 90, WordsIn<JobType>(JobTypeGroup::OfferedByHand)},
          {"Next_Visit", kTitles[kNextVisit], 110, {}},
          {"Frequency", kTitles[kFrequency], 90, {}},
          {"Employee_Name", kTitles[kEmployee], 130, WordsOf(lists::ListEmployeesByName(business))},
          {"Price", kTitles[kPrice], 90, {}},
          {"Notes", kTitles[kNotes], 200, {}}};
}

std::vector<SheetRow> LoadScheduleSheet(Business& business) {
  std::vector<SheetRow> rows;
  const Sql statement =
      Sql("SELECT Clients.Client_ID, Clients.Display_Name, Client_Services.Client_Service_ID, "
          "Services.Service, Client_Services.Status, Client_Services.Next_Visit, "
          "Client_Services.Frequency, Employees.Employee_Name, Client_Services.Price, "
          "Client_Services.Notes FROM ((Clients LEFT JOIN Client_Services ON Clients.Client_ID = "
          "Client_Services.Client_ID) LEFT JOIN Services ON Client_Services.Service_ID = "
          "Services.Service_ID) LEFT JOIN Employees ON Client_Services.Employee_ID = "
          "Employees.Employee_ID WHERE Clients.Status IN ") +
      StatusesOf(ClientGroup::Scheduled) +
      Sql(" ORDER BY Clients.Display_Name, Clients.Client_ID, Client_Services.Client_Service_ID");
  for (const Record row : business.RunSQL(statement)) {
    const Value service = row[u"Client_Service_ID"];
    SheetRow sheetRow{service.IsNull() ? -row[u"Client_ID"].ToLong() : service.ToLong(),
                      {row[u"Display_Name"].ToText()}};
    if (!service.IsNull())
      sheetRow.cells +=
          QStringList{row[u"Service"].ToText(),        row[u"Status"].ToText(),
                      WordsOfDate(row[u"Next_Visit"]), row[u"Frequency"].ToText(),
                      row[u"Employee_Name"].ToText(),  row[u"Price"].ToMoney().ToCurrencyText(),
                      row[u"Notes"].ToText()};
    while (sheetRow.cells.size() < static_cast<qsizetype>(std::size(kTitles)))
      sheetRow.cells += QString();
    rows.push_back(std::move(sheetRow));
  }
  return rows;
}

SheetOutcome WriteSchedules(Business& business, const SheetBlock& block) {
  SheetOutcome outcome;
  std::set<qint64> touched;
  Transaction all(business);
  for (size_t at = 0; at < block.rows.size(); ++at) {
    const auto tell = [&](const QString& column, const QString& message) {
      outcome.troubles.push_back({static_cast<int>(at), column, message});
    };
    const auto key = block.KeyOf(at);
    auto place = key ? PlaceOf(business, *key) : std::nullopt;
    if (!place) {
      tell({}, QStringLiteral("There is no client in this row."));
      continue;
    }
    if (const auto refusal = StoreRow(business, *place, block.firstColumn, block.rows[at])) {
      tell(TitleOfField(refusal->field), refusal->message);
      continue;
    }
    ++(*key < 0 ? outcome.added : outcome.changed);
    touched.insert(place->client.Number());
    outcome.lastKey = place->services[place->element].clientServiceId->Number();
  }
  for (const qint64 client : touched) roll::AdvanceScheduleForClient(business, Id<Client>(client));
  all.Commit();
  return outcome;
}

}  // namespace quillary::setup
