#include "billing/runs/WithJobRun.h"

#include "base/Text.h"
#include "domain/ClientStatus.h"

namespace quillary::billing {
namespace {

Recordset LoadEntries(Business& business, const DateRange& days) {
  return business.RunSQL(
      Sql("SELECT Diary.Diary_ID, Diary.Invoice_ID, Diary.Schedule_Date, Diary.Total_Price, "
          "Diary.Total_GST, Clients_1.* "
          "FROM (Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) "
          "INNER JOIN Clients AS Clients_1 ON Clients.Billing_Client_ID = Clients_1.Client_ID "
          "WHERE Clients_1.Status In ") +
      StatusesOf(ClientGroup::Billed) +
      Sql(" AND Clients_1.Is_Billed_To = Yes AND Clients_1.Statement_Type = 'With Job' "
          "AND (Diary.Schedule_Date BETWEEN {} AND {}) "
          "ORDER BY Clients_1.Display_Name, Diary.Schedule_Date, Diary.Diary_ID;",
          days.from, EndOfDay(days.to)));
}

Id<Invoice> InvoiceEntry(Business& business, const Record& entry, const DateRange& days) {
  const GeneratedInvoice invoice{.clientId = Id<Client>(entry[u"Client_ID"].ToLong()),
                                 .madeOutTo = GeneratedMadeOutTo(entry),
                                 .days = days,
                                 .generated = business.Now(),
                                 .description = QStringLiteral("TAX INVOICE FOR ") +
                                                UpperCasedDate(entry[u"Schedule_Date"].ToDate()),
                                 .statementType = QStringLiteral("With Job"),
                                 .totalAmount = entry[u"Total_Price"],
                                 .totalGST = entry[u"Total_GST"]};
  const Id<Invoice> invoiceId = InsertGeneratedInvoice(business, invoice);
  business.Write(Sql("UPDATE Diary SET Invoice_ID = {} WHERE Diary_ID = {}", invoiceId,
                     entry[u"Diary_ID"].ToLong()),
                 Rows::Exactly(1));
  return invoiceId;
}

}  // namespace

InvoiceRunCount GenerateWithJobInvoices(Business& business, const DateRange& days,
                                        const RunProgress& progress) {
  const BusyWhile busy(business.World().busy);
  Transaction run(business);
  business.Write(Sql("DELETE FROM lstInvoicesToPrint;"));
  const Recordset entries = LoadEntries(business, days);
  InvoiceRunCount count;
  int done = 0;
  for (const Record entry : entries) {
    const Value& before = entry[u"Invoice_ID"];
    std::optional<Id<Invoice>> made;
    const bool isDone =
        GuardRunStep(business, QStringLiteral("dlgInvoiceOptions"),
                     QStringLiteral("cmdCreateNonMonthlyInvoice_Click"), [&] {
                       if (before.IsNull()) made = InvoiceEntry(business, entry, days);
                       business.Write(Sql("INSERT INTO lstInvoicesToPrint (Invoice_ID) VALUES({})",
                                          made ? Value(*made) : before));
                     });
    if (!isDone) {
      ++count.failed;
    } else if (made) {
      ++count.invoicesMade;
      count.invoices.push_back(*made);
      count.totalAmount += entry[u"Total_Price"].ToMoney();
    }
    if (progress) progress(++done, static_cast<int>(entries.RowCount()));
  }
  run.Commit();
  business.PastCommands().Describe(QStringLiteral("Invoices for jobs: ") +
                                   Counted(count.invoices.size(), "invoice"));
  return count;
}

}  // namespace quillary::billing
