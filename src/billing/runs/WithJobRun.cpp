#include "billing/runs/WithJobRun.h"

#include "base/Text.h"
#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"
#include "domain/InvoiceDue.h"

#include <algorithm>

namespace quillary::billing {
namespace {

/// Entries of clients who are billed with each job, over Clients and, as Clients_1, who pays.
Sql EntriesOf(const DateRange& days) {
  return Sql("FROM (Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) "
             "INNER JOIN Clients AS Clients_1 ON Clients.Billing_Client_ID = Clients_1.Client_ID "
             "WHERE Clients_1.Status In {}",
             StatusesOf(ClientGroup::Billed)) +
         Sql(" AND Clients_1.Is_Billed_To = Yes AND Clients_1.Statement_Type = {} "
             "AND (Diary.Schedule_Date BETWEEN {} AND {}) ",
             StatementType::WithJob, days.from, EndOfDay(days.to));
}

Sql IsWaiting() {
  return Sql("AND Diary.Invoice_ID IS NULL AND Diary.Payment_ID IS NULL AND Diary.Status IN {} ",
             CodesOf(EntryGroup::NotYetBilled));
}

Recordset LoadEntries(Business& business, const Sql& entries) {
  return business.RunSQL(
      Sql("SELECT Diary.Diary_ID, Diary.Invoice_ID, Diary.Schedule_Date, Diary.Total_Price, "
          "Diary.Total_GST, Clients_1.* ") +
      entries + Sql("ORDER BY Clients_1.Display_Name, Diary.Schedule_Date, Diary.Diary_ID;"));
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

InvoiceRunCount RunEntries(Business& business, const DateRange& days, const Sql& which,
                           const RunProgress& progress) {
  const BusyWhile busy(business.World().busy);
  Transaction run(business);
  business.Write(Sql("DELETE FROM lstInvoicesToPrint;"));
  const Recordset entries = LoadEntries(business, which);
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

}  // namespace

InvoiceRunCount GenerateWithJobInvoices(Business& business, const DateRange& days,
                                        const RunProgress& progress) {
  return RunEntries(business, days, EntriesOf(days), progress);
}

DueJobs CountDueJobs(Business& business) {
  const QDate today = business.Today();
  const WaitingJobs none{.days = DateRange::Of(today)};
  DueJobs due{none, none};
  for (const Record row : business.RunSQL(
           Sql("SELECT Payers.Client_ID, Payers.Statement_Type, COUNT(*) AS Jobs, "
               "SUM(Diary.Total_Price) AS Total, MIN(Diary.Schedule_Date) AS Oldest "
               "FROM (Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) "
               "INNER JOIN Clients AS Payers ON Clients.Billing_Client_ID = Payers.Client_ID "
               "WHERE {} GROUP BY Payers.Client_ID, Payers.Statement_Type",
               IsDueForInvoice(today)))) {
    const StoredStatementType type(row[1].ToText());
    WaitingJobs& of = type.Is(StatementType::WithJob) ? due.withJob : due.byMonth;
    of.jobs += static_cast<int>(row[2].ToLong());
    of.total += row[3].ToMoney();
    of.days.from = std::min(of.days.from, row[4].ToDate(today));
    ++of.clients;
  }
  return due;
}

WaitingJobs CountWaitingJobs(Business& business) {
  return CountDueJobs(business).withJob;
}

InvoiceRunCount InvoiceWaitingJobs(Business& business, const RunProgress& progress) {
  const DateRange days = CountWaitingJobs(business).days;
  return RunEntries(business, days, EntriesOf(days) + IsWaiting(), progress);
}

}  // namespace quillary::billing
