#include "documents/billing/BillingRows.h"

#include "documents/pages/PageText.h"
#include "domain/EntryStatus.h"

namespace quillary::documents {
namespace {

QString Trimmed(const Value& text) {
  return text.ToText().trimmed();
}

QString AddressOf(const Record& row) {
  QStringList parts;
  for (const char16_t* column : {u"Street_Number", u"Street", u"Suburb", u"Post_Code"})
    parts += row[column].ToText();
  return parts.join(u' ').simplified();
}

QString WorkCoverOf(const Record& row) {
  const QString text =
      (row[u"WorkCoverLabel"].ToText() + QStringLiteral(" : ") + row[u"Work_Cover_Number"].ToText())
          .trimmed();
  return text == u":" ? QString() : text;
}

Amounts StoredAmounts(const Record& row) {
  return {row[u"Price"].ToMoney(), row[u"GST"].ToMoney()};
}

ClientJobs& GroupOf(JobSection& section, const Record& row) {
  const Value key = row[u"Client_ID"];
  const auto clientId = key.IsNull() ? std::nullopt : std::optional(Id<Client>(key.ToLong()));
  if (section.clients.empty() || section.clients.back().clientId != clientId) {
    section.clients.push_back({.clientId = clientId,
                               .displayName = Trimmed(row[u"Display_Name"]),
                               .address = AddressOf(row),
                               .workCover = {},
                               .jobs = {}});
  }
  return section.clients.back();
}

JobSection PastJobs(Business& business, Id<Client> clientId, const Sql& restriction, TaxMode mode) {
  JobSection section;
  RunningTotal total;
  for (const Record row : business.RunSQL(
           Sql("SELECT Clients_1.Client_ID, Clients_1.Display_Name, Clients_1.Display_Name, "
               "Clients_1.Street_Number, Clients_1.Street, Clients_1.Suburb, Clients_1.Post_Code, "
               "Diary.Schedule_Date, Services.Service, Diary_Services.Price, Diary_Services.GST, "
               "Invoices.Invoice_Number "
               " FROM ((Clients INNER JOIN ((Clients AS Clients_1 INNER JOIN Diary ON "
               "Clients_1.Client_ID = Diary.Client_ID) INNER JOIN Diary_Services ON "
               "Diary.Diary_ID = Diary_Services.Diary_ID) ON Clients.Client_ID = "
               "Clients_1.Billing_Client_ID) LEFT JOIN Services ON Diary_Services.Service_ID = "
               "Services.Service_ID) LEFT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID "
               " WHERE (Isnull(Diary.Payment_ID) OR Diary.Payment_ID = 0) AND Diary.Status IN ") +
           CodesOf(EntryGroup::WorkDone) + Sql(" AND Clients.Client_ID = {}", clientId) +
           restriction +
           Sql(" ORDER By Diary.Client_ID, Invoices.Invoice_Number, Diary.Schedule_Date, "
               "Service; "))) {
    GroupOf(section, row)
        .jobs.push_back({.invoiceNumber = Trimmed(row[u"Invoice_Number"]),
                         .date = row[u"Schedule_Date"].ToDate(),
                         .service = Trimmed(row[u"Service"]),
                         .nextVisit = {},
                         .shown = ShownAmounts(StoredAmounts(row), mode)});
    total.Add(StoredAmounts(row), mode);
  }
  section.total = total.sum;
  return section;
}

}  // namespace

Amounts ShownAmounts(const Amounts& stored, TaxMode mode) {
  if (mode == TaxMode::Included) return stored;
  return {stored.price - stored.tax, Money()};
}

void RunningTotal::Add(const Amounts& stored, TaxMode mode) {
  sum.price += ShownAmounts(stored, mode).price;
  sum.tax += stored.tax;
}

JobSection CollectInvoiceJobs(Business& business, Id<Invoice> invoiceId, TaxMode mode) {
  JobSection section;
  RunningTotal total;
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Client_ID, Diary.Schedule_Date, Services.Service, "
               "Diary_Services.Price, Diary_Services.GST, (SELECT MIN(Schedule_Date) FROM Diary "
               "as Diary2 WHERE Diary.Client_ID = Diary2.Client_ID AND Diary2.Schedule_Date > "
               "Diary.Schedule_Date AND Diary2.Status = {}) AS Next_Visit, "
               "Clients.Display_Name, Clients.Street_Number, Clients.Street, Clients.Suburb, "
               "Clients.Post_Code, Clients.Work_Cover_Number, Clients.WorkCoverLabel "
               " FROM Clients RIGHT JOIN ((Diary INNER JOIN Diary_Services ON Diary.Diary_ID = "
               "Diary_Services.Diary_ID) INNER JOIN Services ON Diary_Services.Service_ID = "
               "Services.Service_ID) ON Clients.Client_ID = Diary.Client_ID "
               " WHERE Invoice_ID = {} ORDER By Diary.Client_ID, Schedule_Date, Service; ",
               EntryStatus::JobOpen, invoiceId))) {
    ClientJobs& client = GroupOf(section, row);
    client.workCover = WorkCoverOf(row);
    client.jobs.push_back({.invoiceNumber = {},
                           .date = row[u"Schedule_Date"].ToDate(),
                           .service = Trimmed(row[u"Service"]),
                           .nextVisit = row[u"Next_Visit"].ToDate(),
                           .shown = ShownAmounts(StoredAmounts(row), mode)});
    total.Add(StoredAmounts(row), mode);
  }
  section.total = total.sum;
  return section;
}

JobSection CollectPastJobs(Business& business, Id<Client> clientId, Id<Invoice> exceptInvoiceId,
                           TaxMode mode) {
  return PastJobs(
      business, clientId,
      Sql(" AND (Isnull(Diary.Invoice_ID) OR (Diary.Invoice_ID <> {})) ", exceptInvoiceId), mode);
}

JobSection CollectPastJobs(Business& business, Id<Client> clientId, QDate from, QDate to,
                           TaxMode mode) {
  return PastJobs(business, clientId,
                  Sql(" AND Diary.Schedule_Date BETWEEN {} AND {} ", from, EndOfDay(to)), mode);
}

QStringList LinesOf(const Value& text) {
  const QString trimmed = text.ToText().trimmed();
  return trimmed.isEmpty() ? QStringList() : TextLines(trimmed);
}

}  // namespace quillary::documents
