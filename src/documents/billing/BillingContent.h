#pragma once

#include "documents/billing/BillingRows.h"
#include "documents/reports/ReportHeader.h"

#include <optional>

/// What the invoice, the statement and the reminder say, without regard to how they are laid out.
namespace quillary::documents {

/// What all documents of one run have in common.
struct BillingFrame {
  HeaderStrings header;
  QString taxName;
  QString taxHeading;  // "GST inc."; empty without a tax name
  TaxMode mode = TaxMode::Included;
  QStringList generalNotes;
  PageFont notesFont;
  QDate today;
};

BillingFrame ReadBillingFrame(Business& business, TaxMode mode);

struct InvoiceContent {
  qint64 invoiceId = 0;
  QString number;
  QDate date;
  QString description;
  QStringList madeOutTo;
  QStringList notes;
  bool withNextJob = false;
  JobSection jobs;
  std::optional<JobSection> pastJobs;  // only for clients who want to see them
  QString totalLine;                   // "INVOICE TOTAL (GST inc.) : $110.00"
  Money invoiceTotal;                  // of all jobs shown, past ones included
  Money amountPayable;                 // negative for a client in credit
  QString payableLine;
  QStringList terms;  // the amount payable filled in
};

/// The invoices that are selected for printing, each once. A selected invoice that is gone is
/// passed over.
std::vector<qint64> SelectedInvoices(Business& business);
std::optional<InvoiceContent> CollectInvoice(Business& business, qint64 invoiceId,
                                             const BillingFrame& frame);

struct PaymentRow {
  QDate date;
  Money amount;
};

/// All that is issued to one client.
struct StatementContent {
  qint64 clientId = 0;
  QStringList madeOutTo;
  std::vector<InvoiceRow> invoices;
  Amounts total;
  std::optional<JobSection> pastJobs;
  std::optional<std::vector<PaymentRow>> payments;
  Money paymentsTotal;
  bool isLast = false;  // of the run

  /// Sections and notes below the invoices; not for one that comes to nothing in front of others.
  bool HasClosing() const { return isLast || total.price != Money(); }
};

struct StatementDays {
  QDate from;
  QDate to;
};

/// One statement for each client of the invoices that are selected for printing.
std::vector<StatementContent> CollectStatements(Business& business, const StatementDays& days,
                                                const BillingFrame& frame);

struct ReminderContent {
  qint64 clientId = 0;
  QStringList madeOutTo;
  std::vector<InvoiceRow> invoices;
  Amounts total;
};

/// One reminder for each client of the invoices that are selected for printing.
std::vector<ReminderContent> CollectReminders(Business& business, const BillingFrame& frame);

}  // namespace quillary::documents
