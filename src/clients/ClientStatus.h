#pragma once

#include "clients/ClientRecord.h"

#include <QStringList>

/// What a client's status means for the screen that edits it.
namespace quillary::clients {

/// The statuses that the client screen offers.
QStringList OfferedClientStatuses();
/// "With Job", "None", "Monthly".
QStringList InvoiceTypes();

/// The colour of a status as 0xRRGGBB, on every screen that shows one; white for those without.
quint32 ClientStatusColour(const QString& status);

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
