#include "billing/invoices/InvoiceJobs.h"

#include <algorithm>

namespace quillary::billing {
namespace {

const Sql& JobsOfGroups() {
  static const Sql jobs(
      "SELECT Diary.Diary_ID, Clients_1.Display_Name, Diary.Description, Diary.Schedule_Date, "
      "Diary.Total_Price, Diary.Total_GST, Diary.Status "
      "FROM (Clients INNER JOIN Clients AS Clients_1 "
      "ON Clients.Client_ID = Clients_1.Billing_Client_ID) "
      "INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID ");
  return jobs;
}

void AddTo(AttachedJobs& jobs, const Recordset& rows) {
  for (const Record row : rows) {
    jobs.rows.push_back({.diaryId = row[u"Diary_ID"].ToLong(),
                         .displayName = row[u"Display_Name"].ToText(),
                         .description = row[u"Description"].ToText(),
                         .scheduleDate = row[u"Schedule_Date"].ToDate(),
                         .totalPrice = row[u"Total_Price"].ToMoney(),
                         .totalGST = row[u"Total_GST"].ToMoney(),
                         .status = row[u"Status"].ToText()});
    jobs.totalAmount += jobs.rows.back().totalPrice;
    jobs.totalGST += jobs.rows.back().totalGST;
  }
}

void AddByKey(Business& business, AttachedJobs& jobs, qint64 diaryId) {
  AddTo(jobs, business.RunSQL(JobsOfGroups() + Sql("WHERE Diary.Diary_ID = {}", diaryId)));
}

}  // namespace

AttachedJobs LoadAttachedJobs(Business& business, const InvoiceForm& form) {
  AttachedJobs jobs;
  if (!form.IsNew()) {
    AddTo(jobs, business.RunSQL(JobsOfGroups() +
                                Sql("WHERE Diary.Invoice_ID = {} ORDER BY Clients_1.Display_Name, "
                                    "Schedule_Date, Diary.Diary_ID;",
                                    form.invoiceId)));
    return jobs;
  }
  if (form.forJob) AddByKey(business, jobs, *form.forJob);
  for (const qint64 diaryId : form.jobsToAttach)
    if (form.forJob != diaryId) AddByKey(business, jobs, diaryId);
  std::stable_sort(
      jobs.rows.begin(), jobs.rows.end(), [](const AttachedJob& left, const AttachedJob& right) {
        const int names = left.displayName.compare(right.displayName, Qt::CaseInsensitive);
        return names != 0 ? names < 0 : left.scheduleDate < right.scheduleDate;
      });
  return jobs;
}

void AttachJobs(Business& business, qint64 invoiceId, const std::vector<qint64>& diaryIds) {
  Transaction attaching(business);
  for (const qint64 diaryId : diaryIds)
    business.Write(Sql("UPDATE Diary SET Invoice_ID = {} WHERE Diary_ID = {};", invoiceId, diaryId),
                   Rows::Exactly(1));
  attaching.Commit();
}

std::optional<Refusal> RemoveJob(Business& business, InvoiceForm& form,
                                 std::optional<qint64> diaryId) {
  if (!diaryId) return Refusal{"Please select a job to remove.", "fgJobs"};
  if (form.IsNew()) {
    std::erase(form.jobsToAttach, *diaryId);
    if (form.forJob == diaryId) form.forJob.reset();
  } else {
    business.Write(Sql("UPDATE Diary SET Invoice_ID = NULL WHERE Diary_ID = {}", *diaryId),
                   Rows::Exactly(1));
  }
  return std::nullopt;
}

std::optional<JobToInvoice> LoadJobToInvoice(Business& business, qint64 diaryId) {
  const Recordset row = business.RunSQL(
      Sql("SELECT Clients.Display_Name, Clients.Billing_Client_ID, Diary.Description, "
          "Diary.Schedule_Date, Diary.Total_Price, Diary.Invoice_ID "
          "FROM Diary INNER JOIN Clients ON Diary.Client_ID = Clients.Client_ID "
          "WHERE Diary.Diary_ID = {}",
          diaryId));
  if (row.EndOfFile()) return std::nullopt;
  JobToInvoice job{.diaryId = diaryId,
                   .displayName = row.Field(u"Display_Name").ToText(),
                   .billedName = {},
                   .description = row.Field(u"Description").ToText(),
                   .scheduleDate = row.Field(u"Schedule_Date").ToDate(),
                   .totalPrice = row.Field(u"Total_Price").ToMoney(),
                   .invoiceId = {}};
  const auto payer = LoadBilledClient(business, row.Field(u"Billing_Client_ID").ToLong());
  job.billedName = payer ? payer->displayName : job.displayName;
  // A run can have left the key of an invoice that came to nothing.
  const Value invoice = business.FirstField(Sql(
      "SELECT Invoice_ID FROM Invoices WHERE Invoice_ID = {}", row.Field(u"Invoice_ID").ToLong()));
  if (!invoice.IsNull()) job.invoiceId = invoice.ToLong();
  return job;
}

}  // namespace quillary::billing
