#include "clients/ClientCommands.h"

#include "balances/ClientBalance.h"

namespace quillary::clients {
namespace {

std::optional<Refusal> SaveRecordAndServices(Business& business, ClientRecord& client,
                                             ClientServiceArray& services) {
  if (auto refusal = SaveClientDetails(business, client)) return refusal;
  SaveClientServicesArrayToDB(business, client.clientId, services);
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

std::optional<Refusal> SaveClient(Business& business, ClientRecord& client,
                                  ClientServiceArray& services) {
  ClientRecord saved = client;  // the screen gets a new key only once the row is there to stay
  ClientServiceArray savedServices = services;
  Transaction save(business);
  if (auto refusal = SaveRecordAndServices(business, saved, savedServices)) return refusal;
  LoadBillingDetails(business, saved);
  save.Commit();
  client = std::move(saved);
  services = std::move(savedServices);
  return std::nullopt;
}

std::optional<Refusal> CreateScheduleOfClient(Business& business, ClientRecord& client,
                                              ClientServiceArray& services) {
  ClientRecord saved = client;
  ClientServiceArray savedServices = services;
  Transaction save(business);
  if (auto refusal = SaveRecordAndServices(business, saved, savedServices)) return refusal;
  save.Commit();
  client = std::move(saved);
  services = std::move(savedServices);
  roll::AdvanceScheduleForClient(business, Id<Client>(client.clientId));
  return std::nullopt;
}

std::optional<Refusal> SaveServiceAndAsk(Business& business, Prompter& prompter,
                                         ClientRecord& client, ClientServiceArray& services,
                                         ClientServiceForm& form, SaveServiceAs as) {
  if (auto refusal = SaveClientServiceToDB(business, client.clientId, services, form, as)) {
    return refusal;
  }
  services = LoadClientServicesIntoArray(business, client.clientId);
  if (prompter.Ask(UpdateScheduleQuestion(as)) != Answer::Yes) return std::nullopt;
  return CreateScheduleOfClient(business, client, services);
}

MayGoOn SaveBeforeAddingJob(Business& business, Prompter& prompter, ClientRecord& client,
                            const ClientRecord& stored) {
  if (client == stored) return {true, std::nullopt};
  const Answer answer = prompter.Ask(
      QStringLiteral("Personal information has changed. The details need to be saved first. "
                     "Continue?"));
  if (answer != Answer::Yes) return {};
  auto refusal = SaveClientDetails(business, client);
  return {!refusal, refusal};
}

}  // namespace quillary::clients
