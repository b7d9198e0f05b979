#include "clients/ClientServices.h"
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

std::optional<Refusal> CheckStartDate(Business& business, const std::optional<QDate>& date) {
  const auto refuse = [](const char* message) {
    return Refusal{message, QStringLiteral("dtpServiceNextVisit")};
  };
  if (!date || !date->isValid()) return refuse("Please enter a valid date.");
  if (IsHoliday(business.holidays, *date)) {
    return refuse("This date is a holiday. No job will be scheduled on this date.");
  }
  if (*date < business.Today()) {
    return refuse(
        "Start date should be the same or later than the date today.\n"
        "If this is a Regular job, calculate the next date by adding the frequency to the date.\n\n"
        "If this is a Casual job, just add the job under the Past jobs tab.");
  }
  return std::nullopt;
}

void FillSchedule(const ClientServiceForm& form, ClientServiceRecord& record) {
  record.status = form.jobType;
  record.frequency = HasFrequency(form.jobType) ? LeadingNumber(form.frequency) : 0;
  record.employeeId = form.employeeId.value_or(0);
  record.employeeName = form.employeeName;
  record.nextVisit = form.nextVisit.value_or(QDate());
}

}  // namespace

QStringList JobTypes() {
  return {QStringLiteral("Casual"), QStringLiteral("Regular"), QStringLiteral("Quote only")};
}

bool HasFrequency(const QString& jobType) {
  return jobType.compare(u"Regular", Qt::CaseInsensitive) == 0;
}

ClientServiceForm ClearedServiceForm(Business& business) {
  ClientServiceForm form;
  form.jobType = JobTypes().first();
  form.nextVisit = business.Today();
  form.frequency = QStringLiteral("0");
  form.price = Money().ToCurrencyText();
  const auto employees = lists::ListEmployeesByName(business);
  if (!employees.empty()) {
    form.employeeId = employees.front().id.Number();
    form.employeeName = employees.front().words;
  }
  return form;
}

ClientServiceForm ServiceFormOf(const ClientServiceRecord& record) {
  ClientServiceForm form;
  form.clientServiceId = record.clientServiceId;
  if (record.serviceId != 0) form.serviceId = record.serviceId;
  form.service = record.service;
  form.jobType = record.status;
  form.nextVisit = record.nextVisit;
  form.frequency = QString::number(record.frequency);
  if (record.employeeId != 0) form.employeeId = record.employeeId;
  form.employeeName = record.employeeName;
  form.price = record.price.ToCurrencyText();
  form.notes = record.notes;
  form.sameScheduleAsMain = record.otherScheduleClientServiceId != 0;
  return form;
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
  if (!form.serviceId) return Refusal{"Please select a service first.", "cmbService"};
  if (!JobTypes().contains(form.jobType, Qt::CaseInsensitive)) {
    return Refusal{"Please select the job type.", "cmbJobType"};
  }
  if (auto refusal = CheckStartDate(business, form.nextVisit)) return refusal;
  if (HasFrequency(form.jobType) && LeadingNumber(form.frequency) < 1) {
    return Refusal{"Please enter a valid frequency value (in no. of days).", "cmbFrequency"};
  }
  if (!form.employeeId) return Refusal{"Please select an employee.", "cmbEmployee"};
  if (!Money::Parse(form.price)) return Refusal{"Please enter a valid price.", "txtPrice"};
  return std::nullopt;
}

std::optional<Refusal> CheckServiceFrequency(const QString& typed) {
  if (typed.trimmed().isEmpty()) {
    return Refusal{"Please enter or select a valid frequency.", "cmbFrequency"};
  }
  const int days = LeadingNumber(typed);
  if (days < 1 || days > kLongestFrequency) {
    return Refusal{"Please enter a value between 1 - 365.", "cmbFrequency"};
  }
  return std::nullopt;
}

void SaveClientServiceToArray(const ClientServiceForm& form, ClientServiceArray& services,
                              size_t element) {
  ClientServiceRecord& record = services.at(element);
  const bool wasEmpty = record.IsEmpty();
  const qint64 main = services.front().clientServiceId;
  const bool follows = form.sameScheduleAsMain && element != 0 && main != 0;
  if (!follows || wasEmpty) FillSchedule(form, record);
  record.serviceId = form.serviceId.value_or(0);
  record.service = form.service;
  record.price = Money::Parse(form.price).value_or(Money()).Rounded(2);
  record.notes = form.notes;
  record.otherScheduleClientServiceId = follows ? main : 0;
  if (element + 1 == services.size() && !record.IsEmpty()) services.emplace_back();
}

}  // namespace quillary::clients
