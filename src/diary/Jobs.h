#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

/// One job of the diary, edited by hand. Its service lines are in JobServices.h.
namespace quillary::diary {

/// The key of an entry that is not stored yet, and of a payment that does not exist.
inline constexpr qint64 kNoRecord = -1;

/// What the job screen holds. A choice that is not made is empty.
struct Job {
  qint64 diaryId = kNoRecord;
  std::optional<qint64> clientId;
  QDate date;
  std::optional<qint64> employeeId;
  QString description;
  QString notes;
  std::optional<int> statusPosition;  // in JobStatusWords()
  // As they stand in the file; the lines and their own rules write these.
  QString storedStatus;
  Money totalPrice;  // tax included
  Money totalGST;
  qint64 paymentId = kNoRecord;
  QString invoiceNumber;  // of the invoice that bills it; empty without one; never written

  bool IsNew() const { return diaryId == kNoRecord; }
  /// Whether it has been added to a payment record.
  bool HasBeenPaid() const { return paymentId != kNoRecord; }
  /// "Inv No: 1004", or nothing when no invoice bills the job.
  QString InvoiceWords() const;
};

/// The four states a job can be given by hand: not done, done, cancelled, invoiced.
QStringList JobStatusWords();
/// The code of a position in JobStatusWords().
QString JobStatusAt(int position);
/// The position that shows a code. The older forms of done show as done, and are stored as 'JD' by
/// the next save; nothing for a code that is no job's.
std::optional<int> JobStatusPosition(const QString& status);

/// A job of the client that is not stored yet: today, not done, by the default employee.
Job NewJob(Business& business, qint64 clientId);
/// Nothing when there is no such entry.
std::optional<Job> LoadJob(Business& business, qint64 diaryId);

/// Refuses, in this order, a job without client, employee or status, and a date that is a holiday:
/// the roll moves a visit off a holiday, but nobody places one there by hand.
std::optional<Refusal> CheckJob(Business& business, const Job& job);

/// Writes the job to Diary, inserting it first when it is new, and gives `job` its key. Its prices
/// stay as they were; a new one has none and no Sequence, so it comes first in its day. Then
/// recomputes the balance of the client, and of the client it was taken from. Writes nothing when
/// CheckJob() refuses.
std::optional<Refusal> SaveJob(Business& business, Job& job);

/// Deletes an entry with its lines and recomputes the balance of its client.
void DeleteJob(Business& business, qint64 diaryId);

}  // namespace quillary::diary
