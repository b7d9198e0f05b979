#pragma once

#include "base/DateRange.h"
#include "base/Refusal.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// The payments of a period or of a client, beside what the jobs on them come to.
namespace quillary::billing {

struct PaymentRow {
  Id<Payment> paymentId;
  std::optional<Id<Client>> clientId;
  QString displayName;
  QDate paymentDate;
  Money amount;
  QString paymentMethod;
  QString accounts;  // the revenue accounts of the services paid for, each once: "Lawns, Hedges"
  Money glAmount;    // what those services cost

  /// Whether amount and services differ by a cent or more. The legend speaks of accounts, but the
  /// check is against jobs.
  bool IsMismatch() const { return amount.Rounded(2) != glAmount.Rounded(2); }
};

struct PaymentsList {
  std::vector<PaymentRow> rows;
  Money totalAmount;
  Money totalBeingPaidFor;
  Money totalWithoutAccount;  // of the payments whose services name no account

  int TotalCount() const { return static_cast<int>(rows.size()); }
};

/// By name, a client's newest first; the last day whole.
PaymentsList LoadPaymentsList(Business& business, const DateRange& days);
/// Those recorded under the client itself, the newest first.
PaymentsList LoadPaymentsByAClient(Business& business, Id<Client> clientId);

/// Asks by the client's name, then deletes the payment with its ledger entries, takes its jobs off
/// it and recomputes the balance of its client. The jobs keep their status, and a deposit that
/// holds the payment keeps its totals. Refuses when no payment is selected.
std::optional<Refusal> DeletePayment(Business& business, Prompter& prompter,
                                     const PaymentRow* payment);

}  // namespace quillary::billing
