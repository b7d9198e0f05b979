#pragma once

#include "today/Attention.h"
#include "today/Figures.h"

/// The week's end, as a list to be worked off: jobs marked done, billed, their invoices made into
/// documents and sent, the takings banked. What is left of each step is read from the business
/// whenever it is asked for and kept nowhere else, so the run can be left at any point and taken up
/// another day, and no step does again what it or anyone else has done.
namespace quillary::today {

struct FridayRun {
  JobsFigures week;                  // the last seven days
  billing::WaitingJobs waiting;      // done, to be billed with each job
  std::vector<Id<Invoice>> toPrint;  // of the week, without a document
  std::vector<Id<Invoice>> toMail;   // of the week, with a document, to clients who take mail
  int onPaper = 0;                   // of the week, with a document, to those who do not
  accounts::UndepositedPayments toBank;

  int ToBank() const;
};
/// The seven days that end today.
DateRange WeekOf(QDate today);
/// What is due and what is to be banked was read already. Without mails nothing is to be mailed.
FridayRun LoadFridayRun(Business& business, const AttentionFigures& attention, OutgoingMail* mail);

/// Asks, and marks the open jobs of the week done. False when the user declined, or none is open.
bool MarkWeekDone(Business& business, Prompter& prompter);
/// Asks, and bills the waiting jobs, an invoice each.
bool InvoiceWeek(Business& business, Prompter& prompter, const billing::RunProgress& progress = {});

}  // namespace quillary::today
