#include "clients/BillingChoice.h"

namespace quillary::clients {
namespace {

bool HasPayments(Business& business, std::optional<Id<Client>> client) {
  return business
      .RunSQL(Sql("SELECT TOP 1 Payment_ID FROM Payments WHERE Client_ID = {} ORDER BY Payment_ID",
                  client))
      .HasRows();
}

}  // namespace

QStringList BillingChoiceWords() {
  return {QStringLiteral("Bill the same address"), QStringLiteral("Bill an existing address"),
          QStringLiteral("Bill a new address")};
}

BillingChoice BillingChoiceOf(const ClientRecord& client) {
  return client.IsBilledTo() ? BillingChoice::SameAddress : BillingChoice::ExistingAddress;
}

void BillSameAddress(ClientRecord& client) {
  client.otherPayer.reset();
}

void BillExistingAddress(Business& business, Prompter& prompter, ClientRecord& client,
                         Id<Client> payer) {
  client.otherPayer = payer;
  if (!HasPayments(business, client.clientId)) return;
  prompter.Tell(Tone::Information,
                QStringLiteral("Please note that you might need to manually transfer the existing "
                               "payment record(s) of this client to the new billed client.\n"
                               "You can use the Transfer payments under the Functions option."));
}

void TakeNewBillingAddress(Business& business, Prompter& prompter, ClientRecord& client,
                           std::optional<Id<Client>> made) {
  if (made)
    BillExistingAddress(business, prompter, client, *made);
  else
    BillSameAddress(client);
}

QString SampleBillingAddress(const ClientRecord& client) {
  return QStringLiteral("%1\n%2 %3\n%4 %5")
      .arg(client.displayName, client.streetNumber, client.street, client.suburb, client.postCode);
}

QString UpdateBillingName(Business& business, const QString& firstName, const QString& surname) {
  const QString order =
      business.World().settings.Read(QStringLiteral("Display Format"),
                                     QStringLiteral("Billing Name Format"), QStringLiteral("FS"));
  const QString name = order == u"FS" ? firstName + u' ' + surname : surname + u' ' + firstName;
  return name.trimmed();  // a company has no surname
}

}  // namespace quillary::clients
