#include "billing/runs/MonthlyRun.h"

#include "base/Text.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"

#include <QHash>
#include <QLocale>

#include <vector>

namespace quillary::billing {
namespace {

struct MonthlyJobs {
  std::vector<Id<Entry>> diaryIds;
  Money totalAmount;
  Money totalGST;
};

/// Read at once for all: a job belongs to one group, so what is invoiced for one client cannot
/// change what is left for another.
QHash<Id<Client>, MonthlyJobs> LoadJobsOfGroups(Business& business, const MonthlyPeriod& period) {
  enum Place : size_t { Payer, DiaryId, Price, GST };
  const Recordset rows = business.RunSQL(
      Sql("SELECT Clients.Client_ID, Diary.Diary_ID, Diary.Total_Price, Diary.Total_GST "
          "FROM (Clients INNER JOIN Clients AS Clients_1 "
          "ON Clients.Client_ID = Clients_1.Billing_Client_ID) "
          "INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID "
          "WHERE Isnull(Diary.Invoice_ID) AND Clients.Is_Billed_To = Yes "
          "AND Clients.Statement_Type = 'Monthly' "
          "AND Schedule_Date BETWEEN {} AND {} AND Diary.Status IN ",
          period.days.from, EndOfDay(period.days.to)) +
      CodesOf(EntryGroup::NotYetBilled) + Sql(" ORDER BY Diary.Diary_ID"));
  QHash<Id<Client>, MonthlyJobs> groups;
  for (const Record row : rows) {
    MonthlyJobs& jobs = groups[Id<Client>(row[Payer].ToLong())];
    jobs.diaryIds.emplace_back(row[DiaryId].ToLong());
    jobs.totalAmount += row[Price].ToMoney();
    jobs.totalGST += row[GST].ToMoney();
  }
  return groups;
}

/// The invoice, unless it came to nothing.
std::optional<Id<Invoice>> InvoiceJobs(Business& business, const GeneratedInvoice& invoice,
                                       const MonthlyJobs& jobs) {
  const Id<Invoice> invoiceId = InsertGeneratedInvoice(business, invoice);
  for (const Id<Entry> diaryId : jobs.diaryIds)
    business.Write(Sql("UPDATE Diary SET Invoice_ID = {} WHERE Diary_ID = {}", invoiceId, diaryId),
                   Rows::Exactly(1));
  if (jobs.totalAmount != Money()) return invoiceId;
  business.Write(Sql("DELETE FROM Invoices WHERE Invoice_ID = {}", invoiceId), Rows::Exactly(1));
  return std::nullopt;
}

}  // namespace

QString MonthlyDescription(const DateRange& days) {
  const auto [from, to] = days;
  const bool isWholeMonth = from.day() == 1 && to.addDays(1).day() == 1 &&
                            from.month() == to.month() && from.year() == to.year();
  const QString words =
      isWholeMonth ? QLocale(QLocale::English).toString(from, QStringLiteral("MMMM")).toUpper()
                   : UpperCasedDate(from) + QStringLiteral(" TO ") + UpperCasedDate(to);
  return QStringLiteral("TAX INVOICE FOR ") + words;
}

bool ConfirmMonthlyRun(Prompter& prompter) {
  return prompter.Ask(QStringLiteral(
             "This will automatically create invoice records for clients who are billed monthly.\n"
             "This also attaches jobs done within the date specified to the invoice.\n\n"
             "Continue?")) == Answer::Yes;
}

InvoiceRunCount GenerateMonthlyInvoices(Business& business, const MonthlyPeriod& period,
                                        const RunProgress& progress) {
  const BusyWhile busy(business.World().busy);
  Transaction run(business);
  const Recordset clients = business.RunSQL(
      Sql("SELECT Client_ID, Display_Name, Street_Number, Street, Suburb, Post_Code "
          "FROM Clients WHERE Status in ") +
      StatusesOf(ClientGroup::Billed) +
      Sql(" AND Is_Billed_To = Yes and (Statement_Type = 'Monthly') ORDER BY Display_Name; "));
  const QHash<Id<Client>, MonthlyJobs> groups = LoadJobsOfGroups(business, period);
  GeneratedInvoice invoice{.clientId = Id<Client>(0),
                           .madeOutTo = {},
                           .days = period.days,
                           .generated = period.generated,
                           .description = MonthlyDescription(period.days),
                           .statementType = QStringLiteral("Monthly"),
                           .totalAmount = {},
                           .totalGST = {}};
  InvoiceRunCount count;
  int done = 0;
  for (const Record client : clients) {
    invoice.clientId = Id<Client>(client[u"Client_ID"].ToLong());
    const auto jobs = groups.constFind(invoice.clientId);
    if (jobs != groups.cend()) {
      invoice.madeOutTo = GeneratedMadeOutTo(client);
      invoice.totalAmount = jobs->totalAmount;
      invoice.totalGST = jobs->totalGST;
      std::optional<Id<Invoice>> made;
      const bool isDone = GuardRunStep(business, QStringLiteral("frmInvoicesList"),
                                       QStringLiteral("cmdGenerateInvoiceAutomatically_Click"),
                                       [&] { made = InvoiceJobs(business, invoice, *jobs); });
      if (!isDone) {
        ++count.failed;
      } else if (made) {
        ++count.invoicesMade;
        count.invoices.push_back(*made);
        count.totalAmount += jobs->totalAmount;
      }
    }
    if (progress) progress(++done, static_cast<int>(clients.RowCount()));
  }
  business.Write(Sql("UPDATE infSystem SET Last_Monthly_Invoice_Ending = {}", period.days.to),
                 Rows::AtLeast(1));
  run.Commit();
  business.PastCommands().Describe(QStringLiteral("Monthly run: ") +
                                   Counted(count.invoices.size(), "invoice"));
  return count;
}

}  // namespace quillary::billing
