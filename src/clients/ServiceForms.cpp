#include "clients/ServiceForms.h"

#include "clients/ClientRecord.h"
#include "lists/Choices.h"

namespace quillary::clients {
namespace {

constexpr int kLongestFrequency = 365;

/// The whole number that a text begins with: "14 days" is 14, and what begins with none is 0.
int LeadingNumber(const QString& text) {
  int number = 0;
  for (const QChar character : text.trimmed()) {
    if (character < u'0' || character > u'9' || number > 1'000'000) break;
    number = number * 10 + (character.unicode() - u'0');
  }
  return number;
}

std::optional<Refusal> RefuseDate(const char* message) {
  return Refusal{message, "nextVisit"};
}

std::optional<Refusal> CheckStartDate(Business& business, QDate date) {
  if (IsHoliday(business.holidays, date))
    return RefuseDate("This date is a holiday. No job will be scheduled on this date.");
  if (date < business.Today())
    return RefuseDate(
        "Start date should be the same or later than the date today.\n"
        "If this is a Regular job, calculate the next date by adding the frequency to the date.\n\n"
        "If this is a Casual job, just add the job under the Past jobs tab.");
  return std::nullopt;
}

enum class StartDate { Checked, AsItWas };

std::optional<Refusal> CheckFields(Business& business, const ClientServiceForm& form,
                                   StartDate startDate) {
  if (!form.serviceId) return Refusal{"Please select a service first.", "service"};
  if (!form.jobType.IsIn(JobTypeGroup::OfferedByHand))
    return Refusal{"Please select the job type.", "jobType"};
  if (!form.nextVisit || !form.nextVisit->isValid())
    return RefuseDate("Please enter a valid date.");
  if (startDate == StartDate::Checked)
    if (auto refusal = CheckStartDate(business, *form.nextVisit)) return refusal;
  if (form.jobType.Is(JobType::Regular) && LeadingNumber(form.frequency) < 1)
    return Refusal{"Please enter a valid frequency value (in no. of days).", "frequency"};
  if (!form.employeeId) return Refusal{"Please select an employee.", "employee"};
  if (!Money::Parse(form.price)) return Refusal{"Please enter a valid price.", "price"};
  return std::nullopt;
}

void FillSchedule(const ClientServiceForm& form, ClientServiceRecord& record) {
  record.status = form.jobType;
  record.frequency = form.jobType.Is(JobType::Regular) ? LeadingNumber(form.frequency) : 0;
  record.employeeId = form.employeeId;
  record.employeeName = form.employeeName;
  record.nextVisit = form.nextVisit.value_or(QDate());
}

}  // namespace

ClientServiceForm ClearedServiceForm(Business& business) {
  ClientServiceForm form;
  form.jobType = JobType::Casual;
  form.nextVisit = business.Today();
  form.frequency = QStringLiteral("0");
  form.price = Money().ToCurrencyText();
  const auto employees = lists::ListEmployeesByName(business);
  if (!employees.empty()) {
    form.employeeId = employees.front().id;
    form.employeeName = employees.front().words;
  }
  return form;
}

ClientServiceForm ServiceFormOf(const ClientServiceRecord& record) {
  return {.clientServiceId = record.clientServiceId,
          .serviceId = record.serviceId,
          .service = record.service,
          .jobType = record.status,
          .nextVisit = record.nextVisit,
          .frequency = QString::number(record.frequency),
          .employeeId = record.employeeId,
          .employeeName = record.employeeName,
          .price = record.price.ToCurrencyText(),
          .notes = record.notes,
          .sameScheduleAsMain = record.otherScheduleClientServiceId.has_value()};
}

ClientServiceForm WithScheduleOfMain(ClientServiceForm form, const ClientServiceArray& services) {
  if (services.empty() || services.front().IsEmpty()) return form;
  const ClientServiceForm main = ServiceFormOf(services.front());
  form.jobType = main.jobType;
  form.nextVisit = main.nextVisit;
  form.frequency = main.frequency;
  form.employeeId = main.employeeId;
  form.employeeName = main.employeeName;
  return form;
}

std::optional<Refusal> CheckClientService(Business& business, const ClientServiceForm& form) {
  return CheckFields(business, form, StartDate::Checked);
}

std::optional<Refusal> CheckTakenService(Business& business, const ClientServiceForm& form,
                                         const ClientServiceRecord& element) {
  // What follows shows the dates of the main service, which are checked there.
  const bool asItWas =
      !element.IsEmpty() && (form.sameScheduleAsMain || form.nextVisit == element.nextVisit);
  return CheckFields(business, form, asItWas ? StartDate::AsItWas : StartDate::Checked);
}

std::optional<Refusal> CheckServiceFrequency(const QString& typed) {
  if (typed.trimmed().isEmpty())
    return Refusal{"Please enter or select a valid frequency.", "frequency"};
  const int days = LeadingNumber(typed);
  if (days < 1 || days > kLongestFrequency)
    return Refusal{"Please enter a value between 1 - 365.", "frequency"};
  return std::nullopt;
}

void SaveClientServiceToArray(const ClientServiceForm& form, ClientServiceArray& services,
                              size_t element) {
  ClientServiceRecord& record = services.at(element);
  const bool wasEmpty = record.IsEmpty();
  const auto main = services.front().clientServiceId;
  const bool follows = form.sameScheduleAsMain && element != 0 && main;
  if (!follows || wasEmpty) FillSchedule(form, record);
  record.serviceId = form.serviceId;
  record.service = form.service;
  record.price = Money::Parse(form.price).value_or(Money()).Rounded(2);
  record.notes = form.notes;
  record.otherScheduleClientServiceId = follows ? main : std::nullopt;
  if (element + 1 == services.size() && !record.IsEmpty()) services.emplace_back();
}

std::optional<Refusal> SaveClientServiceToDB(Business& business, Id<Client> client,
                                             ClientServiceArray& services,
                                             const ClientServiceArray& loaded,
                                             const ClientServiceForm& form, size_t element) {
  if (auto refusal = CheckClientService(business, form)) return refusal;
  if (auto refusal = CheckClientIsThere(business, client)) return refusal;
  ClientServiceArray edited = services;
  SaveClientServiceToArray(form, edited, element);
  ClientServiceArray alone = {edited[element]};
  SaveClientServicesArrayToDB(business, client, alone, loaded);
  edited[element] = alone.front();
  services = std::move(edited);
  return std::nullopt;
}

}  // namespace quillary::clients
