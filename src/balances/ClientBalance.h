#pragma once

#include "data/Business.h"
#include "domain/ClientStatus.h"

#include <optional>

/// What each client owes. A balance is no running ledger: it is computed anew from the prices of
/// done jobs and the amounts of payments, over the billing group (a client and all who are billed
/// to it), and kept in Clients.Account_Balance. It has the sign of a bank account: negative is a
/// debt of the client. Invoices and the link between a job and its payment play no part in it.
namespace quillary::balances {

struct ClientBillingInfo {
  Id<Client> payer;
  StoredClientStatus status;
};
/// Nothing when there is no such client.
std::optional<ClientBillingInfo> GetClientBillingInfo(Business& business, Id<Client> client);

/// Computes and stores what the client's group owes, and refreshes since when the client is a
/// debtor. Does nothing for nobody, nor for a client who is gone. Three kinds of client, which
/// differ on purpose:
/// - One who pays for itself: jobs of the whole group, but payments recorded under itself only.
/// - A billing address: jobs and payments of the whole group.
/// - One who is billed to another: its own balance becomes 0, the other's is computed as for a
///   billing address and stored without rounding; since when the other is a debtor stays as it was.
/// In the first two each sum is rounded to cents, half to even, before they are subtracted.
/// Throws WriteFailed, with nothing changed.
void RecalculateClientBalance(Business& business, std::optional<Id<Client>> client);

/// RecalculateClientBalance() of a client and then of who pays for it, when that is another: for
/// where the payer is to know since when it is a debtor, too.
void RecalculateClientAndPayer(Business& business, std::optional<Id<Client>> client);

/// Clients.Debtor_Since follows the stored balance: none without a debt, today for a new debt, and
/// for a debt that has a date already the day of the group's oldest job that is done, not invoiced
/// and on no payment. Without such a job the date stays.
void RefreshDebtorSince(Business& business, Id<Client> client);

/// RecalculateClientBalance() of every bill-to party, in the order of the file: the same figures,
/// computed from passes over whole tables instead of several statements a client. One
/// transaction; a client whose figures are right already is not written.
void RecalculateAmountOwingOfAllClients(Business& business);

/// The menu command: asks, recomputes all clients under the busy pointer, and tells when it is
/// done. False when the user declined.
bool RecomputeAmountOwingAfterAsking(Business& business, Prompter& prompter);

}  // namespace quillary::balances
