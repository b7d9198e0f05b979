#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"
#include "domain/EntryStatus.h"

#include <QDate>
#include <QString>

#include <array>
#include <optional>

/// One job of the diary, edited by hand. Its service lines are in JobServices.h.
namespace quillary::diary {

/// What the job screen holds. A choice that is not made is empty.
struct Job {
  std::optional<Id<Entry>> entry;  // nothing until it is stored
  std::optional<Id<Client>> client;
  QDate date;
  std::optional<Id<Employee>> employee;
  QString description;
  QString notes;
  std::optional<EntryStatus> status;  // of kJobStatuses
  // As they stand in the file; the lines and their own rules write these.
  StoredEntryStatus storedStatus;
  Money totalPrice;  // tax included
  Money totalGST;
  std::optional<Id<Payment>> payment;  // that it has been added to
  QString invoiceNumber;  // of the invoice that bills it; empty without one; never written

  bool IsNew() const { return !entry; }
  /// "Inv No: 1004", or nothing when no invoice bills the job.
  QString InvoiceWords() const;
};

/// The states a job can be given by hand, in their order.
inline constexpr std::array kJobStatuses = {EntryStatus::JobOpen, EntryStatus::JobDone,
                                            EntryStatus::JobCancelled, EntryStatus::JobInvoiced};
/// The one of them that shows a stored status. The older forms of done show as done, and are stored
/// so by the next save; nothing for what is no job's.
std::optional<EntryStatus> JobStatusOf(const StoredEntryStatus& stored);

/// A job of the client that is not stored yet: today, not done, by the default employee.
Job NewJob(Business& business, Id<Client> client);
/// Nothing when there is no such entry.
std::optional<Job> LoadJob(Business& business, Id<Entry> entry);

/// Refuses, in this order, a job without client, employee or status, and a date that is a holiday:
/// the roll moves a visit off a holiday, but nobody places one there by hand.
std::optional<Refusal> CheckJob(Business& business, const Job& job);

/// Writes the job to Diary, inserting it first when it is new, and gives `job` its key. Its prices
/// stay as they were; a new one has none and no Sequence, so it comes first in its day. Then
/// recomputes the balance of the client, and of the client it was taken from. Writes nothing when
/// CheckJob() refuses. Throws WriteFailed, with nothing written, when the job has gone meanwhile or
/// cannot be stored as it is.
std::optional<Refusal> SaveJob(Business& business, Job& job);

}  // namespace quillary::diary
