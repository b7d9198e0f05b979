#pragma once

#include "data/Business.h"

namespace quillary::accounts {

/// How many services of paid jobs the repair would look at.
int CountRevenueToUpdate(Business& business);

/// Gives the ledger entries of payments that have no account the default one of the services paid
/// for. Where any paid job has services it throws NoCurrentRecord at the first of them: what the
/// repair reads of a row is not among what it selects. That is kept, since what it would do to a
/// split that is already right was never settled.
void UpdateRevenueAccounts(Business& business);

/// The menu command: asks, updates, tells. False when the user declined.
bool UpdateRevenueAccountsAfterAsking(Business& business, Prompter& prompter);

}  // namespace quillary::accounts
