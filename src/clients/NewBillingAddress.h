#pragma once

#include "base/Refusal.h"
#include "data/Business.h"
#include "domain/BillingWords.h"

#include <QString>

#include <optional>

/// A client that is only an address which others are billed at.
namespace quillary::clients {

struct BillingAddress {
  std::optional<Id<Client>> clientId;  // nothing while it is not stored
  QString billingName;
  QString firstName;
  QString surname;
  QString streetNumber;
  QString street;
  QString suburb;  // stored trimmed and in upper case
  QString postCode;
  QString phone1;
  QString phone2;
  QString email;
  QString fax;
  QString notes;
  StoredStatementType statementType;

  bool operator==(const BillingAddress&) const = default;
};

/// Nothing when there is no such client.
std::optional<BillingAddress> LoadBillingAddress(Business& business, Id<Client> client);
/// Refuses an empty billing name, then a missing statement type.
std::optional<Refusal> CheckBillingAddress(const BillingAddress& address);
/// Writes the address to Clients. A new one gets the status "Billing address" and its key, and
/// bills itself. Writes nothing when CheckBillingAddress() refuses. Throws WriteFailed, with
/// nothing written, when a stored one has gone meanwhile.
std::optional<Refusal> SaveBillingAddress(Business& business, BillingAddress& address);

}  // namespace quillary::clients
