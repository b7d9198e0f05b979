#include "documents/billing/PrintedInvoices.h"

#include "data/store/Connection.h"
#include "domain/BillingWords.h"

namespace quillary::documents {
namespace {

bool HasPrintedInvoices(Business& business) {
  business.ConnectToDatabase();
  return business.StoreConnection().Schema().FindTable(u"Printed_Invoices") != nullptr;
}

}  // namespace

void NotePrinted(Business& business, const std::vector<Id<Invoice>>& invoices) {
  // Own tables of this house come with their first row: a file without them stays as every reader
  // of such files knows it.
  if (!HasPrintedInvoices(business))
    business.Write(Sql("CREATE TABLE Printed_Invoices (Invoice_ID LONG, Printed DATE)"));
  Transaction noting(business);
  for (const Id<Invoice> invoice : invoices) {
    const int before =
        business.Write(Sql("UPDATE Printed_Invoices SET Printed = {} "
                           "WHERE Invoice_ID = {}",
                           business.Now(), invoice));
    if (before == 0)
      business.Write(Sql("INSERT INTO Printed_Invoices (Invoice_ID, Printed) VALUES ({}, {})",
                         invoice, business.Now()),
                     Rows::Exactly(1));
  }
  noting.Commit();
}

std::vector<Id<Invoice>> InvoicesNotPrinted(Business& business, const DateRange& days) {
  const bool someArePrinted = HasPrintedInvoices(business);
  std::vector<Id<Invoice>> invoices;
  for (const Record row : business.RunSQL(
           Sql("SELECT Invoices.Invoice_ID FROM Invoices {} "
               "WHERE Invoices.Statement_Type <> {} "
               "AND Invoices.Generation_Date BETWEEN {} AND {} {} ORDER BY Invoices.Invoice_ID",
               someArePrinted ? Sql("LEFT JOIN Printed_Invoices "
                                    "ON Invoices.Invoice_ID = Printed_Invoices.Invoice_ID")
                              : Sql(""),
               StatementType::Statement, days.from, EndOfDay(days.to),
               someArePrinted ? Sql("AND Printed_Invoices.Printed IS NULL") : Sql(""))))
    invoices.emplace_back(row[size_t{0}].ToLong());
  return invoices;
}

}  // namespace quillary::documents
