#pragma once

#include "clients/ClientRecord.h"

#include <vector>

/// The invoices and payments on the tabs of a client: those recorded under the client itself. They
/// stay with it when another begins to pay for it.
namespace quillary::clients {

struct ClientInvoice {
  qint64 invoiceId = 0;
  QString invoiceNumber;
  QDate generationDate;
  QDate fromDate;
  QDate toDate;
  QString description;
  Money totalAmount;  // tax included
  QString statementType;
  bool isPaid = false;
};
std::vector<ClientInvoice> LoadClientInvoices(Business& business, qint64 clientId);  // newest first

struct ClientPayment {
  qint64 paymentId = 0;
  QDate paymentDate;
  Money amount;
  QString paymentMethod;
  QString description;
};
std::vector<ClientPayment> LoadClientPayments(Business& business, qint64 clientId);  // newest first

/// Asks and records the payments, given by their keys, under another client; jobs and ledger
/// entries stay on them, and no balance is recomputed. Refuses when no client is chosen.
std::optional<Refusal> TransferPayments(Business& business, Prompter& prompter,
                                        const std::vector<qint64>& paymentIds,
                                        std::optional<qint64> toClientId);

/// Warns that a payment without a job is missing from profit and loss. False when the user would
/// rather not go on.
bool MayAddPaymentWithoutJob(Prompter& prompter);

/// Asks, makes the invoice's jobs done and not invoiced ('JD', whatever they were), deletes the
/// invoice with its items. Balances follow jobs and payments, so none is recomputed. Refuses when
/// no invoice is selected.
std::optional<Refusal> DeleteClientInvoice(Business& business, Prompter& prompter,
                                           std::optional<qint64> invoiceId);

}  // namespace quillary::clients
