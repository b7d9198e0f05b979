#pragma once

#include "documents/billing/BillingDocuments.h"
#include "mail/Outbox.h"

#include <functional>

namespace quillary::mail {

/// Documents that are to go to the clients they are about.
struct DocumentRun {
  Contents contents = Contents::Invoice;  // an invoice, statement or reminder
  std::vector<Id<Invoice>> invoices;
  Route route = Route::Smtp;
  documents::StatementDays days = {};  // of statements; from their oldest invoice to today if empty
  documents::TaxMode mode = documents::TaxMode::Included;
  QString text;        // of the mails
  bool again = false;  // also what waits, is in doubt or has been sent already
};

/// What was put into the outbox, and what was not.
struct QueuedDocuments {
  std::vector<qint64> mails;   // their numbers
  QStringList withoutAddress;  // names of clients to whom nothing can go
  int known = 0;               // documents that the outbox has already

  QString InWords() const;
};

/// Writes each document as a PDF file of its own and puts it into the outbox: an invoice each, a
/// statement or reminder for each client with all of its invoices. All of them or none. A document
/// that the outbox has already is left out, so a run that ended early is simply begun again.
/// `progress` is told how many of how many are written. Throws StorageFailure, PDFError.
QueuedDocuments QueueDocuments(Business& business, Outbox& outbox,
                               const documents::BillingPlaces& places, const DocumentRun& run,
                               const std::function<void(int, int)>& progress = nullptr);

/// The text that mails of the business have unless another is written.
QString DefaultText(Business& business);

}  // namespace quillary::mail
