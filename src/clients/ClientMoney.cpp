#include "clients/ClientMoney.h"

#include "domain/EntryStatus.h"
namespace quillary::clients {

std::vector<ClientInvoice> LoadClientInvoices(Business& business, qint64 clientId) {
  std::vector<ClientInvoice> invoices;
  const Recordset rows =
      business.RunSQL(Sql("SELECT Invoice_ID, Invoice_Number, Generation_Date, From_Date, To_Date, "
                          "Invoice_Description, Total_Amount, Statement_Type, IsPaid FROM Invoices "
                          "WHERE Client_ID = {} ORDER BY Generation_Date DESC, Invoice_ID DESC",
                          clientId));
  for (const Record row : rows) {
    invoices.push_back({row[u"Invoice_ID"].ToLong(), row[u"Invoice_Number"].ToText(),
                        row[u"Generation_Date"].ToDate(), row[u"From_Date"].ToDate(),
                        row[u"To_Date"].ToDate(), row[u"Invoice_Description"].ToText(),
                        row[u"Total_Amount"].ToMoney(), row[u"Statement_Type"].ToText(),
                        row[u"IsPaid"].ToBool()});
  }
  return invoices;
}

std::vector<ClientPayment> LoadClientPayments(Business& business, qint64 clientId) {
  std::vector<ClientPayment> payments;
  const Recordset rows = business.RunSQL(
      Sql("SELECT Payment_ID, Payment_Date, Amount, Payment_Method, Description FROM Payments "
          "WHERE Client_ID = {} ORDER BY Payment_Date DESC, Payment_ID DESC",
          clientId));
  for (const Record row : rows) {
    payments.push_back({row[u"Payment_ID"].ToLong(), row[u"Payment_Date"].ToDate(),
                        row[u"Amount"].ToMoney(), row[u"Payment_Method"].ToText(),
                        row[u"Description"].ToText()});
  }
  return payments;
}

std::optional<Refusal> TransferPayments(Business& business, Prompter& prompter,
                                        const std::vector<qint64>& paymentIds,
                                        std::optional<qint64> toClientId) {
  if (!toClientId) {
    return Refusal{QStringLiteral("Please select a client first."),
                   QStringLiteral("cmbTransferTo")};
  }
  const QString name =
      business.FirstField(Sql("SELECT Display_Name FROM Clients WHERE Client_ID = {}", *toClientId))
          .ToText();
  const Answer answer = prompter.Ask(
      QStringLiteral("Are you sure you want to transfer the payments listed above to ") + name +
      u'?');
  if (answer != Answer::Yes) return std::nullopt;
  Transaction transfer(business);
  for (const qint64 paymentId : paymentIds)
    business.Write(
        Sql("UPDATE Payments SET Client_ID = {} WHERE Payment_ID = {};", *toClientId, paymentId),
        Rows::Exactly(1));
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
                                           std::optional<qint64> invoiceId) {
  if (!invoiceId) return Refusal{QStringLiteral("Please select an invoice record to delete."), {}};
  const Answer answer =
      prompter.AskBeforeLosing(QStringLiteral("Are you sure you want to delete this invoice?"));
  if (answer != Answer::Yes) return std::nullopt;
  Transaction deletion(business);
  business.Write(Sql("UPDATE Diary SET Invoice_ID = NULL, Status = {} WHERE Invoice_ID = {}",
                     EntryStatus::JobDone, *invoiceId));
  business.Write(Sql("DELETE FROM Invoices WHERE Invoice_ID = {}", *invoiceId), Rows::Exactly(1));
  business.Write(Sql("DELETE FROM Invoice_Items WHERE Invoice_ID = {}", *invoiceId));
  deletion.Commit();
  return std::nullopt;
}

}  // namespace quillary::clients
