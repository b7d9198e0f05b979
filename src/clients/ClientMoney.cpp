#include "clients/ClientMoney.h"

#include "balances/ClientBalance.h"
#include "base/Text.h"
#include "domain/EntryStatus.h"
#include "domain/Payer.h"

#include <set>

namespace quillary::clients {
namespace {

/// Who pays for the jobs of the invoice that did not count as done, and will.
std::set<Id<Client>> PayersOfUndoneJobs(Business& business, Id<Invoice> invoice) {
  std::set<Id<Client>> payers;
  for (const Record row :
       business.RunSQL(Sql("SELECT Diary_ID FROM Diary WHERE Invoice_ID = {} AND Status NOT IN {}",
                           invoice, CodesOf(EntryGroup::WorkDone)))) {
    if (const auto payer = PayerOf(business, Id<Entry>(row[u"Diary_ID"].ToLong())))
      payers.insert(*payer);
  }
  return payers;
}

}  // namespace

std::vector<ClientInvoice> LoadClientInvoices(Business& business, Id<Client> client) {
  std::vector<ClientInvoice> invoices;
  const Recordset rows =
      business.RunSQL(Sql("SELECT Invoice_ID, Invoice_Number, Generation_Date, From_Date, To_Date, "
                          "Invoice_Description, Total_Amount, Statement_Type, IsPaid FROM Invoices "
                          "WHERE Client_ID = {} ORDER BY Generation_Date DESC, Invoice_ID DESC",
                          client));
  for (const Record row : rows) {
    invoices.push_back({Id<Invoice>(row[u"Invoice_ID"].ToLong()), row[u"Invoice_Number"].ToText(),
                        row[u"Generation_Date"].ToDate(), row[u"From_Date"].ToDate(),
                        row[u"To_Date"].ToDate(), row[u"Invoice_Description"].ToText(),
                        row[u"Total_Amount"].ToMoney(), row[u"Statement_Type"].ToText(),
                        row[u"IsPaid"].ToBool()});
  }
  return invoices;
}

std::vector<ClientPayment> LoadClientPayments(Business& business, Id<Client> client) {
  std::vector<ClientPayment> payments;
  const Recordset rows = business.RunSQL(
      Sql("SELECT Payment_ID, Payment_Date, Amount, Payment_Method, Description FROM Payments "
          "WHERE Client_ID = {} ORDER BY Payment_Date DESC, Payment_ID DESC",
          client));
  for (const Record row : rows) {
    payments.push_back({Id<Payment>(row[u"Payment_ID"].ToLong()), row[u"Payment_Date"].ToDate(),
                        row[u"Amount"].ToMoney(), row[u"Payment_Method"].ToText(),
                        row[u"Description"].ToText()});
  }
  return payments;
}

std::optional<Refusal> TransferPayments(Business& business, Prompter& prompter, Id<Client> from,
                                        const std::vector<ClientPayment>& payments,
                                        std::optional<Id<Client>> to) {
  if (!to) return Refusal{"Please select a client first.", "transferTo"};
  const Value name =
      business.FirstField(Sql("SELECT Display_Name FROM Clients WHERE Client_ID = {}", to));
  Money sum;
  for (const ClientPayment& payment : payments) sum += payment.amount;
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you sure you want to transfer the payments listed above to %1?\n\n%2, %3")
          .arg(name.ToText(), Counted(payments.size(), "payment"), sum.ToCurrencyText()));
  if (answer != Answer::Yes) return std::nullopt;
  Transaction transfer(business);
  for (const ClientPayment& payment : payments)
    business.Write(
        Sql("UPDATE Payments SET Client_ID = {} WHERE Payment_ID = {};", to, payment.payment),
        Rows::Exactly(1));
  balances::RecalculateClientAndPayer(business, from);
  balances::RecalculateClientAndPayer(business, to);
  transfer.Commit();
  return std::nullopt;
}

bool MayAddPaymentWithoutJob(Prompter& prompter) {
  return prompter.Ask(QStringLiteral(
             "You are adding a payment that is not going to be attached to a job and hence will "
             "not reflect correctly in your P&L report. \nIf is advised you first create a invoice "
             "for the job and then add the payment to a job \n so that tha job and the invoice are "
             "both marked as paid. Do you wish to proceed?")) == Answer::Yes;
}

std::optional<Refusal> DeleteClientInvoice(Business& business, Prompter& prompter,
                                           std::optional<Id<Invoice>> invoice) {
  if (!invoice) return Refusal{"Please select an invoice record to delete.", {}};
  const Answer answer =
      prompter.AskBeforeLosing(QStringLiteral("Are you sure you want to delete this invoice?"));
  if (answer != Answer::Yes) return std::nullopt;
  Transaction deletion(business);
  const std::set<Id<Client>> payers = PayersOfUndoneJobs(business, *invoice);
  business.Write(Sql("UPDATE Diary SET Invoice_ID = NULL, Status = {} WHERE Invoice_ID = {}",
                     EntryStatus::JobDone, invoice));
  business.Write(Sql("DELETE FROM Invoices WHERE Invoice_ID = {}", invoice), Rows::Exactly(1));
  business.Write(Sql("DELETE FROM Invoice_Items WHERE Invoice_ID = {}", invoice));
  for (const Id<Client> payer : payers) balances::RecalculateClientBalance(business, payer);
  deletion.Commit();
  return std::nullopt;
}

}  // namespace quillary::clients
