#pragma once

#include "clients/ClientList.h"

namespace quillary::clients {

struct FoundClient {
  Id<Client> client;
  QString name;
  QString address;  // empty when none is stored
};
struct FoundJob {
  Id<Entry> entry;
  QString words;  // "Job on 3 Nov 2026: LM, $55.00"
};

/// Finds clients and their jobs by what is typed, from wherever the user is. Reads the clients
/// once, those in the client list and the prospects; the jobs as they stand when asked for.
class ClientFinder {
 public:
  explicit ClientFinder(Business& business);

  /// Every word occurs in name, street, suburb or phone; names that begin so come first.
  std::vector<FoundClient> Clients(const QString& typed, size_t most) const;
  /// The next open job of the client and the last one that was done.
  std::vector<FoundJob> Jobs(Id<Client> client) const;

 private:
  Business& business_;
  ClientList listed_;
  ClientList prospects_;
};

}  // namespace quillary::clients
