#pragma once

#include "base/Money.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <vector>

/// What a balance is made of, side by side: for finding out why a client owes what it owes.
namespace quillary::balances {

struct CheckedClient {
  qint64 clientId = 0;
  QString displayName;
  QString status;
  QString billedClient;  // " (same as client) " for one who pays for itself
  Money amountOwing;     // the balance negated
  Money billedClientOwes;
};
/// All clients, by display name, then by surname and first name.
std::vector<CheckedClient> ListCheckedClients(Business& business);

enum class CheckedJobColour { NotDone, Done, Paid };

struct CheckedJob {
  qint64 diaryId = 0;
  qint64 clientId = 0;
  QString displayName;
  QDate scheduleDate;
  QString description;
  Money totalPrice;  // tax included
  QString status;
  bool isPaid = false;  // on a payment

  QString StatusWords() const;
  CheckedJobColour Colour() const;
};
struct CheckedJobs {
  std::vector<CheckedJob> rows;  // by client's name, the newest job first
  Money total;                   // rounded to cents after each job
};
/// The done jobs of the client and of all who are billed to it: those that count in a balance.
CheckedJobs ListCheckedJobs(Business& business, qint64 clientId);

struct CheckedPayment {
  qint64 paymentId = 0;
  qint64 clientId = 0;
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
CheckedPayments ListPaymentsOfClient(Business& business, qint64 clientId);
/// The payments recorded under the others who are billed to the client.
CheckedPayments ListPaymentsOfAttachedClients(Business& business, qint64 clientId);

/// Deletes the entry with its lines and recomputes the client's balance.
void DeleteCheckedJob(Business& business, qint64 clientId, qint64 diaryId);
/// Deletes the payment with its ledger entries, takes its jobs off it and recomputes the client's
/// balance. A deposit that holds the payment keeps its totals.
void DeleteCheckedPayment(Business& business, qint64 clientId, qint64 paymentId);

}  // namespace quillary::balances
