#pragma once

#include "base/DateRange.h"
#include "base/Money.h"
#include "billing/invoices/InvoiceClients.h"
#include "data/Business.h"

#include <QDate>
#include <QString>

#include <functional>
#include <vector>

/// What the runs that make invoices have in common. A run stands in one transaction: it happens
/// whole or not at all, however the program ends. What goes wrong with one client is reported,
/// undone for this client alone, and the run goes on; a failure of the store ends it.
namespace quillary::billing {

struct InvoiceRunCount {
  int invoicesMade = 0;
  std::vector<Id<Invoice>> invoices;  // those that were made
  Money totalAmount;                  // of what was made, tax included
  int failed = 0;                     // clients or jobs that were reported and left as they were
};

/// "11 invoices, $2,739.00", and how many failed where some did.
QString RunWords(const InvoiceRunCount& count);

/// Hears after each client, or job, how many of all are done.
using RunProgress = std::function<void(int done, int total)>;

/// One invoice that a run makes.
struct GeneratedInvoice {
  Id<Client> clientId;  // who is billed
  QString madeOutTo;
  DateRange days;
  DateTime generated;
  QString description;
  QString statementType;
  Value totalAmount;  // tax included
  Value totalGST;
};
/// Inserts the invoice under the next number and returns its key. Throws WriteFailed.
Id<Invoice> InsertGeneratedInvoice(Business& business, const GeneratedInvoice& invoice);

/// The address block as runs write it: it ends with a line of its own.
QString GeneratedMadeOutTo(const Record& client);

/// "05-NOV-2026"
QString UpperCasedDate(QDate date);

/// Runs what is done for one client as a part of the run that can be undone alone. False when it
/// failed, which is reported under the names given. Throws StorageFailure.
bool GuardRunStep(Business& business, const QString& form, const QString& procedure,
                  const std::function<void()>& step);

}  // namespace quillary::billing
