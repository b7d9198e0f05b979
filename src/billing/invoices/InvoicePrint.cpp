#include "billing/invoices/InvoicePrint.h"

#include "balances/ClientBalance.h"
#include "data/ActivityLog.h"

namespace quillary::billing {
namespace {

void LogStep(Business& business, const QString& step) {
  LogActivity(business, QStringLiteral("cmdPrintInvoice_Click (%1)->%2")
                            .arg(step, business.Now().time.toString(QStringLiteral("HH:mm:ss"))));
}

}  // namespace

void SelectInvoicesToPrint(Business& business, const std::vector<Id<Invoice>>& invoiceIds) {
  Transaction selecting(business);
  business.Write(Sql("DELETE FROM lstInvoicesToPrint;"));
  for (const Id<Invoice> invoiceId : invoiceIds)
    business.Write(Sql("INSERT INTO lstInvoicesToPrint (Invoice_ID) VALUES ({});", invoiceId));
  selecting.Commit();
}

std::optional<Refusal> CheckInvoicePrint(size_t attachedJobs) {
  if (attachedJobs > 0) return std::nullopt;
  return Refusal{"Please select jobs to included on the invoice.", "jobList"};
}

std::vector<Id<Invoice>> SelectedInvoices(Business& business) {
  std::vector<Id<Invoice>> invoices;
  for (const Record row :
       business.RunSQL(Sql("SELECT DISTINCT(Invoice_ID) FROM lstInvoicesToPrint;")))
    invoices.emplace_back(row[size_t{0}].ToLong());
  return invoices;
}

void PrepareInvoicePrint(Business& business) {
  if (!business.values.recalculateClientAmtsOwingOnPrint) return;
  LogStep(business, QStringLiteral("RecalculateAmountOwingOfAllClients"));
  balances::RecalculateAmountOwingOfAllClients(business);
  LogStep(business, QStringLiteral("RecalculateAmountOwingOfAllClients End"));
}

}  // namespace quillary::billing
