#include "today/Attention.h"

#include "accounts/banking/Bankable.h"
#include "accounts/banking/Cheques.h"
#include "domain/BillingWords.h"
#include "domain/InvoiceDue.h"
#include "maintenance/backups/LastBackup.h"
#include "roll/ScheduleCheck.h"

#include <algorithm>
#include <set>

namespace quillary::today {
namespace {

constexpr int kDaysToPay = 30;
constexpr int kDaysOfBackup = 7;

void CountDue(Business& business, AttentionFigures& figures) {
  const QDate today = business.Today();
  const Recordset row = business.RunSQL(
      Sql("SELECT COUNT(*) AS Jobs, SUM(Diary.Total_Price) AS Total, "
          "MIN(Diary.Schedule_Date) AS Oldest "
          "FROM (Clients INNER JOIN Diary ON Clients.Client_ID = Diary.Client_ID) "
          "INNER JOIN Clients AS Payers ON Clients.Billing_Client_ID = Payers.Client_ID "
          "WHERE {}",
          IsDueForInvoice(today)));
  figures.dueForInvoice = {static_cast<int>(row.Field(size_t{0}).ToLong()), row.Field(1).ToMoney()};
  figures.daysOfDue = {row.Field(2).ToDate(today), today};
}

void FindOverdue(Business& business, AttentionFigures& figures) {
  const QDate latest = business.Today().addDays(-kDaysToPay - 1);
  figures.daysOfOverdue = DateRange::Of(latest);
  for (const Record row : business.RunSQL(
           Sql("SELECT Invoices.Invoice_ID, Invoices.Total_Amount, Invoices.Generation_Date "
               "FROM Clients INNER JOIN Invoices ON Clients.Client_ID = Invoices.Client_ID "
               "WHERE Clients.Account_Balance < 0 AND Invoices.IsPaid = False "
               "AND Invoices.Statement_Type <> {} AND Invoices.Generation_Date <= {}",
               StatementType::Statement, EndOfDay(latest)))) {
    figures.overdueInvoices.emplace_back(row[size_t{0}].ToLong());
    figures.overdue.amount += row[1].ToMoney();
    QDate& first = figures.daysOfOverdue.from;
    first = std::min(first, row[2].ToDate(first));
  }
  figures.overdue.count = static_cast<int>(figures.overdueInvoices.size());
}

void CountMoneyOnItsWay(Business& business, AttentionFigures& figures) {
  const auto undeposited = accounts::CountUndeposited(business);
  figures.cashToBank = undeposited[0].total;
  figures.chequesToBank = {undeposited[1].count, undeposited[1].total};
  figures.cardsToBank = {undeposited[2].count, undeposited[2].total};
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
