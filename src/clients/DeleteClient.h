#pragma once

#include "data/Business.h"

namespace quillary::clients {

/// Asks by the client's name, saying what goes with it, then deletes all record of the client: its
/// row, its services, its diary with the lines, its invoices with their items, its payments with
/// their ledger entries, and its quotes. Jobs of others come off its invoices and payments and keep
/// their status; deposits keep their totals. Its sites stay and go on naming it as who pays.
/// Recomputes what the client's payer owes. One transaction. False when the user declined.
bool DeleteClientAfterAsking(Business& business, Prompter& prompter, Id<Client> client);

}  // namespace quillary::clients
