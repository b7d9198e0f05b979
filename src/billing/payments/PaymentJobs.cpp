#include "billing/payments/PaymentJobs.h"

#include "domain/EntryStatus.h"
namespace quillary::billing {

PaidServices LoadPaidServices(Business& business, qint64 paymentId) {
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
    services.rows.push_back({row[u"Diary_ID"].ToLong(), row[u"Service"].ToText(),
                             row[u"Schedule_Date"].ToDate(), row[u"Price"].ToMoney(),
                             row[u"GL_Account_Name"].ToText(), row[u"Invoice_ID"].ToLong(),
                             row[u"Invoice_Number"].ToText()});
    services.total += services.rows.back().price;
  }
  return services;
}

QString PayableJob::StatusWords() const {
  // What is offered here is a live job, and a code that nobody knows counts as done.
  const StoredEntryStatus stored(status);
  const bool isKnown = stored.Is(EntryStatus::JobOpen) || stored.Is(EntryStatus::JobInvoiced);
  return WordsOf(isKnown ? stored : StoredEntryStatus(EntryStatus::JobDone));
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

Allocation LoadAllocation(Business& business, qint64 paymentId) {
  Allocation allocation;
  allocation.paymentAmount =
      business.FirstField(Sql("SELECT Amount FROM Payments WHERE Payment_ID = {}", paymentId))
          .ToMoney();
  for (const Record row : business.RunSQL(
           Sql("SELECT Diary.Diary_ID, Invoices.Invoice_Number, Clients.Display_Name, "
               "Diary.Description, Diary.Total_Price, Diary.Schedule_Date, Diary.Status, "
               "Diary.Payment_ID AS Paid_By "
               "FROM ((Payments "
               "INNER JOIN Clients ON Clients.Billing_Client_ID = Payments.Client_ID) "
               "INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) "
               "LEFT JOIN Invoices ON Diary.Invoice_ID = Invoices.Invoice_ID "
               "WHERE Payments.Payment_ID = {} "
               "AND Diary.Status IN ",
               paymentId) +
           CodesOf(EntryGroup::LiveJobs) +
           Sql(" ORDER BY IIf(Diary.Payment_ID <> {} OR Diary.Payment_ID IS NULL, 0, 1) DESC, "
               "Diary.Schedule_Date DESC; ",
               paymentId))) {
    const Value& paidBy = row[u"Paid_By"];
    allocation.jobs.push_back({.diaryId = row[u"Diary_ID"].ToLong(),
                               .invoiceNumber = row[u"Invoice_Number"].ToText().trimmed(),
                               .displayName = row[u"Display_Name"].ToText(),
                               .description = row[u"Description"].ToText(),
                               .totalPrice = row[u"Total_Price"].ToMoney(),
                               .scheduleDate = row[u"Schedule_Date"].ToDate(),
                               .status = row[u"Status"].ToText(),
                               .isTicked = paidBy.ToLong() == paymentId,
                               .isPaid = !paidBy.IsNull()});
  }
  return allocation;
}

void TickJob(Business& business, qint64 paymentId, qint64 diaryId, bool on) {
  business.Write(Sql("UPDATE Diary SET Payment_ID = {} WHERE Diary_ID = {}",
                     on ? std::optional(paymentId) : std::nullopt, diaryId),
                 Rows::Exactly(1));
}

std::optional<Refusal> AttachJob(Business& business, std::optional<qint64> paymentId,
                                 qint64 diaryId) {
  if (!paymentId) return Refusal{QStringLiteral("Please select a payment record first."), {}};
  TickJob(business, *paymentId, diaryId, true);
  return std::nullopt;
}

bool RequiresJobs(Business& business, qint64 paymentId) {
  const auto covered =
      business.FirstField(Sql("SELECT COUNT(*) FROM Diary WHERE Payment_ID = {}", paymentId));
  if (covered.ToLong() > 0) return false;
  const auto waiting = business.FirstField(
      Sql("SELECT COUNT(*) FROM (Payments "
          "INNER JOIN Clients ON Clients.Billing_Client_ID = Payments.Client_ID) "
          "INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID "
          "WHERE Payments.Payment_ID = {} AND Diary.Status IN ",
          paymentId) +
      CodesOf(EntryGroup::WorkDone) + Sql(" AND Diary.Payment_ID IS NULL; "));
  return waiting.ToLong() > 0;
}

}  // namespace quillary::billing
