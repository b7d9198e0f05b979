#include "diary/Jobs.h"

#include "balances/ClientBalance.h"

#include <algorithm>

namespace quillary::diary {
namespace {

std::optional<Id<Client>> ClientOf(Business& business, Id<Entry> entry) {
  return business.FirstField(Sql("SELECT Client_ID FROM Diary WHERE Diary_ID = {}", entry))
      .ToId<Client>();
}

QString InvoiceNumberOf(Business& business, std::optional<Id<Invoice>> invoice) {
  if (!invoice) return {};
  const Recordset row =
      business.RunSQL(Sql("SELECT * FROM invoices WHERE Invoice_ID = {}; ", invoice));
  return row.EndOfFile() ? QString() : row.Field(u"Invoice_Number").ToText();
}

Id<Entry> InsertEmptyJob(Business& business, Id<Client> client) {
  return business.InsertReturningKey<Entry>(
      Sql("INSERT INTO Diary (Client_ID) VALUES ({});", client));
}

}  // namespace

QString Job::InvoiceWords() const {
  return invoiceNumber.isEmpty() ? QString() : QStringLiteral("Inv No: ") + invoiceNumber;
}

std::optional<EntryStatus> JobStatusOf(const StoredEntryStatus& stored) {
  const std::optional<EntryStatus> shown = Folded(stored).Known();
  if (!shown || std::ranges::find(kJobStatuses, *shown) == kJobStatuses.end()) return std::nullopt;
  return shown;
}

Job NewJob(Business& business, Id<Client> client) {
  Job job;
  job.client = client;
  job.date = business.Today();
  job.status = EntryStatus::JobOpen;
  job.employee = business.values.defaultEmployee;
  return job;
}

std::optional<Job> LoadJob(Business& business, Id<Entry> entry) {
  const Recordset row = business.RunSQL(Sql("SELECT * FROM Diary WHERE Diary_ID = {}; ", entry));
  if (row.EndOfFile()) return std::nullopt;
  Job job;
  job.entry = entry;
  job.client = row.Field(u"Client_ID").ToId<Client>();
  job.date = row.Field(u"Schedule_Date").ToDate();
  job.employee = row.Field(u"Employee_ID").ToId<Employee>();
  job.description = row.Field(u"Description").ToText();
  job.notes = row.Field(u"Notes").ToText();
  job.storedStatus = StoredEntryStatus(row.Field(u"Status").ToText());
  job.status = JobStatusOf(job.storedStatus);
  job.totalPrice = row.Field(u"Total_Price").ToMoney();
  job.totalGST = row.Field(u"Total_GST").ToMoney();
  job.payment = row.Field(u"Payment_ID").ToId<Payment>();
  job.invoiceNumber = InvoiceNumberOf(business, row.Field(u"Invoice_ID").ToId<Invoice>());
  return job;
}

std::optional<Refusal> CheckJob(Business& business, const Job& job) {
  const auto refuse = [](const char* message, const char* field) {
    return Refusal{QString(message), QString(field)};
  };
  if (!job.client) return refuse("Please select a client.", "client");
  if (!job.employee) return refuse("Please select an employee.", "employee");
  if (!job.status) return refuse("Please select the status of the job.", "status");
  if (IsHoliday(business.holidays, job.date)) {
    return refuse("The date you entered is a holiday.", "date");
  }
  return std::nullopt;
}

std::optional<Refusal> SaveJob(Business& business, Job& job) {
  if (std::optional<Refusal> refusal = CheckJob(business, job)) return refusal;
  Transaction save(business);
  const Id<Client> client = *job.client;
  const auto clientBefore = job.IsNew() ? job.client : ClientOf(business, *job.entry);
  const Id<Entry> entry = job.IsNew() ? InsertEmptyJob(business, client) : *job.entry;
  business.Write(Sql("UPDATE Diary SET Client_ID = {}, Schedule_Date = {}, Employee_ID = {}, "
                     "Description = {}, Notes = {}, Status = {}, Payment_ID = {} "
                     "WHERE Diary_ID = {}; ",
                     client, job.date, job.employee, job.description, job.notes, *job.status,
                     job.payment, entry),
                 Rows::Exactly(1));
  balances::RecalculateClientBalance(business, client);
  balances::RefreshDebtorSince(business, client);
  if (clientBefore != client) balances::RecalculateClientBalance(business, clientBefore);
  save.Commit();
  job.entry = entry;
  return std::nullopt;
}

}  // namespace quillary::diary
