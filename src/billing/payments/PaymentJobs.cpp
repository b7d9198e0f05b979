#include "billing/payments/PaymentJobs.h"

#include "domain/Payer.h"

namespace quillary::billing {

PaidServices LoadPaidServices(Business& business, Id<Payment> paymentId) {
  PaidServices services;
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Diary_ID, Services.Service, Diary.Schedule_Date, "
               "Diary_Services.Price, General_Ledger_Accounts.GL_Account_Name, "
               "Invoices.Invoice_ID, Invoices.Invoice_Number "
               "FROM (((Diary "
               "LEFT JOIN Diary_Services ON Diary.Diary_ID = Diary_Services.Diary_ID) "
               "LEFT JOIN Services ON Diary_Services.Service_ID = Services.Service_ID) "
               "LEFT JOIN General_Ledger_Accounts "
               "ON Services.Default_GL_Account_ID = General_Ledger_Accounts.GL_Account_ID) "
               "LEFT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID "
               "WHERE Diary.Payment_ID = {} ORDER BY Diary.Diary_ID, Services.Service; ",
               paymentId))) {
    services.rows.push_back({Id<Entry>(row[u"Diary_ID"].ToLong()), row[u"Service"].ToText(),
                             row[u"Schedule_Date"].ToDate(), row[u"Price"].ToMoney(),
                             row[u"GL_Account_Name"].ToText(), row[u"Invoice_ID"].ToId<Invoice>(),
                             row[u"Invoice_Number"].ToText()});
    services.total += services.rows.back().price;
  }
  return services;
}

QString PayableJob::StatusWords() const {
  // What is offered here is a live job, and a code that nobody knows counts as done.
  const bool isKnown = status.Is(EntryStatus::JobOpen) || status.Is(EntryStatus::JobInvoiced);
  return WordsOf(isKnown ? status : StoredEntryStatus(EntryStatus::JobDone));
}

AllocationSums Allocation::Sums() const {
  AllocationSums sums;
  sums.paymentAmount = paymentAmount;
  for (const PayableJob& job : jobs) {
    if (!job.isTicked) continue;
    ++sums.jobs;
    sums.jobsTotal += job.totalPrice;
  }
  return sums;
}

Allocation LoadAllocation(Business& business, Id<Payment> paymentId) {
  Allocation allocation;
  const Recordset payment = business.RunSQL(
      Sql("SELECT Amount, Client_ID FROM Payments WHERE Payment_ID = {}", paymentId));
  if (payment.EndOfFile()) return allocation;
  allocation.paymentAmount = payment.Field(u"Amount").ToMoney();
  const auto payer = payment.Field(u"Client_ID").ToId<Client>();
  if (!payer) return allocation;
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Diary_ID, Invoices.Invoice_Number, Clients.Display_Name, "
               "Diary.Description, Diary.Total_Price, Diary.Schedule_Date, Diary.Status, "
               "Diary.Payment_ID AS Paid_By "
               "FROM (Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) "
               "LEFT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID WHERE ") +
           IsPaidBy("Clients", *payer) + Sql(" AND Diary.Status IN ") +
           CodesOf(EntryGroup::LiveJobs) +
           Sql(" ORDER BY IIf(Diary.Payment_ID <> {} OR Diary.Payment_ID IS NULL, 0, 1) DESC, "
               "Diary.Schedule_Date DESC; ",
               paymentId))) {
    const Value& paidBy = row[u"Paid_By"];
    allocation.jobs.push_back({.diaryId = Id<Entry>(row[u"Diary_ID"].ToLong()),
                               .invoiceNumber = row[u"Invoice_Number"].ToText().trimmed(),
                               .displayName = row[u"Display_Name"].ToText(),
                               .description = row[u"Description"].ToText(),
                               .totalPrice = row[u"Total_Price"].ToMoney(),
                               .scheduleDate = row[u"Schedule_Date"].ToDate(),
                               .status = StoredEntryStatus(row[u"Status"].ToText()),
                               .isTicked = paidBy.ToId<Payment>() == paymentId,
                               .isPaid = !paidBy.IsNull()});
  }
  return allocation;
}

bool IsPayable(Business& business, Id<Client> payer, Id<Entry> diaryId) {
  return !business
              .FirstField(
                  Sql("SELECT Diary.Diary_ID FROM Diary INNER JOIN Clients "
                      "ON Diary.Client_ID = Clients.Client_ID WHERE Diary.Diary_ID = {} AND ",
                      diaryId) +
                  IsPaidBy("Clients", payer) + Sql(" AND Diary.Status IN ") +
                  CodesOf(EntryGroup::LiveJobs))
              .IsNull();
}

void TickJob(Business& business, Id<Payment> paymentId, Id<Entry> diaryId, bool on) {
  business.Write(Sql("UPDATE Diary SET Payment_ID = {} WHERE Diary_ID = {}",
                     on ? std::optional(paymentId) : std::nullopt, diaryId),
                 Rows::Exactly(1));
}

std::optional<Refusal> AttachJob(Business& business, std::optional<Id<Payment>> paymentId,
                                 Id<Entry> diaryId) {
  if (!paymentId) return Refusal{QStringLiteral("Please select a payment record first."), {}};
  TickJob(business, *paymentId, diaryId, true);
  return std::nullopt;
}

bool RequiresJobs(Business& business, Id<Payment> paymentId) {
  const auto covered =
      business.FirstField(Sql("SELECT COUNT(*) FROM Diary WHERE Payment_ID = {}", paymentId));
  if (covered.ToLong() > 0) return false;
  const auto payer =
      business.FirstField(Sql("SELECT Client_ID FROM Payments WHERE Payment_ID = {}", paymentId))
          .ToId<Client>();
  if (!payer) return false;
  const auto waiting = business.FirstField(
      Sql("SELECT COUNT(*) FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID "
          "WHERE ") +
      IsPaidBy("Clients", *payer) + Sql(" AND Diary.Status IN ") + CodesOf(EntryGroup::WorkDone) +
      Sql(" AND Diary.Payment_ID IS NULL; "));
  return waiting.ToLong() > 0;
}

}  // namespace quillary::billing
