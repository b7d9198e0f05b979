#pragma once

#include "data/Business.h"

/// The tax of everything that is stored, computed anew at today's rate. There is no rate of a date,
/// so records of past years change with it.
namespace quillary::accounts {

/// Rewrites the tax of payments, purchases, jobs with their services, ledger entries and invoices
/// with their items: amount × (rate / (1 + rate)), to the four decimals that a currency keeps; 0
/// for exempt payments and purchases and for their ledger entries. One transaction.
void RecalculateGSTOfAllRecords(Business& business);

/// Makes the tax of every ledger entry of an exempt payment or purchase 0.
void ZeroTaxOfExemptLedgerEntries(Business& business);

/// The menu command: asks by the formula, recomputes under the busy pointer, and tells when it is
/// done. False when the user declined.
bool RecalculateGSTAfterAsking(Business& business, Prompter& prompter);

}  // namespace quillary::accounts
