#include "lists/Services.h"

namespace quillary::lists {
namespace {

// `noName` differs between a new service and a changed one.
std::optional<Refusal> CheckFields(const ServiceForm& form, const char* noName) {
  if (form.name.trimmed().isEmpty()) {
    return Refusal{QString(noName), QStringLiteral("name")};
  }
  if (form.serviceCode.trimmed().isEmpty()) {
    return Refusal{QStringLiteral("Please enter a service code."), QStringLiteral("serviceCode")};
  }
  if (!form.account) {
    return Refusal{QStringLiteral("Please select the default ledger account for this service."),
                   QStringLiteral("account")};
  }
  return std::nullopt;
}

}  // namespace

std::vector<ListedService> ListServices(Business& business) {
  std::vector<ListedService> services;
  for (const Record row : business.RunSQL(
           Sql("SELECT Services.Service_ID, Services.Service, Services.Service_Code, "
               "Services.Default_GL_Account_ID, General_Ledger_Accounts.GL_Account_Name, "
               "Services.Regular, Services.[Default] "
               "FROM Services LEFT JOIN General_Ledger_Accounts "
               "ON Services.Default_GL_Account_ID = General_Ledger_Accounts.GL_Account_ID "
               "ORDER BY Services.Service, Services.Service_ID;"))) {
    services.push_back(
        {Id<Service>(row[u"Service_ID"].ToLong()), row[u"Service"].ToText(),
         row[u"Service_Code"].ToText(), row[u"Default_GL_Account_ID"].ToId<Account>(),
         row[u"GL_Account_Name"].ToText(), row[u"Regular"].ToBool(), row[u"Default"].ToBool()});
  }
  return services;
}

std::optional<Refusal> InsertService(Business& business, const ServiceForm& form) {
  if (auto refusal = CheckFields(form, "Please enter a value for the service.")) return refusal;
  business.Write(
      Sql("INSERT INTO Services (Service, Service_Code, Default_GL_Account_ID, Regular, [Default]) "
          "VALUES ({}, {}, {}, {}, {})",
          form.name, form.serviceCode, form.account, form.regular, form.isDefault));
  return std::nullopt;
}

std::optional<Refusal> UpdateService(Business& business, std::optional<Id<Service>> service,
                                     const ServiceForm& form) {
  // The missing word stands on the screen as it is.
  if (auto refusal = CheckFields(form, "Please enter a value the service.")) return refusal;
  if (!service) return Refusal{QStringLiteral("Please choose a record to update."), {}};
  business.Write(
      Sql("UPDATE Services SET Service = {}, Service_Code = {}, Default_GL_Account_ID = {}, "
          "Regular = {}, [Default] = {} WHERE Service_ID = {}",
          form.name, form.serviceCode, form.account, form.regular, form.isDefault, service),
      Rows::Exactly(1));
  return std::nullopt;
}

std::optional<Refusal> DeleteService(Business& business, Prompter& prompter,
                                     std::optional<Id<Service>> service) {
  if (!service) return Refusal{QStringLiteral("Please choose a record to delete."), {}};
  const Answer answer = prompter.Ask(
      QStringLiteral("Please note that jobs with this service will be orphaned and may cause "
                     "problems.\n\nAre you sure you want to remove this service?"));
  if (answer == Answer::Yes) {
    business.Write(Sql("DELETE FROM Services WHERE Service_ID = {}", service), Rows::Exactly(1));
  }
  return std::nullopt;
}

bool MayDownloadServices(Prompter& prompter) {
  return prompter.Ask(QStringLiteral(
             "Please make sure you are connected on the internet. Continue?")) == Answer::Yes;
}

}  // namespace quillary::lists
