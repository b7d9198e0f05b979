#pragma once

#include "clients/ClientRecord.h"
#include "clients/ClientServices.h"
#include "roll/ScheduleEngine.h"

/// The commands of the client screen that save more than one thing or ask before they do. Each
/// stops, having written nothing, when a check refuses.
namespace quillary::clients {

/// Saves the record and its services, recomputes the balance of the billing client and reads the
/// billing details again. One transaction.
std::optional<Refusal> SaveClient(Business& business, ClientRecord& client,
                                  ClientServiceArray& services);

/// Saves the record and its services and rebuilds the client's open diary from today on.
std::optional<Refusal> CreateScheduleOfClient(Business& business, ClientRecord& client,
                                              ClientServiceArray& services);

/// Stores the fields as the selected service or as a new one, loads the array again, and asks
/// whether to rebuild the diary now, which is done on Yes.
std::optional<Refusal> SaveServiceAndAsk(Business& business, Prompter& prompter,
                                         ClientRecord& client, ClientServiceArray& services,
                                         ClientServiceForm& form, SaveServiceAs as);

/// Whether a screen that needs the stored client may open.
struct MayGoOn {
  bool yes = false;
  std::optional<Refusal> refusal;  // why the save did not go through
};
/// Before a job is added: when the record differs from `stored`, asks to save it first and saves it
/// on Yes.
MayGoOn SaveBeforeAddingJob(Business& business, Prompter& prompter, ClientRecord& client,
                            const ClientRecord& stored);

}  // namespace quillary::clients
