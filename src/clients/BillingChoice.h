#pragma once

#include "clients/ClientRecord.h"

#include <QStringList>

/// Where a client's bills go, and in what name.
namespace quillary::clients {

/// In the order of BillingChoiceWords().
enum class BillingChoice { SameAddress, ExistingAddress, NewAddress };
QStringList BillingChoiceWords();
BillingChoice BillingChoiceOf(const ClientRecord& client);

/// The client pays for itself again. Payments made meanwhile stay where they are until transferred.
void BillSameAddress(ClientRecord& client);
/// Another client pays. Tells the user when the client has payments of its own, since they do not
/// move with it.
void BillExistingAddress(Business& business, Prompter& prompter, ClientRecord& client,
                         Id<Client> payer);
/// What follows the screen for a new billing address: its client pays; nothing made, and the client
/// pays for itself.
void TakeNewBillingAddress(Business& business, Prompter& prompter, ClientRecord& client,
                           std::optional<Id<Client>> made);

/// The address as an invoice shows it, in three lines.
QString SampleBillingAddress(const ClientRecord& client);

/// The display name made of first name and surname, in the order the user has chosen for billing
/// names; first name first when none was chosen.
QString UpdateBillingName(Business& business, const QString& firstName, const QString& surname);

}  // namespace quillary::clients
