#include "clients/NewBillingAddress.h"

#include "domain/ClientStatus.h"
#include "domain/FixedLists.h"

namespace quillary::clients {
namespace {

qint64 InsertAddress(Business& business, const BillingAddress& address) {
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
  return client.Number();
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

std::optional<BillingAddress> LoadBillingAddress(Business& business, qint64 clientId) {
  const Recordset rows =
      business.RunSQL(Sql("SELECT * FROM Clients WHERE Client_ID = {}", clientId));
  if (!rows.HasRows()) return std::nullopt;
  const auto text = [&](const char16_t* column) { return rows.Field(column).ToText(); };
  return BillingAddress{clientId,         text(u"Display_Name"),  text(u"First_Name"),
                        text(u"Surname"), text(u"Street_Number"), text(u"Street"),
                        text(u"Suburb"),  text(u"Post_Code"),     text(u"Phone_1"),
                        text(u"Phone_2"), text(u"Email"),         text(u"Fax"),
                        text(u"Notes"),   text(u"Statement_Type")};
}

std::optional<Refusal> CheckBillingAddress(const BillingAddress& address) {
  if (address.billingName.trimmed().isEmpty()) {
    return Refusal{"Please enter the billing name.", "txtBillingName"};
  }
  if (!Lists().statementTypes.contains(address.statementType, Qt::CaseInsensitive)) {
    return Refusal{"Please select the statement type.", "cmbStatementType"};
  }
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
