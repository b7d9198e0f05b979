#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// The invoices and payments on the tabs of a client: those recorded under the client itself. They
/// stay with it when another begins to pay for it.
namespace quillary::clients {

struct ClientInvoice {
  Id<Invoice> invoice;
  QString invoiceNumber;
  QDate generationDate;
  QDate fromDate;
  QDate toDate;
  QString description;
  Money totalAmount;  // tax included
  QString statementType;
  bool isPaid = false;
};
/// The newest first.
std::vector<ClientInvoice> LoadClientInvoices(Business& business, Id<Client> client);

struct ClientPayment {
  Id<Payment> payment;
  QDate paymentDate;
  Money amount;
  QString paymentMethod;
  QString description;
};
/// The newest first.
std::vector<ClientPayment> LoadClientPayments(Business& business, Id<Client> client);

/// Asks, saying how many they are and what they come to, and records the payments under another
/// client; jobs and ledger entries stay on them. Recomputes what both clients and who pays for them
/// owe, in one transaction. Refuses when no client is chosen, or the one who has them already.
/// Throws WriteFailed, with nothing moved, when a payment has gone meanwhile.
std::optional<Refusal> TransferPayments(Business& business, Prompter& prompter, Id<Client> from,
                                        const std::vector<ClientPayment>& payments,
                                        std::optional<Id<Client>> to);

/// Warns that a payment without a job is missing from profit and loss. False when the user would
/// rather not go on.
bool MayAddPaymentWithoutJob(Prompter& prompter);

/// Asks, makes the invoice's jobs done and not invoiced, whatever they were, deletes the invoice
/// with its items. No invoice moves a balance; but where a job counts as done only now, what its
/// payer owes is recomputed. Refuses when no invoice is selected. Throws WriteFailed, with nothing
/// deleted, when the invoice has gone meanwhile.
std::optional<Refusal> DeleteClientInvoice(Business& business, Prompter& prompter,
                                           std::optional<Id<Invoice>> invoice);

}  // namespace quillary::clients
