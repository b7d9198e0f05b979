#pragma once

#include "clients/ClientRecord.h"
#include "clients/ClientServices.h"
#include "clients/ServiceForms.h"
#include "roll/ScheduleEngine.h"

/// The commands of the client screen that save more than one thing or ask before they do. Each
/// stops, having written nothing, when a check refuses.
namespace quillary::clients {

/// A client while it is edited: as it was loaded, and as it stands on the screen. What differs
/// between the two is what a save writes.
struct ClientEdit {
  ClientRecord client;
  ClientRecord loaded;
  ClientServiceArray services = ClientServiceArray(1);
  ClientServiceArray loadedServices = ClientServiceArray(1);

  bool AreServicesChanged() const { return services != loadedServices; }
};
/// One that is not stored yet.
ClientEdit NewClientEdit();
/// Nothing when there is no such client.
std::optional<ClientEdit> LoadClientEdit(Business& business, Id<Client> client);

/// Saves the record and its services, recomputes the balance of the billing client and reads the
/// billing details again. One transaction.
std::optional<Refusal> SaveClient(Business& business, ClientEdit& edit);
/// Saves the record and its services for a screen that closes.
std::optional<Refusal> SaveClientAndLeave(Business& business, ClientEdit& edit);

/// Saves the record and its services and rebuilds the client's open diary from today on.
std::optional<Refusal> CreateScheduleOfClient(Business& business, ClientEdit& edit);

enum class SaveServiceAs { New, Selected };

struct ServiceSaved {
  std::optional<Id<ClientService>> service;  // nothing when it was refused
  std::optional<Refusal> refusal;  // of the service, or of the record when the diary was to follow
};
/// Stores the fields as the element they belong to or as a new service, with whatever else was
/// changed among the services, loads the array again, and asks whether to rebuild the diary now,
/// which is done on Yes.
ServiceSaved SaveServiceAndAsk(Business& business, Prompter& prompter, ClientEdit& edit,
                               const ClientServiceForm& form, SaveServiceAs as, size_t element);
/// AddEmptyClientService() and RemoveClientService() for a client that is edited.
std::optional<Refusal> AddService(Business& business, ClientEdit& edit);
std::optional<Refusal> RemoveService(Business& business, ClientEdit& edit, size_t element);

/// Whether a screen that needs the stored client may open.
struct MayGoOn {
  bool yes = false;
  std::optional<Refusal> refusal;  // why the save did not go through
};
/// Before a job is added: when the record was changed, asks to save it first and saves it on Yes.
MayGoOn SaveBeforeAddingJob(Business& business, Prompter& prompter, ClientEdit& edit);

}  // namespace quillary::clients
