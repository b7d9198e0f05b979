#pragma once

#include "clients/ClientRecord.h"
#include "domain/EntryStatus.h"

#include <vector>

/// The jobs on the tabs of a client. One who pays for itself shows those of all who are billed to
/// it; one who is billed elsewhere shows its own alone, named "Name".
namespace quillary::clients {

struct ClientJob {
  qint64 diaryId = 0;
  QString displayName;
  QDate scheduleDate;
  QString description;
  Money totalPrice;  // tax included
  StoredEntryStatus status;
  qint64 paymentId = -1;  // -1 for none
  qint64 invoiceId = -1;  // -1 for none

  bool IsPaid() const { return paymentId != -1; }
};

/// What is not finished and lies today or later, the next first. A job done early is past.
std::vector<ClientJob> LoadFutureJobs(Business& business, const ClientRecord& client);
/// What lies before today or is done, the newest first.
std::vector<ClientJob> LoadPastJobs(Business& business, const ClientRecord& client);

/// Asks, then deletes the entry as diary::DeleteEntry() does.
/// Refuses when no job is selected.
std::optional<Refusal> DeleteClientJob(Business& business, Prompter& prompter,
                                       std::optional<Id<Entry>> job);

}  // namespace quillary::clients
