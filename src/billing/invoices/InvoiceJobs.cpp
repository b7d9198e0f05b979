#include "billing/invoices/InvoiceJobs.h"

#include "domain/Payer.h"

#include <algorithm>

namespace quillary::billing {
namespace {

const Sql& JobsAtSites() {
  static const Sql jobs(
      "SELECT Diary.Diary_ID, Clients_1.Display_Name, Diary.Description, Diary.Schedule_Date, "
      "Diary.Total_Price, Diary.Total_GST, Diary.Status "
      "FROM Clients AS Clients_1 INNER JOIN Diary ON Clients_1.Client_ID = Diary.Client_ID ");
  return jobs;
}

void AddTo(AttachedJobs& jobs, const Recordset& rows) {
  for (const Record row : rows) {
    jobs.rows.push_back({.diaryId = Id<Entry>(row[u"Diary_ID"].ToLong()),
                         .displayName = row[u"Display_Name"].ToText(),
                         .description = row[u"Description"].ToText(),
                         .scheduleDate = row[u"Schedule_Date"].ToDate(),
                         .totalPrice = row[u"Total_Price"].ToMoney(),
                         .totalGST = row[u"Total_GST"].ToMoney(),
                         .status = StoredEntryStatus(row[u"Status"].ToText())});
    jobs.totalAmount += jobs.rows.back().totalPrice;
    jobs.totalGST += jobs.rows.back().totalGST;
  }
}

void AddByKey(Business& business, AttachedJobs& jobs, Id<Entry> diaryId) {
  AddTo(jobs, business.RunSQL(JobsAtSites() + Sql("WHERE Diary.Diary_ID = {}", diaryId)));
}

}  // namespace

AttachedJobs LoadAttachedJobs(Business& business, const InvoiceForm& form) {
  AttachedJobs jobs;
  if (!form.IsNew()) {
    AddTo(jobs, business.RunSQL(JobsAtSites() +
                                Sql("WHERE Diary.Invoice_ID = {} ORDER BY Clients_1.Display_Name, "
                                    "Schedule_Date, Diary.Diary_ID;",
                                    form.invoiceId)));
    return jobs;
  }
  if (form.forJob) AddByKey(business, jobs, *form.forJob);
  for (const Id<Entry> diaryId : form.jobsToAttach)
    if (form.forJob != diaryId) AddByKey(business, jobs, diaryId);
  std::stable_sort(
      jobs.rows.begin(), jobs.rows.end(), [](const AttachedJob& left, const AttachedJob& right) {
        const int names = left.displayName.compare(right.displayName, Qt::CaseInsensitive);
        return names != 0 ? names < 0 : left.scheduleDate < right.scheduleDate;
      });
  return jobs;
}

void AttachJobs(Business& business, Id<Invoice> invoiceId, const std::vector<Id<Entry>>& diaryIds) {
  Transaction attaching(business);
  for (const Id<Entry> diaryId : diaryIds)
    business.Write(Sql("UPDATE Diary SET Invoice_ID = {} WHERE Diary_ID = {};", invoiceId, diaryId),
                   Rows::Exactly(1));
  attaching.Commit();
}

QDate MonthOfInvoice(Business& business, std::optional<Id<Invoice>> invoiceId) {
  if (!invoiceId) return business.Today();
  const Recordset row = business.RunSQL(
      Sql("SELECT From_Date, Generation_Date FROM Invoices WHERE Invoice_ID = {}", *invoiceId));
  if (row.EndOfFile()) return business.Today();
  const QDate made = row.Field(u"Generation_Date").ToDate(business.Today());
  return row.Field(u"From_Date").ToDate(made);
}

QString QuestionBeforeAttaching(Business& business, std::optional<Id<Invoice>> invoiceId,
                                const std::vector<Id<Entry>>& diaryIds) {
  QStringList leaving;
  for (const Id<Entry> diaryId : diaryIds) {
    const auto job = LoadJobToInvoice(business, diaryId);
    if (!job || !job->invoiceId || job->invoiceId == invoiceId) continue;
    leaving += QStringLiteral("%1, %2, %3: invoice %4")
                   .arg(job->displayName, ToShortDateText(job->scheduleDate),
                        job->totalPrice.ToCurrencyText(),
                        business
                            .FirstField(Sql("SELECT Invoice_Number FROM Invoices "
                                            "WHERE Invoice_ID = {}",
                                            *job->invoiceId))
                            .ToText());
  }
  if (leaving.isEmpty()) return {};
  const bool isOne = leaving.size() == 1;
  return (isOne ? QStringLiteral("This job stands on another invoice:")
                : QStringLiteral("These jobs stand on other invoices:")) +
         QStringLiteral("\n\n") + leaving.join(u'\n') +
         (isOne ? QStringLiteral("\n\nTake it off there?")
                : QStringLiteral("\n\nTake them off there?"));
}

std::optional<Refusal> RemoveJob(Business& business, InvoiceForm& form,
                                 std::optional<Id<Entry>> diaryId) {
  if (!diaryId) return Refusal{"Please select a job to remove.", "jobs"};
  if (form.IsNew()) {
    std::erase(form.jobsToAttach, *diaryId);
    if (form.forJob == diaryId) form.forJob.reset();
  } else {
    business.Write(Sql("UPDATE Diary SET Invoice_ID = NULL WHERE Diary_ID = {}", *diaryId),
                   Rows::Exactly(1));
  }
  return std::nullopt;
}

std::optional<JobToInvoice> LoadJobToInvoice(Business& business, Id<Entry> diaryId) {
  const Recordset row =
      business.RunSQL(Sql("SELECT Clients.Client_ID, Clients.Display_Name, "
                          "Clients.Billing_Client_ID, Diary.Description, "
                          "Diary.Schedule_Date, Diary.Total_Price, Diary.Status, Diary.Invoice_ID "
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
                   .status = StoredEntryStatus(row.Field(u"Status").ToText()),
                   .invoiceId = {}};
  const auto payer = LoadBilledClient(
      business,
      PayerFrom(Id<Client>(row.Field(u"Client_ID").ToLong()), row.Field(u"Billing_Client_ID")));
  job.billedName = payer ? payer->displayName : job.displayName;
  // A run can have left the key of an invoice that came to nothing.
  job.invoiceId = business
                      .FirstField(Sql("SELECT Invoice_ID FROM Invoices WHERE Invoice_ID = {}",
                                      row.Field(u"Invoice_ID").ToLong()))
                      .ToId<Invoice>();
  return job;
}

}  // namespace quillary::billing
