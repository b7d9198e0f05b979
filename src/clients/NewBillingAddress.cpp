#include "clients/NewBillingAddress.h"

#include "domain/ClientStatus.h"
#include "domain/FixedLists.h"

namespace quillary::clients {
namespace {

Id<Client> InsertAddress(Business& business, const BillingAddress& address) {
  const Id<Client> client = business.InsertReturningKey<Client>(
      Sql("INSERT INTO Clients (Display_Name, Status, First_Name, Surname, Street_Number, Street, "
          "Suburb, Post_Code, Phone_1, Phone_2, Email, Fax, Notes, Statement_Type) "
          "VALUES ({}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {})",
          address.billingName, ClientStatus::BillingAddress, address.firstName, address.surname,
          address.streetNumber, address.street, address.suburb, address.postCode, address.phone1,
          address.phone2, address.email, address.fax, address.notes, address.statementType));
  // Without the mark of a bill-to party it could be chosen for nobody and would never be a debtor.
  business.Write(Sql("UPDATE Clients SET Billing_Client_ID = Client_ID, Is_Billed_To = Yes "
                     "WHERE Client_ID = {}",
                     client),
                 Rows::Exactly(1));
  return client;
}

void UpdateAddress(Business& business, const BillingAddress& address) {
  business.Write(
      Sql("UPDATE Clients SET Display_Name = {}, First_Name = {}, Surname = {}, "
          "Street_Number = {}, Street = {}, Suburb = {}, Post_Code = {}, Phone_1 = {}, "
          "Phone_2 = {}, Email = {}, Fax = {}, Notes = {}, Statement_Type = {} "
          "WHERE Client_ID = {}",
          address.billingName, address.firstName, address.surname, address.streetNumber,
          address.street, address.suburb, address.postCode, address.phone1, address.phone2,
          address.email, address.fax, address.notes, address.statementType, address.clientId),
      Rows::Exactly(1));
}

}  // namespace

std::optional<BillingAddress> LoadBillingAddress(Business& business, Id<Client> client) {
  const Recordset rows = business.RunSQL(Sql("SELECT * FROM Clients WHERE Client_ID = {}", client));
  if (rows.EndOfFile()) return std::nullopt;
  const auto text = [&](const char16_t* column) { return rows.Field(column).ToText(); };
  return BillingAddress{.clientId = client,
                        .billingName = text(u"Display_Name"),
                        .firstName = text(u"First_Name"),
                        .surname = text(u"Surname"),
                        .streetNumber = text(u"Street_Number"),
                        .street = text(u"Street"),
                        .suburb = text(u"Suburb"),
                        .postCode = text(u"Post_Code"),
                        .phone1 = text(u"Phone_1"),
                        .phone2 = text(u"Phone_2"),
                        .email = text(u"Email"),
                        .fax = text(u"Fax"),
                        .notes = text(u"Notes"),
                        .statementType = StoredStatementType(text(u"Statement_Type"))};
}

std::optional<Refusal> CheckBillingAddress(const BillingAddress& address) {
  if (address.billingName.trimmed().isEmpty())
    return Refusal{"Please enter the billing name.", "billingName"};
  if (!Lists().statementTypes.contains(address.statementType.Text(), Qt::CaseInsensitive))
    return Refusal{"Please select the statement type.", "statementType"};
  return std::nullopt;
}

std::optional<Refusal> SaveBillingAddress(Business& business, BillingAddress& address) {
  if (auto refusal = CheckBillingAddress(address)) return refusal;
  Transaction save(business);
  BillingAddress saved = address;
  saved.suburb = address.suburb.trimmed().toUpper();
  if (saved.clientId) {
    UpdateAddress(business, saved);
  } else {
    saved.clientId = InsertAddress(business, saved);
  }
  save.Commit();
  address = saved;
  return std::nullopt;
}

}  // namespace quillary::clients
