#include "clients/ClientRecord.h"

#include "balances/ClientBalance.h"
#include "clients/ClientColumns.h"
#include "domain/EntryStatus.h"
#include "domain/Payer.h"

namespace quillary::clients {
namespace {

std::optional<QDate> DebtorSinceOf(const Value& value) {
  const auto since = value.ToDateTime();
  const DateTime zeroDate(QDate(1899, 12, 30));  // a field that held midnight and no date
  if (!since || *since <= zeroDate) return std::nullopt;
  return since->date;
}

ClientRecord RecordOf(Id<Client> id, const Record& row) {
  ClientRecord client;
  client.clientId = id;
  const Id<Client> payer = PayerFrom(id, row[u"Billing_Client_ID"]);
  if (payer != id) client.otherPayer = payer;
  for (const ClientColumn& column : ClientColumns()) column.Put(client, row[column.Name()]);
  client.debtorSince = DebtorSinceOf(row[u"Debtor_Since"]);
  client.accountBalance = row[u"Account_Balance"].ToMoney();
  return client;
}

/// The blank before the name puts a client whose save failed half way at the top of every list.
Id<Client> InsertClient(Business& business) {
  return business.InsertReturningKey<Client>(
      Sql("INSERT INTO Clients (Display_Name, First_Name, Surname) "
          "VALUES (' New client', ' New client', ' New client');"));
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
              client.IsBilledTo(), client.Payer(), client.requiresStatement, client.statementType,
              client.workCoverNumber, client.invoiceWithOutstanding, client.invoiceWithNextJob,
              client.invoiceWithUnpaidPastJobs, client.invoiceWithTelNo,
              client.statementWithPayments, client.workCoverLabel, client.privateNotes,
              client.debtorSince, client.clientId),
      Rows::Exactly(1));
}

/// A word typed in other letters is stored as the table spells it.
template <Vocabulary Word>
void SpellAsListed(Stored<Word>& word) {
  if (word.Known()) word = Stored<Word>(*word.Known());
}

/// What the user changed, on top of what stands in the file now.
ClientRecord WithChanges(ClientRecord inFile, const ClientRecord& client,
                         const ClientRecord& loaded) {
  for (const ClientColumn& column : ClientColumns()) {
    const Value value = column.Of(client);
    if (!(value == column.Of(loaded))) column.Put(inFile, value);
  }
  if (client.otherPayer != loaded.otherPayer) inFile.otherPayer = client.otherPayer;
  if (client.debtorSince != loaded.debtorSince) inFile.debtorSince = client.debtorSince;
  inFile.suburb = inFile.suburb.trimmed().toUpper();
  SpellAsListed(inFile.status);
  SpellAsListed(inFile.statementType);
  return inFile;
}

/// The client comes first, since its own figure becomes 0 when another pays.
void RecalculateAfterMove(Business& business, const ClientRecord& before,
                          const ClientRecord& after) {
  balances::RecalculateClientBalance(business, after.clientId);
  for (const auto& payer : {before.otherPayer, after.otherPayer})
    balances::RecalculateClientBalance(business, payer);
}

bool WeighsOtherwise(const ClientRecord& before, const ClientRecord& after) {
  return before.otherPayer != after.otherPayer || before.status.Is(ClientStatus::BillingAddress) !=
                                                      after.status.Is(ClientStatus::BillingAddress);
}

}  // namespace

QStringList InvoiceTypes() {
  return {TextOf(StatementType::WithJob), TextOf(StatementType::None),
          TextOf(StatementType::Monthly)};
}

ClientRecord NewClientRecord() {
  ClientRecord client;
  client.statementType = StatementType::WithJob;
  client.invoiceWithOutstanding = true;
  client.invoiceWithNextJob = true;
  return client;
}

std::optional<ClientRecord> LoadClientDetails(Business& business, Id<Client> client) {
  const Recordset rows = business.RunSQL(Sql("SELECT * FROM Clients WHERE Client_ID = {}", client));
  if (rows.EndOfFile()) return std::nullopt;
  return RecordOf(client, rows.Row(0));
}

void LoadBillingDetails(Business& business, ClientRecord& client) {
  const Recordset row = business.RunSQL(Sql(
      "SELECT Account_Balance, Debtor_Since FROM Clients WHERE Client_ID = {}", client.clientId));
  if (row.EndOfFile()) return;
  client.debtorSince = DebtorSinceOf(row.Field(u"Debtor_Since"));
  client.accountBalance = row.Field(u"Account_Balance").ToMoney();
}

void RefreshBillingDetails(Business& business, ClientRecord& client) {
  if (client.IsNew()) return;
  balances::RecalculateClientBalance(business, client.Payer());
  LoadBillingDetails(business, client);
}

std::optional<Refusal> CheckClientIsThere(Business& business, Id<Client> client) {
  if (business.RunSQL(Sql("SELECT Client_ID FROM Clients WHERE Client_ID = {}", client)).HasRows())
    return std::nullopt;
  return Refusal{QStringLiteral("This client was deleted in the meantime. Nothing was saved."), {}};
}

std::optional<Refusal> CheckClientDetails(const ClientRecord& client) {
  if (!client.status.IsIn(ClientGroup::OfferedByHand))
    return Refusal{"Please select a client status.", "status"};
  if (client.displayName.trimmed().isEmpty())
    return Refusal{"Please enter the Billing name/Display name.", "displayName"};
  if (!client.statementType.IsIn(StatementGroup::OfClients))
    return Refusal{"Please select the invoicing type.", "statementType"};
  return std::nullopt;
}

std::optional<Refusal> SaveClientDetails(Business& business, ClientRecord& client,
                                         const ClientRecord& loaded) {
  if (auto refusal = CheckClientDetails(client)) return refusal;
  if (!client.IsNew())
    if (auto refusal = CheckClientIsThere(business, *client.clientId)) return refusal;
  Transaction save(business);
  const Id<Client> id = client.IsNew() ? InsertClient(business) : *client.clientId;
  ClientRecord inFile = client.IsNew() ? loaded : *LoadClientDetails(business, id);
  inFile.clientId = id;
  ClientRecord saved = WithChanges(inFile, client, loaded);
  UpdateClient(business, saved);
  if (saved.status.Is(ClientStatus::Cancelled))
    business.Write(Sql("UPDATE Diary SET Status = {} WHERE Client_ID = {} AND Status = {};",
                       EntryStatus::JobCancelled, id, EntryStatus::JobOpen));
  if (!client.IsNew() && WeighsOtherwise(inFile, saved)) {
    RecalculateAfterMove(business, inFile, saved);
    LoadBillingDetails(business, saved);
  }
  save.Commit();
  client = saved;
  return std::nullopt;
}

ClientParts PartsOf(const ClientRecord& client) {
  ClientParts parts;
  parts.otherTabs = !client.IsNew();
  parts.schedule = !client.status.Is(ClientStatus::BillingAddress);
  parts.paymentNote = client.status.Is(ClientStatus::Active) && !client.IsBilledTo();
  parts.invoicesAndPayments = !parts.paymentNote;
  return parts;
}

}  // namespace quillary::clients
