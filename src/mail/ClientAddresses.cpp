#include "mail/ClientAddresses.h"

#include "mail/Message.h"

#include <algorithm>

namespace quillary::mail {
namespace {

void AddRows(const Recordset& rows, std::vector<ClientAddress>& list) {
  for (const Record row : rows) {
    const Id<Client> client(row[u"Client_ID"].ToLong());
    for (const QString& address : AddressesIn(row[u"Email"].ToText())) {
      const bool known = std::ranges::any_of(list, [&](const ClientAddress& one) {
        return one.address.compare(address, Qt::CaseInsensitive) == 0 && one.client == client;
      });
      if (!known) list.push_back({client, row[u"Display_Name"].ToText(), address});
    }
  }
}

}  // namespace

std::vector<ClientAddress> LoadClientEmail(Business& business,
                                           const std::vector<Id<Client>>& clients) {
  std::vector<ClientAddress> list;
  for (const Id<Client> client : clients)
    AddRows(business.RunSQL(Sql(
                "SELECT Client_ID, Display_Name, Email FROM Clients WHERE Client_ID = {}", client)),
            list);
  for (const Id<Client> client : clients)
    AddRows(business.RunSQL(Sql("SELECT Client_ID, Display_Name, Email FROM Clients WHERE "
                                "Billing_Client_ID = {} ORDER BY Display_Name",
                                client)),
            list);
  return list;
}

std::vector<ClientAddress> LoadAllEmail(Business& business) {
  std::vector<ClientAddress> list;
  AddRows(business.RunSQL(Sql("SELECT Client_ID, Display_Name, Email FROM Clients WHERE Email IS "
                              "NOT NULL ORDER BY Display_Name")),
          list);
  return list;
}

std::vector<Id<Client>> ClientsOfInvoices(Business& business,
                                          const std::vector<Id<Invoice>>& invoices) {
  std::vector<Id<Client>> clients;
  for (const Id<Invoice> invoice : invoices) {
    const Value client =
        business.FirstField(Sql("SELECT Client_ID FROM Invoices WHERE Invoice_ID = {}", invoice));
    if (client.IsNull()) continue;
    const Id<Client> id(client.ToLong());
    if (std::ranges::find(clients, id) == clients.end()) clients.push_back(id);
  }
  return clients;
}

std::vector<Id<Invoice>> SelectedForPrinting(Business& business) {
  std::vector<Id<Invoice>> invoices;
  for (const Record row : business.RunSQL(Sql("SELECT Invoice_ID FROM lstInvoicesToPrint;")))
    invoices.emplace_back(row[u"Invoice_ID"].ToLong());
  return invoices;
}

}  // namespace quillary::mail
