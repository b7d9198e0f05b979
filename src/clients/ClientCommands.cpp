#include "clients/ClientCommands.h"

namespace quillary::clients {
namespace {

std::optional<Refusal> SaveRecord(Business& business, ClientEdit& edit) {
  if (auto refusal = SaveClientDetails(business, edit.client, edit.loaded)) return refusal;
  edit.loaded = edit.client;
  return std::nullopt;
}

void SaveServices(Business& business, ClientEdit& edit) {
  SaveClientServicesArrayToDB(business, *edit.client.clientId, edit.services, edit.loadedServices);
  edit.services = LoadClientServicesIntoArray(business, *edit.client.clientId);
  edit.loadedServices = edit.services;
}

enum class AfterSaving { ShowBalance, Leave };

std::optional<Refusal> Save(Business& business, ClientEdit& edit, AfterSaving after) {
  ClientEdit saved = edit;  // the screen gets a new key only once the row is there to stay
  Transaction save(business);
  if (auto refusal = SaveRecord(business, saved)) return refusal;
  SaveServices(business, saved);
  if (after == AfterSaving::ShowBalance) RefreshBillingDetails(business, saved.client);
  saved.loaded = saved.client;
  save.Commit();
  business.PastCommands().Describe(QStringLiteral("Saved: ") + saved.client.displayName);
  edit = std::move(saved);
  return std::nullopt;
}

QString UpdateScheduleQuestion(SaveServiceAs as) {
  return QStringLiteral("Do you want to update the future schedule now?\n\n") +
         (as == SaveServiceAs::New
              ? QStringLiteral(
                    "You can do it later by clicking on the \"Re-create schedule of this "
                    "client...\" button.")
              : QStringLiteral("You can do it later by clicking on the 'Re-create schedule of this "
                               "client' button."));
}

}  // namespace

ClientEdit NewClientEdit() {
  return {.client = NewClientRecord(), .loaded = NewClientRecord()};
}

std::optional<ClientEdit> LoadClientEdit(Business& business, Id<Client> client) {
  const auto record = LoadClientDetails(business, client);
  if (!record) return std::nullopt;
  const ClientServiceArray services = LoadClientServicesIntoArray(business, client);
  return ClientEdit{*record, *record, services, services};
}

std::optional<Refusal> SaveClient(Business& business, ClientEdit& edit) {
  return Save(business, edit, AfterSaving::ShowBalance);
}

std::optional<Refusal> SaveClientAndLeave(Business& business, ClientEdit& edit) {
  return Save(business, edit, AfterSaving::Leave);
}

std::optional<Refusal> CreateScheduleOfClient(Business& business, ClientEdit& edit) {
  if (auto refusal = Save(business, edit, AfterSaving::Leave)) return refusal;
  roll::AdvanceScheduleForClient(business, *edit.client.clientId);
  // The roll moves the next visits on.
  edit.services = LoadClientServicesIntoArray(business, *edit.client.clientId);
  edit.loadedServices = edit.services;
  return std::nullopt;
}

ServiceSaved SaveServiceAndAsk(Business& business, Prompter& prompter, ClientEdit& edit,
                               const ClientServiceForm& form, SaveServiceAs as, size_t element) {
  const Id<Client> client = *edit.client.clientId;
  ClientServiceArray services = edit.services;
  if (as == SaveServiceAs::New) element = services.size() - 1;
  Transaction save(business);
  if (auto refusal =
          SaveClientServiceToDB(business, client, services, edit.loadedServices, form, element))
    return {.service = std::nullopt, .refusal = refusal};
  SaveClientServicesArrayToDB(business, client, services, edit.loadedServices);
  save.Commit();
  const auto stored = services[element].clientServiceId;
  edit.services = LoadClientServicesIntoArray(business, client);
  edit.loadedServices = edit.services;
  if (prompter.Ask(UpdateScheduleQuestion(as)) != Answer::Yes)
    return {.service = stored, .refusal = std::nullopt};
  return {.service = stored, .refusal = CreateScheduleOfClient(business, edit)};
}

std::optional<Refusal> AddService(Business& business, ClientEdit& edit) {
  if (auto refusal = AddEmptyClientService(business, *edit.client.clientId, edit.services,
                                           edit.loadedServices))
    return refusal;
  edit.loadedServices = edit.services;
  return std::nullopt;
}

std::optional<Refusal> RemoveService(Business& business, ClientEdit& edit, size_t element) {
  if (auto refusal = RemoveClientService(business, *edit.client.clientId, edit.services,
                                         edit.loadedServices, element))
    return refusal;
  edit.loadedServices = edit.services;
  return std::nullopt;
}

MayGoOn SaveBeforeAddingJob(Business& business, Prompter& prompter, ClientEdit& edit) {
  if (edit.client == edit.loaded) return {true, std::nullopt};
  const Answer answer = prompter.Ask(
      QStringLiteral("Personal information has changed. The details need to be saved first. "
                     "Continue?"));
  if (answer != Answer::Yes) return {};
  auto refusal = SaveRecord(business, edit);
  return {!refusal, refusal};
}

}  // namespace quillary::clients
