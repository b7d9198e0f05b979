#pragma once

#include "data/Business.h"
#include "domain/EntryStatus.h"

#include <vector>

/// What the diary and the list of jobs do to one entry. Where money may follow, the balance of the
/// client who pays is recomputed in the same transaction. All of these throw WriteFailed, with
/// nothing changed, when the entry has gone meanwhile.
namespace quillary::diary {

/// Gives the entry a new status, by command or in its cell.
void ChangeJobStatus(Business& business, Id<Entry> entry, EntryStatus status);
/// Cancels the job. It stays on its day, which keeps the roll from making it again.
void CancelJob(Business& business, Id<Entry> entry);
/// Marks the job done. When it had been added to a payment, asks whether to take it off that
/// payment; the payment itself stays.
void MarkDoneUnpaid(Business& business, Prompter& prompter, Id<Entry> entry);
/// Asks, before the jobs of a client are rescheduled, whether this one is to be cancelled, and
/// cancels it on Yes.
void OfferToCancelJob(Business& business, Prompter& prompter, Id<Entry> entry);
/// The only way in which a user's command takes an entry out of the diary, with its lines.
void DeleteEntry(Business& business, Id<Entry> entry);

/// Writes the place of an entry within its day.
void ChangeSequence(Business& business, Id<Entry> entry, int sequence);
/// Numbers the entries from 1 in the order given.
void StoreSequence(Business& business, const std::vector<Id<Entry>>& entries);
void ChangeEmployee(Business& business, Id<Entry> entry, std::optional<Id<Employee>> employee);

}  // namespace quillary::diary
