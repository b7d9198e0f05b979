#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>

/// One row of Clients as the client screen edits it: a person or site where work is done and, when
/// it pays for itself, an account that is billed.
namespace quillary::clients {

/// The key of a client that is not stored yet.
inline constexpr qint64 kNewClient = -1;

struct ClientRecord {
  qint64 clientId = kNewClient;
  qint64 billingClientId = kNewClient;  // who pays; the client's own key when it pays for itself
  QString displayName;                  // the name in lists and on invoices
  QString firstName;                    // a company's name, with no surname
  QString surname;
  QString status;
  QString streetNumber;
  QString street;
  QString suburb;  // stored trimmed and in upper case
  QString postCode;
  QString map;
  QString phone1;
  QString phone2;
  QString fax;
  QString email;
  QString notes;         // printed on work sheets
  QString privateNotes;  // kept to the office
  bool requiresStatement = false;
  QString statementType;  // "With Job", "None" or "Monthly"
  QString workCoverNumber;
  QString workCoverLabel;
  bool invoiceWithOutstanding = false;
  bool invoiceWithNextJob = false;
  bool invoiceWithUnpaidPastJobs = false;
  bool invoiceWithTelNo = false;
  bool statementWithPayments = false;
  std::optional<QDate> debtorSince;
  Money accountBalance;  // negative is a debt; computed, never written from here

  bool IsNew() const { return clientId == kNewClient; }
  bool IsBilledTo() const { return billingClientId == clientId; }
  Money CurrentlyOwing() const { return -accountBalance; }
  bool operator==(const ClientRecord&) const = default;
};

/// A client that is not stored yet: billed itself with each job, invoices with the outstanding
/// amount and the next job. It is no debtor, so its debtor date, for which the screen proposes
/// today, is none.
ClientRecord NewClientRecord();

/// Nothing when there is no such client. One without a billing client pays for itself.
std::optional<ClientRecord> LoadClientDetails(Business& business, qint64 clientId);
/// Recomputes the balance of the billing client, then reads debtor date and balance of the client.
void LoadBillingDetails(Business& business, ClientRecord& client);

/// Refuses a stored client that was deleted since it was loaded: what is saved for it would belong
/// to nobody.
std::optional<Refusal> CheckClientIsThere(Business& business, qint64 clientId);

/// Refuses, in this order, a status that the screen does not offer (such as "Quote only"), an empty
/// display name and a missing invoicing type.
std::optional<Refusal> CheckClientDetails(const ClientRecord& client);

/// Writes the record to Clients, inserting it first when it is new, and gives `client` its key. A
/// cancelled client's open jobs ('J') become cancelled ('JC') at once; the next roll removes those
/// of its future. One transaction; nothing is written when CheckClientDetails() or
/// CheckClientIsThere() refuses.
std::optional<Refusal> SaveClientDetails(Business& business, ClientRecord& client);

}  // namespace quillary::clients
