#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"
#include "domain/BillingWords.h"
#include "domain/ClientStatus.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

/// One row of Clients as the client screen edits it: a person or site where work is done and, when
/// it pays for itself, an account that is billed.
namespace quillary::clients {

struct ClientRecord {
  std::optional<Id<Client>> clientId;    // nothing until it is stored
  std::optional<Id<Client>> otherPayer;  // nothing when the client pays for itself
  QString displayName;                   // the name in lists and on invoices
  QString firstName;                     // a company's name, with no surname
  QString surname;
  StoredClientStatus status;
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
  StoredStatementType statementType;
  QString workCoverNumber;
  QString workCoverLabel;
  bool invoiceWithOutstanding = false;
  bool invoiceWithNextJob = false;
  bool invoiceWithUnpaidPastJobs = false;
  bool invoiceWithTelNo = false;
  bool statementWithPayments = false;
  std::optional<QDate> debtorSince;
  Money accountBalance;  // negative is a debt; computed, never written from here

  bool IsNew() const { return !clientId; }
  bool IsBilledTo() const { return !otherPayer; }
  /// Who pays; nothing for a new client who pays for itself.
  std::optional<Id<Client>> Payer() const { return otherPayer ? otherPayer : clientId; }
  Money CurrentlyOwing() const { return -accountBalance; }
  bool operator==(const ClientRecord&) const = default;
};

/// How a client can be billed, in the words of the screen: "With Job", "None", "Monthly".
QStringList InvoiceTypes();

/// A client that is not stored yet: billed itself with each job, invoices with the outstanding
/// amount and the next job. It is no debtor, so its debtor date, for which the screen proposes
/// today, is none.
ClientRecord NewClientRecord();

/// Nothing when there is no such client.
std::optional<ClientRecord> LoadClientDetails(Business& business, Id<Client> client);
/// Reads debtor date and balance of a stored client again.
void LoadBillingDetails(Business& business, ClientRecord& client);
/// Recomputes what the client's payer owes, and reads the client's billing details.
void RefreshBillingDetails(Business& business, ClientRecord& client);

/// Refuses a client that was deleted since it was loaded: what is saved for it would belong to
/// nobody.
std::optional<Refusal> CheckClientIsThere(Business& business, Id<Client> client);

/// Refuses, in this order, a status that cannot be given by hand (such as "Quote only"), an empty
/// display name and a missing invoicing type.
std::optional<Refusal> CheckClientDetails(const ClientRecord& client);

/// Writes to Clients what differs from `loaded`, the record as it was read, and leaves what others
/// wrote meanwhile. A new client is inserted first. `client` becomes what then stands in the file.
/// A cancelled client's open jobs are cancelled at once; the next roll removes those of its future.
/// When another pays from now on, or the status weighs otherwise in the balance, the client, its
/// former and its present payer are recomputed. One transaction; nothing is written when
/// CheckClientDetails() or CheckClientIsThere() refuses. Throws WriteFailed.
std::optional<Refusal> SaveClientDetails(Business& business, ClientRecord& client,
                                         const ClientRecord& loaded);

/// Which parts of the client screen may be used.
struct ClientParts {
  bool otherTabs = true;            // all but the details; not before the first save
  bool schedule = true;             // a billing address has no services of its own
  bool invoicesAndPayments = true;  // an active client billed elsewhere has them there
  bool paymentNote = false;         // kPaymentNote shows
};
ClientParts PartsOf(const ClientRecord& client);

inline constexpr char kPaymentNote[] = "To add payments, please refer to the billed client...";

}  // namespace quillary::clients
