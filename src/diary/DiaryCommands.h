#pragma once

#include "data/Business.h"

#include <QString>

/// What the diary and the list of jobs do to one entry where money may follow. Who owes what is
/// recomputed after each change of a status, whatever the way it was changed.
namespace quillary::diary {

/// The client who is billed for an entry; 0 when there is no such entry or client.
qint64 BilledClientOf(Business& business, qint64 diaryId);

/// Gives the entry a new status, by command or in its cell, and recomputes the balance of the
/// client who is billed.
void ChangeJobStatusAndBalance(Business& business, qint64 diaryId, const QString& status);
/// Cancels the job: 'JC'. It stays on its day, which keeps the roll from making it again.
void CancelJob(Business& business, qint64 diaryId);
/// Marks the job done and unpaid, asking whether to take it off the payment it had been added to;
/// the balance follows.
void MarkDoneUnpaidAndBalance(Business& business, Prompter& prompter, qint64 diaryId);

/// Asks, before the jobs of a client are rescheduled, whether this one is to be cancelled, and
/// cancels it on Yes.
void OfferToCancelJob(Business& business, Prompter& prompter, qint64 diaryId);

}  // namespace quillary::diary
