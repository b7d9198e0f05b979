#pragma once

#include "base/Money.h"
#include "data/Business.h"
#include "lists/Choices.h"

#include <QString>

#include <optional>
#include <vector>

/// Who an invoice is made out to.
namespace quillary::billing {

enum class BilledClients { Active, All };  // active ones include plain billing addresses
/// The clients who are billed themselves, by name, and among them in any case `also`: an old
/// invoice stays its client's when another pays for that client by now.
std::vector<lists::Choice<Client>> ListBilledClients(Business& business, BilledClients which,
                                                     std::optional<Id<Client>> also = {});

/// What a client wants on its invoices. It stands for all later ones.
struct InvoiceOptions {
  bool showOutstanding = false;
  bool showNextJob = false;
  bool withUnpaidPastJobs = false;
  bool operator==(const InvoiceOptions&) const = default;
};

struct BilledClient {
  Id<Client> client;
  QString displayName;
  Money accountBalance;  // negative is a debt
  QString addressBlock;
  InvoiceOptions options;
  bool isBilledTo = false;
  bool isListedAsActive = false;  // whether BilledClients::Active lists it

  /// "Current outstanding amount is $55.00"
  QString OutstandingWords() const;
};
/// Nothing when there is no such client.
std::optional<BilledClient> LoadBilledClient(Business& business, Id<Client> client);

/// Name, street and suburb on three lines.
QString AddressBlock(const QString& displayName, const QString& streetNumber, const QString& street,
                     const QString& suburb, const QString& postCode);

}  // namespace quillary::billing
