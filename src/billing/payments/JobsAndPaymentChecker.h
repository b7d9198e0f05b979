#pragma once

#include "base/Money.h"
#include "data/Business.h"
#include "domain/ClientStatus.h"
#include "domain/EntryStatus.h"

#include <QDate>
#include <QString>

#include <vector>

/// What a balance is made of, side by side: for finding out why a client owes what it owes.
namespace quillary::billing {

struct CheckedClient {
  Id<Client> client;
  QString displayName;
  StoredClientStatus status;
  QString billedClient;  // " (same as client) " for one who pays for itself
  Money amountOwing;     // the balance negated
  Money billedClientOwes;
};
/// All clients, by display name, then by surname and first name.
std::vector<CheckedClient> ListCheckedClients(Business& business);

struct CheckedJob {
  Id<Entry> entry;
  Id<Client> client;
  QString displayName;
  QDate scheduleDate;
  QString description;
  Money totalPrice;  // tax included
  StoredEntryStatus status;
  bool isPaid = false;  // on a payment

  QString StatusWords() const;
};
struct CheckedJobs {
  std::vector<CheckedJob> rows;  // by client's name, the newest job first
  Money total;                   // rounded to cents after each job
};
/// The done jobs of the client and of all who are billed to it: those that count in a balance.
CheckedJobs ListCheckedJobs(Business& business, Id<Client> client);

struct CheckedPayment {
  Id<Payment> payment;
  Id<Client> client;
  QString displayName;
  QDate paymentDate;
  Money amount;
  QString paymentMethod;
  QString accounts;  // the revenue accounts it is booked to, each once; "(None)" without any
};
struct CheckedPayments {
  std::vector<CheckedPayment> rows;  // the newest first
  Money total;
};
CheckedPayments ListPaymentsOfClient(Business& business, Id<Client> client);
/// The payments recorded under the others who are billed to the client.
CheckedPayments ListPaymentsOfAttachedClients(Business& business, Id<Client> client);

/// Deletes the payment with its ledger entries, takes its jobs off it and recomputes the client's
/// balance. A deposit that holds the payment keeps its totals. Throws WriteFailed, with nothing
/// deleted, when the payment has gone meanwhile.
void RemovePayment(Business& business, std::optional<Id<Client>> client, Id<Payment> payment);

}  // namespace quillary::billing
