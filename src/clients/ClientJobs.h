#pragma once

#include "clients/ClientRecord.h"
#include "diary/DiaryDay.h"

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
  QString status;
  qint64 paymentId = -1;  // -1 for none
  qint64 invoiceId = -1;  // -1 for none

  QString StatusWords() const;
  /// As the diary colours it.
  diary::DiaryRowColour Colour() const;
};

/// What is not finished and lies today or later, the next first. A job done early is past.
std::vector<ClientJob> LoadFutureJobs(Business& business, const ClientRecord& client);
/// What lies before today or is done, the newest first.
std::vector<ClientJob> LoadPastJobs(Business& business, const ClientRecord& client);

/// Asks, deletes the entry with its lines and recomputes the balance of the client who is billed.
/// Refuses when no job is selected.
std::optional<Refusal> DeleteClientJob(Business& business, Prompter& prompter,
                                       const ClientRecord& client, std::optional<qint64> diaryId);

}  // namespace quillary::clients
