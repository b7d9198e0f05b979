#pragma once

#include "data/Business.h"

#include <optional>

/// Who pays for a client: the one whom Clients.Billing_Client_ID names. Where it names nobody, as
/// files of earlier times do by null or 0, the client pays for itself, like one who names itself.
namespace quillary {

/// From a row that was read.
Id<Client> PayerFrom(Id<Client> client, const Value& billingClientId);

/// Nothing when there is no such client.
std::optional<Id<Client>> PayerOf(Business& business, Id<Client> client);
/// Who pays for the work of an entry; nothing when there is no such entry, or nobody's.
std::optional<Id<Client>> PayerOf(Business& business, Id<Entry> entry);

/// Holds for the rows of Clients, under the name that they have in the statement, that the payer
/// pays for: its whole billing group, itself included unless another pays for it.
Sql IsPaidBy(const char* clients, Id<Client> payer);
/// The payer of a row as a value in a statement, for joins over all payers at once. Slower than
/// IsPaidBy(), since no index knows it.
Sql PayerColumn(const char* clients);

}  // namespace quillary
