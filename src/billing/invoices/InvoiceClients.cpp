#include "billing/invoices/InvoiceClients.h"

#include "domain/ClientStatus.h"

#include <algorithm>

namespace quillary::billing {

std::vector<lists::Choice<Client>> ListBilledClients(Business& business, BilledClients which,
                                                     std::optional<Id<Client>> also) {
  Sql statement("SELECT {} FROM Clients WHERE (Is_Billed_To = Yes",
                Sql(lists::kClientChoiceColumns));
  if (which == BilledClients::Active)
    statement = statement + Sql(" AND Status IN {}", StatusesOf(ClientGroup::Billed));
  statement = statement + Sql(")");
  if (also) statement = statement + Sql(" OR Client_ID = {}", also);
  return lists::ChoicesOfClients(business.RunSQL(statement + Sql(" ORDER BY Display_Name;")));
}

QString BilledClient::OutstandingWords() const {
  return QStringLiteral("Current outstanding amount is ") + (-accountBalance).ToCurrencyText();
}

std::optional<BilledClient> LoadBilledClient(Business& business, Id<Client> client) {
  const Recordset row = business.RunSQL(
      Sql("SELECT Display_Name, Account_Balance, Street_Number, Street, Suburb, Post_Code, "
          "InvoiceWithOutstanding, InvoiceWithNextJob, InvoiceWithUnpaidPastJobs, Status, "
          "Is_Billed_To FROM Clients WHERE Client_ID = {}",
          client));
  if (row.EndOfFile()) return std::nullopt;
  const QString name = row.Field(u"Display_Name").ToText();
  const bool isBilledTo = row.Field(u"Is_Billed_To").ToBool();
  const StoredClientStatus status(row.Field(u"Status").ToText());
  return BilledClient{
      .client = client,
      .displayName = name,
      .accountBalance = row.Field(u"Account_Balance").ToMoney(),
      .addressBlock =
          AddressBlock(name, row.Field(u"Street_Number").ToText(), row.Field(u"Street").ToText(),
                       row.Field(u"Suburb").ToText(), row.Field(u"Post_Code").ToText()),
      .options = {.showOutstanding = row.Field(u"InvoiceWithOutstanding").ToBool(),
                  .showNextJob = row.Field(u"InvoiceWithNextJob").ToBool(),
                  .withUnpaidPastJobs = row.Field(u"InvoiceWithUnpaidPastJobs").ToBool()},
      .isBilledTo = isBilledTo,
      .isListedAsActive = isBilledTo && status.IsIn(ClientGroup::Billed)};
}

QString AddressBlock(const QString& displayName, const QString& streetNumber, const QString& street,
                     const QString& suburb, const QString& postCode) {
  return displayName + u'\n' + streetNumber + u' ' + street + u'\n' + suburb + u' ' + postCode;
}

}  // namespace quillary::billing
