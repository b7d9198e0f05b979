#pragma once

#include "base/Id.h"
#include "data/Business.h"

#include <vector>

namespace quillary::mail {

/// An address to which a document of a client can go.
struct ClientAddress {
  Id<Client> client;
  QString name;     // of the client
  QString address;  // one; a client with several is listed several times
};

/// The addresses of these clients and of those who are billed to them, the clients themselves
/// first.
std::vector<ClientAddress> LoadClientEmail(Business& business,
                                           const std::vector<Id<Client>>& clients);
/// Those of everybody who has one, by name: for a report that is about nobody in particular.
std::vector<ClientAddress> LoadAllEmail(Business& business);
/// Whom the invoices are made out to, each once.
std::vector<Id<Client>> ClientsOfInvoices(Business& business,
                                          const std::vector<Id<Invoice>>& invoices);
/// The invoices that are selected for printing.
std::vector<Id<Invoice>> SelectedForPrinting(Business& business);

}  // namespace quillary::mail
