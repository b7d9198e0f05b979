#pragma once

#include "base/Refusal.h"
#include "billing/payments/PaymentRecord.h"
#include "domain/EntryStatus.h"

/// Which jobs a payment covers. Diary.Payment_ID points a job at its one payment, whole: nothing is
/// split between jobs, and nobody compares the jobs with the amount. The link moves no balance, and
/// only a payment opened for a job moves the job's status.
namespace quillary::billing {

/// One service of a job that is paid for.
struct PaidService {
  Id<Entry> diaryId;
  QString service;
  QDate scheduleDate;
  Money price;
  QString accountName;  // the service's revenue account
  std::optional<Id<Invoice>> invoiceId;
  QString invoiceNumber;
};
struct PaidServices {
  std::vector<PaidService> rows;  // by job, then by service; a job without services has one row
  Money total;
};
PaidServices LoadPaidServices(Business& business, Id<Payment> paymentId);

/// A job that the payment could cover.
struct PayableJob {
  Id<Entry> diaryId;
  QString invoiceNumber;
  QString displayName;  // of the client at whose site it is done
  QString description;
  Money totalPrice;  // tax included
  QDate scheduleDate;
  StoredEntryStatus status;
  bool isTicked = false;  // covered by this payment
  bool isPaid = false;    // covered by this payment or by another

  /// "Job NOT DONE", "Job DONE" or "Job INVOICED".
  QString StatusWords() const;
};

/// What the ticked jobs come to beside the payment. Nothing holds the two to each other.
struct AllocationSums {
  int jobs = 0;
  Money jobsTotal;
  Money paymentAmount;
  Money Difference() const { return paymentAmount - jobsTotal; }
};
struct Allocation {
  std::vector<PayableJob> jobs;  // those of this payment first, then the newest first
  Money paymentAmount;
  AllocationSums Sums() const;
};
/// The jobs, done or not but not cancelled, of everyone who is billed to the payer.
Allocation LoadAllocation(Business& business, Id<Payment> paymentId);
/// Whether a payment of that payer could cover the job.
bool IsPayable(Business& business, Id<Client> payer, Id<Entry> diaryId);

/// Takes the job to this payment, from another one without a word, or off its payment. At once; the
/// job's status and the balance stay.
void TickJob(Business& business, Id<Payment> paymentId, Id<Entry> diaryId, bool on);

/// Ties a job to a payment recorded before; its status stays. Refuses when no payment is selected.
std::optional<Refusal> AttachJob(Business& business, std::optional<Id<Payment>> paymentId,
                                 Id<Entry> diaryId);

/// Told when RequiresJobs() holds a payment back.
inline constexpr char kRequiresJobs[] = "This payment record requires the jobs being for.";
/// Whether the payer has done jobs on no payment while this payment covers none.
bool RequiresJobs(Business& business, Id<Payment> paymentId);

}  // namespace quillary::billing
