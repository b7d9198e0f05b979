#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"
#include "domain/JobType.h"
#include "older/Copying.h"

/// Corporations, which are billed, and the clients where the work is done.
namespace quillary::older {

namespace {

/// The statement types have the same words on both sides; another one is told and left out.
std::optional<QString> StatementTypeOf(Copying& copying, const OlderRow& corp) {
  const QString word = corp.Text("Statement_Type");
  if (word.isEmpty()) return std::nullopt;
  if (const auto known = FromText<StatementType>(word)) return TextOf(*known);
  copying.receipt.troubles +=
      QStringLiteral("%1: there is no statement type \"%2\".").arg(corp.Name(), word);
  return std::nullopt;
}

Id<Client> InsertCorp(Copying& copying, const OlderRow& corp) {
  Business& business = copying.business;
  const auto type = StatementTypeOf(copying, corp);
  const auto key = business.InsertReturningKey<Client>(
      Sql("INSERT INTO Clients (Is_Billed_To, Status, Display_Name, First_Name, Street, Suburb, "
          "Post_Code, Phone_1, Fax, Email, Bank, Bank_Branch, Bank_Account_Name, Account_Balance, "
          "Last_Payment_Method, Statement_Type, Requires_Statement) VALUES (True, {}, {}, {}, {}, "
          "{}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {})",
          ClientStatus::BillingAddress, corp.Text("CorpName"), corp.Text("CorpContact"),
          corp.Text("CorpAddress"), corp.Text("Corp Suburb"), corp.Text("CorpPostcode"),
          corp.Text("CorpPhone"), corp.Text("CorpFax"), corp.Text("CorpEmail"),
          corp.Text("Corp_Bank_Name"), corp.Text("Corp_Branch_Name"),
          corp.Text("Corp_Bank_Acc_Name"), corp.Amount("Corp_Owing"), corp.Text("Payment_Type"),
          type, type && FromText<StatementType>(*type) == StatementType::Monthly));
  business.Write(
      Sql("UPDATE Clients SET Billing_Client_ID = Client_ID WHERE Client_ID = {}; ", key),
      Rows::Exactly(1));
  return key;
}

/// What a service is to be under a client of that status. The older product has but the client's.
JobType JobTypeOf(const OlderRow& client, qint64 frequency) {
  const StoredClientStatus status(client.Text("Status"));
  if (status.Is(ClientStatus::QuoteOnly)) return JobType::QuoteOnly;
  if (!status.Is(ClientStatus::Active)) return JobType::Cancelled;
  return frequency > 0 ? JobType::Regular : JobType::Casual;
}

void InsertService(Copying& copying, const OlderRow& client, Id<Client> key) {
  const auto service = copying.ServiceOf(client, "Normal_Job_Type");
  if (!service) return;
  Money price = client.Amount("Std_Price");
  if (client.Yes("Price_Is_Net")) price += client.Amount("GST_Std_Price");
  const qint64 frequency = client.Number("Current_Frequency").value_or(0);
  copying.business.Write(
      Sql("INSERT INTO Client_Services (Client_ID, Service_ID, Employee_ID, Status, Price, "
          "Frequency, Next_Visit, Estimated_Time, Preferred_Day, Preferred_Time, Notes) VALUES ("
          "{}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {})",
          key, service, copying.KeyIn(copying.employees, client, "TrailerID"),
          JobTypeOf(client, frequency), price, frequency, client.Day("Next_Job_Scheduled"),
          client.Number("Time_Est"), client.Text("Preferred_Day"), client.Text("Preferred_Time"),
          client.Text("Scheduling_ Notes")));
}

/// The row of a client: that of its corporation where it is the only one there, else one of its
/// own, billed to the corporation.
void CreateClient(Copying& copying, const OlderRow& client, Id<Client> party, bool merges) {
  Business& business = copying.business;
  const Id<Client> key =
      merges ? party
             : business.InsertReturningKey<Client>(
                   Sql("INSERT INTO Clients (Billing_Client_ID, Is_Billed_To) VALUES ({}, {})",
                       party, client.Yes("Bill_To")));
  const QString number =
      QStringLiteral("%1 %2").arg(client.Text("Unit"), client.Text("Number")).trimmed();
  business.Write(
      Sql("UPDATE Clients SET Display_Name = {}, First_Name = {}, Surname = {}, Street_Number = "
          "{}, Street = {}, Suburb = {}, Post_Code = {}, Map = {}, Phone_1 = {}, Phone_2 = {}, "
          "Notes = {}, Status = {} WHERE Client_ID = {}",
          client.Text("Client_Name"), client.Text("Given_Name"), client.Text("Family_Name"), number,
          client.Text("Street"), client.Text("Suburb_Name"), client.Text("PostCode"),
          client.Text("Melway"), client.Text("Phone"), client.Text("Phone2"),
          client.Text("General_Notes"), client.Text("Status"), key),
      Rows::Exactly(1));
  if (const auto old = client.Number("ClientID")) copying.clients.insert(*old, key.Number());
  InsertService(copying, client, key);
}

}  // namespace

void CopyClients(Copying& copying) {
  copying.business.Write(Sql("DELETE FROM Client_Services"));
  qint64 taken = 0;
  copying.Table(
      "Copying clients", "tblCorp", "Clients", [&](const OlderRow& corp) -> std::optional<QString> {
        const auto id = corp.Number("corpid");
        if (!id) return QStringLiteral("a corporation without its number");
        const Id<Client> party = InsertCorp(copying, corp);
        copying.parties.insert(*id, party.Number());
        copying.receipt.balances.push_back(
            {corp.Text("CorpName"), corp.Amount("Corp_Owing"), Money()});
        const qint64 sites = copying.source.CountWith("tblClients", "Corp_Name", *id);
        copying.source.ForEachWith("tblClients", "Corp_Name", *id, [&](const OlderRow& client) {
          CreateClient(copying, client, party, sites == 1);
          ++taken;
        });
        return std::nullopt;
      });
  // Those are passed over, and told, who belong to no corporation: nobody would be billed for them.
  TableReceipt& made = copying.receipt.tables.tables.emplace_back();
  made.table = QStringLiteral("tblClients to Clients");
  made.declared = made.read = copying.source.Count("tblClients");
  made.written = taken;
  made.rejected = made.read - taken;
  if (made.rejected > 0)
    copying.source.ForEach("tblClients", [&](const OlderRow& client) {
      const auto old = client.Number("ClientID");
      if (old && copying.clients.contains(*old)) return;
      made.rejections += QStringLiteral("%1, \"%2\", is of no corporation")
                             .arg(client.Name(), client.Text("Client_Name"));
    });
}

}  // namespace quillary::older
