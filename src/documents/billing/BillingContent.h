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
  int accent = 0;  // 0xRRGGBB, the division's
  QDate today;
};

BillingFrame ReadBillingFrame(Business& business, TaxMode mode);

struct InvoiceContent {
  QString number;
  QDate date;
  QString description;
  QStringList madeOutTo;
  QStringList notes;
  bool withNextJob = false;
  JobSection jobs;
  std::optional<JobSection> pastJobs;  // only for clients who want to see them and have some
  QString totalLabel;                  // "INVOICE TOTAL (GST inc.)"
  QString totalLine;                   // the same with the amount
  Money invoiceTotal;                  // of all jobs shown, past ones included
  Money amountPayable;                 // negative for a client in credit
  QString payableLine;
  QStringList terms;  // the amount payable filled in
};

/// Nothing for an invoice that is gone.
std::optional<InvoiceContent> CollectInvoice(Business& business, Id<Invoice> invoiceId,
                                             const BillingFrame& frame);

struct PaymentRow {
  QDate date;
  Money amount;
};

/// All that is issued to one client.
struct StatementContent {
  Id<Client> clientId;
  QStringList madeOutTo = {};
  std::vector<InvoiceRow> invoices = {};
  Amounts total = {};
  std::optional<JobSection> pastJobs = {};  // where asked for and there are any, as the payments
  std::optional<std::vector<PaymentRow>> payments = {};
  Money paymentsTotal = {};
  bool isLast = false;  // of the run

  /// Sections and notes below the invoices; not for one that comes to nothing in front of others.
  bool HasClosing() const { return isLast || total.price != Money(); }
};

/// Both ends included.
struct StatementDays {
  QDate from;
  QDate to;
};

/// One statement for each client of the invoices that are selected for printing.
std::vector<StatementContent> CollectStatements(Business& business, const StatementDays& days,
                                                const BillingFrame& frame);

struct ReminderContent {
  Id<Client> clientId;
  QStringList madeOutTo = {};
  std::vector<InvoiceRow> invoices = {};
  Amounts total = {};
};

/// One reminder for each client of the invoices that are selected for printing.
std::vector<ReminderContent> CollectReminders(Business& business, const BillingFrame& frame);

}  // namespace quillary::documents
