#pragma once

#include "accounts/banking/Bankable.h"
#include "base/DateRange.h"
#include "base/Money.h"
#include "base/ports/OutgoingMail.h"
#include "billing/runs/WithJobRun.h"
#include "data/Business.h"

#include <optional>
#include <vector>

/// What an owner would rather know before it costs money.
namespace quillary::today {

struct CountedMoney {
  int count = 0;
  Money amount = {};
};

struct AttentionFigures {
  billing::DueJobs due;
  CountedMoney dueForInvoice;  // jobs done whose invoice should be there by now
  DateRange daysOfDue;         // of these jobs, up to today
  CountedMoney overdue;        // invoices unpaid after 30 days, of clients who owe
  DateRange daysOfOverdue;     // on which they were made
  std::vector<Id<Invoice>> overdueInvoices;
  accounts::UndepositedPayments toBank;  // cash, cheques, cards
  CountedMoney chequesWritten;           // to suppliers, not cleared yet
  std::optional<DateTime> lastBackup;
  bool backupIsOld = false;  // older than a week, or there is none
  int mailsInDoubt = 0;
};

/// Where what lies outside of the business is looked for.
struct AttentionPlaces {
  QString archive;               // of backups
  OutgoingMail* mail = nullptr;  // none: no mails
};
AttentionFigures LoadAttention(Business& business, const AttentionPlaces& places);

/// How many clients have a regular visit missing from the diary. It follows the rhythm of every
/// service, which takes longer than all other figures together.
int CountClientsWithSchedulingProblem(Business& business);

}  // namespace quillary::today
