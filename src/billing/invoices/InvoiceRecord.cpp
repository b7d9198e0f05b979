#include "billing/invoices/InvoiceRecord.h"

#include "balances/ClientBalance.h"
#include "billing/invoices/InvoiceJobs.h"
#include "billing/invoices/InvoiceNumbers.h"
#include "domain/EntryStatus.h"
#include "domain/Payer.h"
#include "roll/DiaryEntries.h"

namespace quillary::billing {
namespace {

/// A new row has a date and nothing else until the update that follows.
Id<Invoice> InsertInvoice(Business& business) {
  return business.InsertReturningKey<Invoice>(
      Sql("INSERT INTO Invoices (Generation_Date) VALUES ({})", business.Today()));
}

void TakeJobsOfNewInvoice(Business& business, const InvoiceForm& form) {
  AttachJobs(business, *form.invoiceId, form.jobsToAttach);
  if (!form.forJob) return;
  const bool wasOwed =
      business
          .FirstField(Sql("SELECT Diary_ID FROM Diary WHERE Diary_ID = {} AND ", *form.forJob) +
                      IsInGroup("Status", EntryGroup::WorkDone))
          .ToLong() != 0;
  business.Write(Sql("UPDATE Diary SET Invoice_ID = {}, Status = {} WHERE Diary_ID = {}",
                     form.invoiceId, EntryStatus::JobInvoiced, *form.forJob),
                 Rows::Exactly(1));
  // An open job that is billed counts as done from now on.
  if (!wasOwed) balances::RecalculateClientBalance(business, PayerOf(business, *form.forJob));
}

void WriteInvoice(Business& business, const InvoiceForm& form) {
  business.Write(
      Sql("UPDATE Invoices SET Client_ID = {}, From_Date = {}, To_Date = {}, "
          "Generation_Date = {}, Invoice_Description = {}, Total_Amount = {}, Total_GST = {}, "
          "Made_Out_To = {}, Statement_Type = {}, Invoice_Number = {}, Invoice_Notes = {}, "
          "IsPaid = {} WHERE Invoice_ID = {};",
          form.clientId, form.date, form.date, form.date, form.description, form.totalAmount,
          form.totalGST, form.madeOutTo, form.statementType, form.number, form.notes, form.isPaid,
          form.invoiceId),
      Rows::Exactly(1));
}

void WriteOptions(Business& business, const InvoiceForm& form) {
  business.Write(Sql("UPDATE Clients SET InvoiceWithOutstanding = {}, InvoiceWithNextJob = {}, "
                     "InvoiceWithUnpaidPastJobs = {} WHERE Client_ID = {};",
                     form.options.showOutstanding, form.options.showNextJob,
                     form.options.withUnpaidPastJobs, form.clientId),
                 Rows::Exactly(1));
}

}  // namespace

QStringList TypesOfInvoice() {
  return {QStringLiteral("With job"), QStringLiteral("Monthly")};
}

QString InvoiceTypeOf(const QString& stored) {
  for (const QString& type : TypesOfInvoice())
    if (type.compare(stored, Qt::CaseInsensitive) == 0) return type;
  return {};
}

std::optional<BilledClient> ChooseBilledClient(Business& business, InvoiceForm& form,
                                               Id<Client> clientId) {
  const auto client = LoadBilledClient(business, clientId);
  if (!client) return std::nullopt;
  form.clientId = clientId;
  form.madeOutTo = client->addressBlock;
  form.options = client->options;
  return client;
}

InvoiceForm NewInvoice(Business& business, std::optional<Id<Client>> clientId,
                       std::optional<Id<Entry>> diaryId) {
  InvoiceForm form;
  form.forJob = diaryId;
  form.date = business.Today();
  form.statementType = TypesOfInvoice().front();
  form.description = QStringLiteral("TAX INVOICE");
  if (diaryId) roll::RecalculateDiaryEntryGST(business, *diaryId);
  std::optional<Id<Client>> payer;
  if (clientId)
    payer = PayerOf(business, *clientId);
  else if (diaryId)
    payer = PayerOf(business, *diaryId);
  const auto client = payer ? LoadBilledClient(business, *payer) : std::nullopt;
  if (client && client->isBilledTo) ChooseBilledClient(business, form, *payer);
  form.number = GetNextInvoiceNumber(business);
  const AttachedJobs jobs = LoadAttachedJobs(business, form);
  form.totalAmount = jobs.totalAmount;
  form.totalGST = jobs.totalGST;
  return form;
}

std::optional<InvoiceForm> LoadInvoiceDetails(Business& business, Id<Invoice> invoiceId) {
  const Recordset row =
      business.RunSQL(Sql("SELECT * FROM Invoices WHERE Invoice_ID = {}", invoiceId));
  if (row.EndOfFile()) return std::nullopt;
  InvoiceForm form;
  form.invoiceId = invoiceId;
  if (const auto client = row.Field(u"Client_ID").ToId<Client>())
    ChooseBilledClient(business, form, *client);
  form.date = row.Field(u"Generation_Date").ToDate(business.Today());
  form.number = ShownInvoiceNumber(row.Field(u"Invoice_Number"));
  form.description = row.Field(u"Invoice_Description").ToText();
  form.madeOutTo = row.Field(u"Made_Out_To").ToText();
  form.notes = row.Field(u"Invoice_Notes").ToText().trimmed();
  form.statementType = InvoiceTypeOf(row.Field(u"Statement_Type").ToText());
  form.isPaid = row.Field(u"IsPaid").ToBool();
  form.totalAmount = row.Field(u"Total_Amount").ToMoney();
  form.totalGST = row.Field(u"Total_GST").ToMoney();
  return form;
}

std::optional<Refusal> CheckInvoice(const InvoiceForm& form) {
  if (!form.clientId) return Refusal{"Please select the billed client.", "client"};
  if (ShownInvoiceNumber(form.number) == u"0")
    return Refusal{"Please enter the invoice number.", "number"};
  if (InvoiceTypeOf(form.statementType).isEmpty())
    return Refusal{"Please select the type of this invoice.", "type"};
  return std::nullopt;
}

std::optional<Refusal> SaveInvoices(Business& business, InvoiceForm& form) {
  if (auto refusal = CheckInvoice(form)) return refusal;
  InvoiceForm saved = form;
  Transaction saving(business);
  if (saved.IsNew()) {
    saved.invoiceId = InsertInvoice(business);
    TakeJobsOfNewInvoice(business, saved);
    saved.forJob.reset();
    saved.jobsToAttach.clear();
  }
  WriteInvoice(business, saved);
  WriteOptions(business, saved);
  saving.Commit();
  business.PastCommands().Describe(
      QStringLiteral("Invoice %1, %2").arg(saved.number, saved.totalAmount.ToCurrencyText()));
  form = saved;
  return std::nullopt;
}

}  // namespace quillary::billing
