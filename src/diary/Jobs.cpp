#include "diary/Jobs.h"

#include "balances/ClientBalance.h"

#include <array>

namespace quillary::diary {
namespace {

struct JobState {
  const char16_t* code;
  const char16_t* words;
};

constexpr std::array kJobStates = {
    JobState{u"J", u"Job NOT DONE"},
    JobState{u"JD", u"Job DONE"},
    JobState{u"JC", u"Job CANCELLED"},
    JobState{u"JI", u"Job INVOICED"},
};

qint64 ClientOf(Business& business, qint64 diaryId) {
  return business.FirstField(Sql("SELECT Client_ID FROM Diary WHERE Diary_ID = {}", diaryId))
      .ToLong();
}

QString InvoiceNumberOf(Business& business, const Value& invoiceId) {
  if (invoiceId.IsNull()) return {};
  const Recordset invoice =
      business.RunSQL(Sql("SELECT * FROM invoices WHERE Invoice_ID = {}; ", invoiceId));
  return invoice.EndOfFile() ? QString() : invoice.Field(u"Invoice_Number").ToText();
}

qint64 InsertEmptyJob(Business& business, qint64 clientId) {
  business.RunSQL(Sql("INSERT INTO Diary (Client_ID) VALUES ({});", clientId));
  return business.FirstField(Sql("SELECT Max(Diary_ID) FROM Diary;")).ToLong();
}

}  // namespace

QString Job::InvoiceWords() const {
  return invoiceNumber.isEmpty() ? QString() : QStringLiteral("Inv No: ") + invoiceNumber;
}

QStringList JobStatusWords() {
  QStringList words;
  for (const JobState& state : kJobStates) words += QString::fromUtf16(state.words);
  return words;
}

QString JobStatusAt(int position) {
  return QString::fromUtf16(kJobStates.at(static_cast<size_t>(position)).code);
}

std::optional<int> JobStatusPosition(const QString& status) {
  const QString code = status.toUpper();
  const QString shown = code == u"JP" || code == u"JU" ? QStringLiteral("JD") : code;
  for (size_t position = 0; position < kJobStates.size(); ++position) {
    if (shown == QStringView(kJobStates[position].code)) return static_cast<int>(position);
  }
  return std::nullopt;
}

Job NewJob(Business& business, qint64 clientId) {
  Job job;
  job.clientId = clientId;
  job.date = business.Today();
  job.statusPosition = 0;
  if (const auto employee = business.values.defaultEmployee) job.employeeId = employee->Number();
  return job;
}

std::optional<Job> LoadJob(Business& business, qint64 diaryId) {
  const Recordset entry =
      business.RunSQL(Sql("SELECT * FROM Diary WHERE Diary_ID = {}; ", diaryId));
  if (entry.EndOfFile()) return std::nullopt;
  const auto choice = [&](const char16_t* column) -> std::optional<qint64> {
    const qint64 id = entry.Field(column).ToLong();
    return id == 0 ? std::nullopt : std::optional(id);
  };
  Job job;
  job.diaryId = diaryId;
  job.clientId = choice(u"Client_ID");
  job.date = entry.Field(u"Schedule_Date").ToDate();
  job.employeeId = choice(u"Employee_ID");
  job.description = entry.Field(u"Description").ToText();
  job.notes = entry.Field(u"Notes").ToText();
  job.storedStatus = entry.Field(u"Status").ToText();
  job.statusPosition = JobStatusPosition(job.storedStatus);
  job.totalPrice = entry.Field(u"Total_Price").ToMoney();
  job.totalGST = entry.Field(u"Total_GST").ToMoney();
  job.paymentId = entry.Field(u"Payment_ID").ToLong(kNoRecord);
  job.invoiceNumber = InvoiceNumberOf(business, entry.Field(u"Invoice_ID"));
  return job;
}

std::optional<Refusal> CheckJob(Business& business, const Job& job) {
  const auto refuse = [](const char* message, const char* field) {
    return Refusal{QString(message), QString(field)};
  };
  if (!job.clientId) return refuse("Please select a client.", "cmbClient");
  if (!job.employeeId) return refuse("Please select an employee.", "cmbEmployee");
  // A list without a selection stands at -1.
  if (job.statusPosition.value_or(-1) < 0) {
    return refuse("Please select the status of the job.", "cmbStatus");
  }
  if (IsHoliday(business.holidays, job.date)) {
    return refuse("The date you entered is a holiday.", "dtpDate");
  }
  return std::nullopt;
}

std::optional<Refusal> SaveJob(Business& business, Job& job) {
  if (std::optional<Refusal> refusal = CheckJob(business, job)) return refusal;
  Transaction save(business);
  const qint64 clientId = *job.clientId;
  const qint64 clientBefore = job.IsNew() ? clientId : ClientOf(business, job.diaryId);
  const qint64 diaryId = job.IsNew() ? InsertEmptyJob(business, clientId) : job.diaryId;
  business.RunSQL(
      Sql("UPDATE Diary SET Client_ID = {}, Schedule_Date = {}, Employee_ID = {}, "
          "Description = {}, Notes = {}, Status = {}, Payment_ID = {} WHERE Diary_ID = {}; ",
          clientId, job.date, job.employeeId, job.description, job.notes,
          JobStatusAt(*job.statusPosition), job.HasBeenPaid() ? Value(job.paymentId) : Value(),
          diaryId));
  balances::RecalculateClientBalance(business, clientId);
  balances::RefreshDebtorSince(business, clientId);
  if (clientBefore != clientId) balances::RecalculateClientBalance(business, clientBefore);
  save.Commit();
  job.diaryId = diaryId;
  return std::nullopt;
}

void DeleteJob(Business& business, qint64 diaryId) {
  Transaction removal(business);
  const qint64 clientId = ClientOf(business, diaryId);
  business.RunSQL(Sql("DELETE FROM Diary WHERE Diary_ID = {}; ", diaryId));
  business.RunSQL(Sql("DELETE FROM Diary_Services WHERE Diary_ID = {}; ", diaryId));
  balances::RecalculateClientBalance(business, clientId);
  removal.Commit();
}

}  // namespace quillary::diary
