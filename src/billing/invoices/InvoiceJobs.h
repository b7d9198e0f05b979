#pragma once

#include "billing/invoices/InvoiceRecord.h"
#include "domain/EntryStatus.h"

#include <vector>

/// The jobs of an invoice. Each belongs to one invoice at most; its status and its invoice move
/// independently of each other.
namespace quillary::billing {

struct AttachedJob {
  Id<Entry> diaryId;
  QString displayName;  // of the client at whose site it is done
  QString description;
  QDate scheduleDate;
  Money totalPrice;  // tax included
  Money totalGST;
  StoredEntryStatus status;
};

struct AttachedJobs {
  std::vector<AttachedJob> rows;  // by name and date
  Money totalAmount;              // the live sums, which replace what the invoice had stored
  Money totalGST;
};
/// The jobs that point at the invoice; of a new one those that its first save will attach.
AttachedJobs LoadAttachedJobs(Business& business, const InvoiceForm& form);

/// Points the jobs at the invoice, away from any other they stood on. Their status stays, and so do
/// the stored totals of both invoices until they are saved again.
void AttachJobs(Business& business, Id<Invoice> invoiceId, const std::vector<Id<Entry>>& diaryIds);

/// The month whose jobs the invoice is for; of one that is not stored yet, today's.
QDate MonthOfInvoice(Business& business, std::optional<Id<Invoice>> invoiceId);
/// What to ask before the jobs are attached: which of them stand on another invoice, that they
/// would leave. Empty when none does.
QString QuestionBeforeAttaching(Business& business, std::optional<Id<Invoice>> invoiceId,
                                const std::vector<Id<Entry>>& diaryIds);

/// Takes a job off its invoice, or out of those that a new one will attach. The status stays: an
/// invoiced job goes on counting as invoiced. Refuses when no job is selected.
std::optional<Refusal> RemoveJob(Business& business, InvoiceForm& form,
                                 std::optional<Id<Entry>> diaryId);

/// A job of the diary that is to be invoiced.
struct JobToInvoice {
  Id<Entry> diaryId;
  QString displayName;  // of the client at whose site it is done
  QString billedName;   // of who pays
  QString description;
  QDate scheduleDate;
  Money totalPrice;  // tax included
  StoredEntryStatus status;
  std::optional<Id<Invoice>> invoiceId;  // the invoice it stands on, when that exists
};
/// Nothing when there is no such entry.
std::optional<JobToInvoice> LoadJobToInvoice(Business& business, Id<Entry> diaryId);

}  // namespace quillary::billing
