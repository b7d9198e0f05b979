#include "domain/InvoiceDue.h"

#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"

namespace quillary {

Sql IsDueForInvoice(QDate today) {
  const QDate month(today.year(), today.month(), 1);
  return Sql("(Diary.Invoice_ID IS NULL AND Diary.Payment_ID IS NULL AND Diary.Status IN {} AND "
             "Payers.Status IN {} "
             "AND Payers.Is_Billed_To = Yes AND ",
             CodesOf(EntryGroup::NotYetBilled), StatusesOf(ClientGroup::Billed)) +
         Sql("((Payers.Statement_Type = {} AND Diary.Schedule_Date <= {}) "
             "OR (Payers.Statement_Type = {} AND Diary.Schedule_Date < {})))",
             StatementType::WithJob, EndOfDay(today), StatementType::Monthly, month);
}

}  // namespace quillary
