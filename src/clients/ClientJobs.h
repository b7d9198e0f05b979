#pragma once

#include "clients/ClientRecord.h"
#include "domain/EntryStatus.h"

#include <vector>

/// The jobs on the tabs of a client. One who pays for itself shows those of all who are billed to
/// it; one who is billed elsewhere shows its own alone, named "Name".
namespace quillary::clients {

struct ClientJob {
  Id<Entry> entry;
  QString displayName;
  QDate scheduleDate;
  QString description;
  Money totalPrice;  // tax included
  StoredEntryStatus status;
  bool isPaid = false;  // on a payment
};

/// What is not finished and lies today or later, the next first. A job done early is past.
std::vector<ClientJob> LoadFutureJobs(Business& business, const ClientRecord& client);
/// What lies before today or is done, the newest first.
std::vector<ClientJob> LoadPastJobs(Business& business, const ClientRecord& client);

/// Asks, then deletes the entry as diary::DeleteEntry() does. Refuses when no job is selected.
std::optional<Refusal> DeleteClientJob(Business& business, Prompter& prompter,
                                       std::optional<Id<Entry>> job);

}  // namespace quillary::clients
