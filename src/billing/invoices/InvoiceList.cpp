#include "billing/invoices/InvoiceList.h"

#include "base/Text.h"
#include "domain/ClientStatus.h"

namespace quillary::billing {
namespace {

Sql Selection(const InvoiceListQuery& query) {
  const Sql days("AND Generation_Date BETWEEN {} AND {} ", query.days.from,
                 EndOfDay(query.days.to));
  const Sql rows(
      "SELECT Clients.Display_Name, Invoices.* FROM Invoices INNER JOIN Clients "
      "ON Invoices.Client_ID = Clients.Client_ID ");
  const Sql order("ORDER BY Generation_Date DESC, Display_Name, Invoice_ID DESC; ");
  if (!query.monthlyOnly)
    return rows + Sql("WHERE Invoices.Statement_Type <> 'Statement' ") + days + order;
  return rows + Sql("WHERE Invoices.Statement_Type = 'Monthly' AND Clients.Status IN ") +
         StatusesOf(ClientGroup::Billed) +
         Sql(" AND Clients.Is_Billed_To = Yes AND Clients.Statement_Type = 'Monthly' ") + days +
         order;
}

}  // namespace

InvoiceListQuery InvoicesOfMonth(QDate today, bool monthlyOnly) {
  return {.days = DateRange::MonthOf(today), .monthlyOnly = monthlyOnly};
}

QString InvoiceListRow::IsPaidWord() const {
  return isPaid ? QStringLiteral("Yes") : QStringLiteral("No");
}

std::vector<InvoiceListRow> LoadInvoicesList(Business& business, const InvoiceListQuery& query) {
  std::vector<InvoiceListRow> invoices;
  for (const Record row : business.RunSQL(Selection(query))) {
    invoices.push_back({.invoiceId = Id<Invoice>(row[u"Invoice_ID"].ToLong()),
                        .clientId = Id<Client>(row[u"Client_ID"].ToLong()),
                        .displayName = row[u"Display_Name"].ToText(),
                        .generationDate = row[u"Generation_Date"].ToDate(),
                        .description = row[u"Invoice_Description"].ToText(),
                        .totalAmount = row[u"Total_Amount"].ToMoney(),
                        .invoiceNumber = row[u"Invoice_Number"].ToText(),
                        .statementType = row[u"Statement_Type"].ToText(),
                        .isPaid = row[u"IsPaid"].ToBool()});
  }
  return invoices;
}

std::optional<Refusal> CheckInvoiceSelected(std::optional<Id<Invoice>> invoiceId) {
  if (invoiceId) return std::nullopt;
  return Refusal{"Please select an invoice.", "invoices"};
}

void DeleteInvoices(Business& business, const std::vector<Id<Invoice>>& invoiceIds) {
  Transaction deletion(business);
  for (const Id<Invoice> invoiceId : invoiceIds) {
    business.Write(Sql("DELETE FROM Invoices WHERE Invoice_ID = {}", invoiceId), Rows::Exactly(1));
    business.Write(Sql("DELETE FROM Invoice_Items WHERE Invoice_ID = {}", invoiceId));
    business.Write(Sql("UPDATE Diary SET Invoice_ID = NULL WHERE Invoice_ID = {}", invoiceId));
  }
  deletion.Commit();
}

bool DeleteTickedInvoices(Business& business, Prompter& prompter,
                          const std::vector<InvoiceListRow>& ticked) {
  if (ticked.empty()) {
    prompter.Tell(Tone::Exclamation, QStringLiteral("Please tick the invoices to delete."));
    return false;
  }
  std::vector<Id<Invoice>> invoices;
  Money total;
  for (const InvoiceListRow& invoice : ticked) {
    invoices.push_back(invoice.invoiceId);
    total += invoice.totalAmount;
  }
  const QString counted = Counted(ticked.size(), "invoice");
  const Answer answer = prompter.AskBeforeLosing(
      QStringLiteral("Are you sure you want to delete ticked invoices \n\n%1, %2")
          .arg(counted, total.ToCurrencyText()));
  if (answer != Answer::Yes) return false;
  DeleteInvoices(business, invoices);
  business.PastCommands().Describe(QStringLiteral("Deleted: ") + counted);
  return true;
}

InvoiceListCriteria InvoiceListOfMonth(QDate today) {
  return {.days = DateRange::MonthOf(today)};
}

}  // namespace quillary::billing
