#pragma once

#include "data/Business.h"

#include <QStringList>

#include <vector>

/// The rows of the documents that go to clients, and what they add up to.
namespace quillary::documents {

enum class TaxMode { Included, Excluded };

/// A price and the tax that belongs to it.
struct Amounts {
  Money price;
  Money tax;

  bool operator==(const Amounts&) const = default;
};

/// What a row shows of a stored price, which includes its tax: both as they are, or the price less
/// the tax beside no tax at all.
Amounts ShownAmounts(const Amounts& stored, TaxMode mode);

/// What rows add up to: the prices as they are shown, and the tax whether it is shown or not.
struct RunningTotal {
  Amounts sum;

  void Add(const Amounts& stored, TaxMode mode);
};

struct JobRow {
  QString invoiceNumber;  // of a past job; empty when it was never invoiced
  QDate date;
  QString service;
  QDate nextVisit;  // invalid when none is planned
  Amounts shown;
};

/// The jobs that were done for one client; the bill may go to another one.
struct ClientJobs {
  std::optional<Id<Client>> clientId;  // none when the client is gone
  QString displayName;
  QString address;    // on one line
  QString workCover;  // label and number; empty when there are none
  std::vector<JobRow> jobs;
};

struct JobSection {
  std::vector<ClientJobs> clients;
  Amounts total;
};

/// One invoice in a statement or a reminder.
struct InvoiceRow {
  QString number;
  QDate date;
  QString description;
  Amounts shown;
};

/// The jobs of an invoice, by client, date and service.
JobSection CollectInvoiceJobs(Business& business, Id<Invoice> invoiceId, TaxMode mode);

/// Jobs of a client, and of all whose bills it gets, that are done and not paid. For an invoice
/// those on other invoices or on none; for a statement those of its days, both ends included.
JobSection CollectPastJobs(Business& business, Id<Client> clientId, Id<Invoice> exceptInvoiceId,
                           TaxMode mode);
JobSection CollectPastJobs(Business& business, Id<Client> clientId, QDate from, QDate to,
                           TaxMode mode);

/// The lines of a text that fills several; none for a text without a visible character.
QStringList LinesOf(const Value& text);

}  // namespace quillary::documents
