#include "clients/ClientRecord.h"

#include "balances/ClientBalance.h"
#include "clients/ClientStatus.h"
#include "domain/EntryStatus.h"

namespace quillary::clients {
namespace {

std::optional<QDate> DebtorSinceOf(const Value& value) {
  const auto since = value.ToDateTime();
  const DateTime zeroDate(QDate(1899, 12, 30));  // a field that held midnight and no date
  if (!since || *since <= zeroDate) return std::nullopt;
  return since->date;
}

ClientRecord RecordOf(const Record& row) {
  const auto text = [&](const char16_t* column) { return row[column].ToText(); };
  const auto yes = [&](const char16_t* column) { return row[column].ToBool(); };
  ClientRecord client;
  client.clientId = row[u"Client_ID"].ToLong();
  const qint64 billed = row[u"Billing_Client_ID"].ToLong();
  client.billingClientId = billed == 0 ? client.clientId : billed;
  client.displayName = text(u"Display_Name");
  client.firstName = text(u"First_Name");
  client.surname = text(u"Surname");
  client.status = text(u"Status");
  client.streetNumber = text(u"Street_Number");
  client.street = text(u"Street");
  client.suburb = text(u"Suburb");
  client.postCode = text(u"Post_Code");
  client.map = text(u"Map");
  client.phone1 = text(u"Phone_1");
  client.phone2 = text(u"Phone_2");
  client.fax = text(u"Fax");
  client.email = text(u"Email");
  client.notes = text(u"Notes");
  client.privateNotes = text(u"Private_Notes");
  client.requiresStatement = yes(u"Requires_Statement");
  client.statementType = text(u"Statement_Type");
  client.workCoverNumber = text(u"Work_Cover_Number");
  client.workCoverLabel = text(u"WorkCoverLabel");
  client.invoiceWithOutstanding = yes(u"InvoiceWithOutstanding");
  client.invoiceWithNextJob = yes(u"InvoiceWithNextJob");
  client.invoiceWithUnpaidPastJobs = yes(u"InvoiceWithUnpaidPastJobs");
  client.invoiceWithTelNo = yes(u"InvoiceWithTelNo");
  client.statementWithPayments = yes(u"StatementWithPayments");
  client.debtorSince = DebtorSinceOf(row[u"Debtor_Since"]);
  client.accountBalance = row[u"Account_Balance"].ToMoney();
  return client;
}

/// The blank before the name puts a client whose save failed half way at the top of every list.
qint64 InsertClient(Business& business) {
  return business
      .InsertReturningKey<Client>(Sql("INSERT INTO Clients (Display_Name, First_Name, Surname) "
                                      "VALUES (' New client', ' New client', ' New client');"))
      .Number();
}

void UpdateClient(Business& business, const ClientRecord& client) {
  business.Write(
      Sql("UPDATE Clients SET Display_Name = {}, First_Name = {}, Surname = {}, Status = {}, "
          "Street_Number = {}, Street = {}, Suburb = {}, Post_Code = {}, Map = {}, "
          "Phone_1 = {}, Phone_2 = {}, Fax = {}, Email = {}, Notes = {}, ",
          client.displayName, client.firstName, client.surname, client.status, client.streetNumber,
          client.street, client.suburb, client.postCode, client.map, client.phone1, client.phone2,
          client.fax, client.email, client.notes) +
          Sql("Is_Billed_To = {}, Billing_Client_ID = {}, Requires_Statement = {}, "
              "Statement_Type = {}, Work_Cover_Number = {}, InvoiceWithOutstanding = {}, "
              "InvoiceWithNextJob = {}, InvoiceWithUnpaidPastJobs = {}, InvoiceWithTelNo = {}, "
              "StatementWithPayments = {}, WorkCoverLabel = {}, Private_Notes = {}, "
              "Debtor_Since = {} WHERE Client_ID = {}; ",
              client.IsBilledTo(), client.billingClientId, client.requiresStatement,
              client.statementType, client.workCoverNumber, client.invoiceWithOutstanding,
              client.invoiceWithNextJob, client.invoiceWithUnpaidPastJobs, client.invoiceWithTelNo,
              client.statementWithPayments, client.workCoverLabel, client.privateNotes,
              client.debtorSince, client.clientId),
      Rows::Exactly(1));
}

}  // namespace

ClientRecord NewClientRecord() {
  ClientRecord client;
  client.statementType = InvoiceTypes().first();
  client.invoiceWithOutstanding = true;
  client.invoiceWithNextJob = true;
  return client;
}

std::optional<ClientRecord> LoadClientDetails(Business& business, qint64 clientId) {
  const Recordset rows =
      business.RunSQL(Sql("SELECT * FROM Clients WHERE Client_ID = {}", clientId));
  if (!rows.HasRows()) return std::nullopt;
  return RecordOf(rows.Row(0));
}

void LoadBillingDetails(Business& business, ClientRecord& client) {
  if (client.IsNew()) return;
  balances::RecalculateClientBalance(business, Id<Client>(client.billingClientId));
  const Recordset rows = business.RunSQL(Sql(
      "SELECT Account_Balance, Debtor_Since FROM Clients WHERE Client_ID = {}", client.clientId));
  if (!rows.HasRows()) return;
  client.debtorSince = DebtorSinceOf(rows.Field(u"Debtor_Since"));
  client.accountBalance = rows.Field(u"Account_Balance").ToMoney();
}

namespace {

/// The list's own spelling of a word that was typed in other letters.
QString AsListed(const QStringList& list, const QString& word) {
  for (const QString& listed : list) {
    if (listed.compare(word, Qt::CaseInsensitive) == 0) return listed;
  }
  return word;
}

}  // namespace

std::optional<Refusal> CheckClientDetails(const ClientRecord& client) {
  if (!OfferedClientStatuses().contains(client.status, Qt::CaseInsensitive)) {
    return Refusal{QStringLiteral("Please select a client status."), QStringLiteral("cmbStatus")};
  }
  if (client.displayName.trimmed().isEmpty()) {
    return Refusal{QStringLiteral("Please enter the Billing name/Display name."),
                   QStringLiteral("txtDisplayName")};
  }
  if (!InvoiceTypes().contains(client.statementType, Qt::CaseInsensitive)) {
    return Refusal{QStringLiteral("Please select the invoicing type."),
                   QStringLiteral("cmbInvoiceType")};
  }
  return std::nullopt;
}

std::optional<Refusal> CheckClientIsThere(Business& business, qint64 clientId) {
  if (clientId == kNewClient ||
      business.RunSQL(Sql("SELECT Client_ID FROM Clients WHERE Client_ID = {}", clientId))
          .HasRows())
    return std::nullopt;
  return Refusal{QStringLiteral("This client was deleted in the meantime. Nothing was saved."), {}};
}

std::optional<Refusal> SaveClientDetails(Business& business, ClientRecord& client) {
  if (auto refusal = CheckClientDetails(client)) return refusal;
  if (auto refusal = CheckClientIsThere(business, client.clientId)) return refusal;
  Transaction save(business);
  ClientRecord saved = client;
  saved.suburb = client.suburb.trimmed().toUpper();
  saved.status = AsListed(OfferedClientStatuses(), client.status);
  saved.statementType = AsListed(InvoiceTypes(), client.statementType);
  if (saved.IsNew()) {
    saved.clientId = InsertClient(business);
    if (client.IsBilledTo()) saved.billingClientId = saved.clientId;
  }
  UpdateClient(business, saved);
  if (saved.status.toUpper() == u"CANCELLED") {
    business.Write(Sql("UPDATE Diary SET Status = {} WHERE Client_ID = {} AND Status = {};",
                       EntryStatus::JobCancelled, saved.clientId, EntryStatus::JobOpen));
  }
  save.Commit();
  client = saved;
  return std::nullopt;
}

}  // namespace quillary::clients
