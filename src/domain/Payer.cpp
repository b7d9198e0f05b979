#include "domain/Payer.h"

namespace quillary {
namespace {

Sql ForTable(const char* pattern, const char* table) {
  return Sql(qUtf8Printable(QString::fromLatin1(pattern).arg(QLatin1StringView(table))));
}

std::optional<Id<Client>> FirstPayer(const Recordset& clients) {
  if (clients.EndOfFile()) return std::nullopt;
  const auto client = clients.Field(u"Client_ID").ToId<Client>();
  if (!client) return std::nullopt;
  return PayerFrom(*client, clients.Field(u"Billing_Client_ID"));
}

}  // namespace

Id<Client> PayerFrom(Id<Client> client, const Value& billingClientId) {
  return billingClientId.ToId<Client>().value_or(client);
}

std::optional<Id<Client>> PayerOf(Business& business, Id<Client> client) {
  return FirstPayer(business.RunSQL(
      Sql("SELECT Client_ID, Billing_Client_ID FROM Clients WHERE Client_ID = {}", client)));
}

std::optional<Id<Client>> PayerOf(Business& business, Id<Entry> entry) {
  return FirstPayer(
      business.RunSQL(Sql("SELECT Clients.Client_ID, Clients.Billing_Client_ID "
                          "FROM Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID "
                          "WHERE Diary.Diary_ID = {}",
                          entry)));
}

Sql IsPaidBy(const char* clients, Id<Client> payer) {
  return Sql("({} = {} OR ({} = {} AND ({} IS NULL OR {} = 0)))",
             ForTable("%1.Billing_Client_ID", clients), payer, ForTable("%1.Client_ID", clients),
             payer, ForTable("%1.Billing_Client_ID", clients),
             ForTable("%1.Billing_Client_ID", clients));
}

Sql PayerColumn(const char* clients) {
  return ForTable(
      "IIf(%1.Billing_Client_ID IS NULL OR %1.Billing_Client_ID = 0, %1.Client_ID, "
      "%1.Billing_Client_ID)",
      clients);
}

}  // namespace quillary
