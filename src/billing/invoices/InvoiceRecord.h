#pragma once

#include "base/Money.h"
#include "base/Refusal.h"
#include "billing/invoices/InvoiceClients.h"
#include "data/Business.h"

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

/// One invoice as its screen edits it: a thin header over jobs. What a client owes comes from jobs
/// and payments alone, so nothing here moves a balance.
namespace quillary::billing {

// The widths of the columns, which the fields of the screen keep to.
inline constexpr int kInvoiceNumberWidth = 50;
inline constexpr int kInvoiceDescriptionWidth = 100;
inline constexpr int kMadeOutToWidth = 255;

struct InvoiceForm {
  std::optional<Id<Invoice>> invoiceId;  // nothing until it is stored
  std::optional<Id<Entry>> forJob;  // a new invoice made for this job, which counts as invoiced
  std::vector<Id<Entry>>
      jobsToAttach;                    // of a new invoice: its first save attaches them as they are
  std::optional<Id<Client>> clientId;  // who is billed
  QDate date;
  QString number;  // text, read as a number: "12A" is 12
  QString description;
  QString madeOutTo;      // the address block, in several lines
  QString notes;          // printed on the invoice
  QString statementType;  // one of TypesOfInvoice(); empty when none is chosen
  bool isPaid = false;    // set by hand or with a payment, never computed
  Money totalAmount;      // tax included
  Money totalGST;
  InvoiceOptions options;  // kept with the client who is billed

  bool IsNew() const { return !invoiceId; }
};

/// "With job" and "Monthly".
QStringList TypesOfInvoice();
/// The entry of TypesOfInvoice() for a stored type, without regard to case, since generated
/// invoices spell theirs "With Job"; empty for any other.
QString InvoiceTypeOf(const QString& stored);

/// An invoice that is not stored yet: dated today, with a number that is spent from here on even if
/// it is never saved. Billed is who pays for the client. A job given is recomputed at the present
/// tax rate first; without a client its payer is billed.
InvoiceForm NewInvoice(Business& business, std::optional<Id<Client>> clientId,
                       std::optional<Id<Entry>> diaryId);
/// Nothing when there is no such invoice. A missing date reads as today, the number as its leading
/// digits; the options are those of the client now.
std::optional<InvoiceForm> LoadInvoiceDetails(Business& business, Id<Invoice> invoiceId);

/// Takes over the client who is billed, as a choice in the list does: its address block, whatever
/// stood there, and its options. Returns what is known of the client, nothing when there is none.
std::optional<BilledClient> ChooseBilledClient(Business& business, InvoiceForm& form,
                                               Id<Client> clientId);

/// Refuses, in this order, a missing client, a number that is blank or 0, and a missing type. The
/// same number twice is allowed.
std::optional<Refusal> CheckInvoice(const InvoiceForm& form);

/// Writes the invoice, inserting it first when it is new, and gives `form` its key. The one date
/// goes into all three dates of the row, the options to the client. Only the first save touches
/// jobs: it attaches those of the form, and the job that the invoice was made for becomes
/// invoiced.
/// One transaction; nothing is written when CheckInvoice() refuses.
std::optional<Refusal> SaveInvoices(Business& business, InvoiceForm& form);

}  // namespace quillary::billing
