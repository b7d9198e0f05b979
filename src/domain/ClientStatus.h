#pragma once

#include "domain/Hue.h"
#include "domain/Vocabulary.h"

namespace quillary {

/// Where a client stands. Only active ones are worked for; a billing address is a payer without
/// jobs of its own; the two quote statuses are prospects.
enum class ClientStatus {
  Active,
  BadDebtor,
  BillingAddress,
  Cancelled,
  QuoteOnly,
  QuoteRejected,
  Transferred,
};

enum class ClientGroup {
  OfferedByHand,  // on the screen of a client
  Billed,         // get invoices, one by one or by a run
  MayPay,         // whose payments are taken
  ActiveDebtors,  // listed when the lists of balances show active clients only
  Scheduled,      // whose diary the roll makes again
  LosesFuture,    // whose future the roll takes away
  NotInDebtors,   // left out of the printed list of debtors
};

struct ClientStatusFacts {
  ClientStatus value;
  QStringView word;
  Hue hue;
  unsigned colour;  // 0xRRGGBB, of the swatch beside the word in a list
  Groups<ClientGroup> groups;
};
std::span<const ClientStatusFacts> TableOf(ClientStatus);

using StoredClientStatus = Stored<ClientStatus>;

/// "('Active', 'Billing address')" for a statement.
inline Sql StatusesOf(ClientGroup group) {
  return ListOf<ClientStatus>(group);
}

/// Holds in a statement for all but prospects, whose words all begin alike.
Sql IsNoProspect(const char* column);

/// Neutral for a word that nobody knows.
Hue HueOf(const StoredClientStatus& status);
/// White for a word without a colour.
unsigned ColourOf(const StoredClientStatus& status);

}  // namespace quillary
