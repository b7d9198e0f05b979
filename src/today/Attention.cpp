#include "today/Attention.h"

#include "accounts/banking/Cheques.h"
#include "domain/BillingWords.h"
#include "maintenance/backups/LastBackup.h"
#include "roll/ScheduleCheck.h"

#include <algorithm>
#include <set>

namespace quillary::today {
namespace {

constexpr int kDaysToPay = 30;
constexpr int kDaysOfBackup = 7;

void CountDue(Business& business, AttentionFigures& figures) {
  figures.due = billing::CountDueJobs(business);
  const billing::WaitingJobs& withJob = figures.due.withJob;
  const billing::WaitingJobs& byMonth = figures.due.byMonth;
  figures.dueForInvoice = {withJob.jobs + byMonth.jobs, withJob.total + byMonth.total};
  figures.daysOfDue = {std::min(withJob.days.from, byMonth.days.from), business.Today()};
}

void FindOverdue(Business& business, AttentionFigures& figures) {
  const QDate latest = business.Today().addDays(-kDaysToPay - 1);
  figures.daysOfOverdue = DateRange::Of(latest);
  // Few clients owe and most invoices are old: the way is from the clients, not by the date.
  for (const Record row : business.RunSQL(
           Sql("SELECT Invoice_ID, Total_Amount, Generation_Date FROM Invoices "
               "WHERE Client_ID IN (SELECT Client_ID FROM Clients WHERE Account_Balance < 0) "
               "AND IsPaid = False AND Statement_Type <> {} AND NOT (Generation_Date > {})",
               StatementType::Statement, EndOfDay(latest)))) {
    figures.overdueInvoices.emplace_back(row[size_t{0}].ToLong());
    figures.overdue.amount += row[1].ToMoney();
    QDate& first = figures.daysOfOverdue.from;
    first = std::min(first, row[2].ToDate(first));
  }
  std::ranges::sort(figures.overdueInvoices);
  figures.overdue.count = static_cast<int>(figures.overdueInvoices.size());
}

void CountMoneyOnItsWay(Business& business, AttentionFigures& figures) {
  figures.toBank = accounts::CountUndeposited(business);
  for (const accounts::UnpresentedCheque& cheque : accounts::ListUnpresentedCheques(business)) {
    ++figures.chequesWritten.count;
    figures.chequesWritten.amount += cheque.amount;
  }
}

}  // namespace

AttentionFigures LoadAttention(Business& business, const AttentionPlaces& places) {
  AttentionFigures figures;
  CountDue(business, figures);
  FindOverdue(business, figures);
  CountMoneyOnItsWay(business, figures);
  figures.lastBackup = maintenance::LastBackup(business, places.archive);
  figures.backupIsOld =
      !figures.lastBackup || figures.lastBackup->date.daysTo(business.Today()) > kDaysOfBackup;
  if (places.mail != nullptr) figures.mailsInDoubt = places.mail->InDoubt();
  return figures;
}

int CountClientsWithSchedulingProblem(Business& business) {
  std::set<Id<Client>> clients;
  for (const roll::ScheduleProblem& problem : roll::CheckClientSchedules(business))
    clients.insert(problem.client);
  return static_cast<int>(clients.size());
}

}  // namespace quillary::today
