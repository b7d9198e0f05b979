#include "today/FridayRun.h"

#include "base/Text.h"
#include "diary/MarkedEntries.h"
#include "documents/billing/PrintedInvoices.h"
#include "domain/BillingWords.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace quillary::today {
namespace {

constexpr int kDaysOfWeek = 7;

struct WeeksInvoice {
  Id<Invoice> invoice;
  bool canBeMailed;  // its client has an address
};

std::vector<WeeksInvoice> LoadInvoices(Business& business, const DateRange& week) {
  std::vector<WeeksInvoice> invoices;
  for (const Record row : business.RunSQL(
           Sql("SELECT Invoices.Invoice_ID, Clients.Email "
               "FROM Clients INNER JOIN Invoices ON Clients.Client_ID = Invoices.Client_ID "
               "WHERE Invoices.Statement_Type <> {} AND Invoices.Generation_Date BETWEEN {} AND {} "
               "ORDER BY Invoices.Invoice_ID",
               StatementType::Statement, week.from, EndOfDay(week.to))))
    invoices.push_back(
        {Id<Invoice>(row[size_t{0}].ToLong()), !row[1].ToText().trimmed().isEmpty()});
  return invoices;
}

void LoadDocuments(Business& business, OutgoingMail* mail, FridayRun& run) {
  run.toPrint = documents::InvoicesNotPrinted(business, run.week.days);
  const std::set<Id<Invoice>> unprinted(run.toPrint.begin(), run.toPrint.end());
  std::vector<Id<Invoice>> mailable;
  for (const WeeksInvoice& one : LoadInvoices(business, run.week.days)) {
    if (unprinted.contains(one.invoice)) continue;
    if (one.canBeMailed)
      mailable.push_back(one.invoice);
    else
      ++run.onPaper;
  }
  if (mail != nullptr) run.toMail = mail->NotMailed(mailable);
}

QString DaysWords(const DateRange& days) {
  return QStringLiteral("%1 to %2").arg(ToShortDateText(days.from), ToShortDateText(days.to));
}

}  // namespace

int FridayRun::ToBank() const {
  int count = 0;
  for (const accounts::CountedPayments& kind : toBank) count += kind.count;
  return count;
}

DateRange WeekOf(QDate today) {
  return {today.addDays(1 - kDaysOfWeek), today};
}

FridayRun LoadFridayRun(Business& business, const AttentionFigures& attention, OutgoingMail* mail) {
  FridayRun run;
  run.week = LoadJobsFigures(business, WeekOf(business.Today()));
  run.waiting = attention.due.withJob;
  LoadDocuments(business, mail, run);
  run.toBank = attention.toBank;
  return run;
}

bool MarkWeekDone(Business& business, Prompter& prompter) {
  const DateRange week = WeekOf(business.Today());
  diary::Entries open;
  std::ranges::copy_if(
      diary::LoadDiary(business, {.days = week}).rows, std::back_inserter(open),
      [](const diary::DiaryRow& row) { return row.status.Is(EntryStatus::JobOpen); });
  if (open.empty()) return false;
  const Answer answer =
      prompter.Ask(QStringLiteral("Mark %1 of %2 as done?\n\nJobs that were not done are better "
                                  "moved or cancelled in the diary first.")
                       .arg(Counted(open.size(), "open job"), DaysWords(week)));
  return answer == Answer::Yes && diary::MarkEntriesDone(business, prompter, open);
}

bool InvoiceWeek(Business& business, Prompter& prompter, const billing::RunProgress& progress) {
  const billing::WaitingJobs waiting = billing::CountWaitingJobs(business);
  if (waiting.jobs == 0) return false;
  const Answer answer = prompter.Ask(
      QStringLiteral("Make an invoice for each of %1 that %2, %3?\n\n%4, of %5.")
          .arg(Counted(static_cast<size_t>(waiting.jobs), "job"),
               waiting.jobs == 1 ? QStringLiteral("is done") : QStringLiteral("are done"),
               waiting.total.ToCurrencyText(), DaysWords(waiting.days),
               Counted(static_cast<size_t>(waiting.clients), "client")));
  if (answer != Answer::Yes) return false;
  const billing::InvoiceRunCount count = billing::InvoiceWaitingJobs(business, progress);
  if (count.failed > 0) prompter.Tell(Tone::Exclamation, billing::RunWords(count));
  return true;
}

}  // namespace quillary::today
