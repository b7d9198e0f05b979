#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "base/ports/requests/Billing.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

/// The invoices of a period.
namespace quillary::billing {

struct InvoiceListQuery {
  DateRange days;  // the last one whole
  bool monthlyOnly = false;
};
/// The month of `today`, all invoices or the monthly ones.
InvoiceListQuery InvoicesOfMonth(QDate today, bool monthlyOnly);

struct InvoiceListRow {
  Id<Invoice> invoiceId;
  Id<Client> clientId;
  QString displayName;  // of the client who is billed
  QDate generationDate;
  QString description;
  Money totalAmount;  // as it stood when the invoice was saved last, tax included
  QString invoiceNumber;
  QString statementType;
  bool isPaid = false;

  /// "Yes" or "No".
  QString IsPaidWord() const;
};
/// The newest first, then by name. Old rows that stand for statements are left out; the monthly
/// ones are those of active clients who are still billed by the month.
std::vector<InvoiceListRow> LoadInvoicesList(Business& business, const InvoiceListQuery& query);

/// Refuses when no invoice is selected for viewing.
std::optional<Refusal> CheckInvoiceSelected(std::optional<Id<Invoice>> invoiceId);

/// Deletes the invoices with their items and takes them off their jobs, whose status stays: a job
/// that was invoiced goes on counting as invoiced. Whole or not at all.
void DeleteInvoices(Business& business, const std::vector<Id<Invoice>>& invoiceIds);
/// Asks once, saying how many they are and what they come to, and deletes. False when the user
/// declined, or none is ticked.
bool DeleteTickedInvoices(Business& business, Prompter& prompter,
                          const std::vector<InvoiceListRow>& ticked);

/// This month, by name.
InvoiceListCriteria InvoiceListOfMonth(QDate today);

}  // namespace quillary::billing
