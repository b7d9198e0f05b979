#include "diary/MarkedEntries.h"

#include "balances/ClientBalance.h"
#include "base/Text.h"
#include "diary/DiaryCommands.h"

#include <algorithm>
#include <map>
#include <set>

namespace quillary::diary {
namespace {

/// What a command makes of the entries of each kind that it reaches.
struct NewForms {
  EntryStatus ofJobs;
  EntryStatus ofVisits;
};

size_t CountIf(const Entries& entries, bool (*holds)(const DiaryRow&)) {
  return static_cast<size_t>(std::ranges::count_if(entries, holds));
}

bool IsAQuote(const DiaryRow& entry) {
  return KindOf(entry.status) == EntryKind::Quote;
}
bool IsPaid(const DiaryRow& entry) {
  return entry.payment.has_value();
}
bool IsInvoicedOrPaid(const DiaryRow& entry) {
  return IsPaid(entry) || entry.invoice || entry.status.Is(EntryStatus::JobInvoiced);
}

/// Quotes are told of and left out.
Entries WithoutQuotes(Prompter& prompter, const Entries& entries) {
  Entries others;
  std::ranges::remove_copy_if(entries, std::back_inserter(others), IsAQuote);
  if (others.size() < entries.size())
    prompter.Tell(Tone::Information,
                  QStringLiteral("A quote is decided on its own screen and stays as it is."));
  return others;
}

/// A balance is computed once for each payer, however many of the entries are the payer's.
void ChangeStatus(Business& business, const Entries& entries, const NewForms& forms) {
  std::set<Id<Client>> payers;
  for (const DiaryRow& entry : entries) {
    business.Write(Sql("UPDATE Diary SET Status = {} WHERE Diary_ID = {}",
                       IsVisit(entry.status) ? forms.ofVisits : forms.ofJobs, entry.entry),
                   Rows::Exactly(1));
    payers.insert(entry.payer);
  }
  for (const Id<Client> payer : payers) balances::RecalculateClientBalance(business, payer);
}

/// The words for one job are those that owners know.
QString TakeOffQuestion(size_t paid) {
  return (paid == 1 ? QStringLiteral("This job has been paid.\nPlease note that this job will only "
                                     "be taken off from the payment and not actually delete the "
                                     "payment record?")
                    : QStringLiteral("%1 of these jobs have been paid.\nPlease note that they will "
                                     "only be taken off from their payments and not actually "
                                     "delete the payment records?")
                          .arg(paid)) +
         QStringLiteral("\n\nContinue?");
}

QString CancelQuestion(size_t billed, size_t all) {
  const QString which = all == 1        ? QStringLiteral("This job is")
                        : billed == all ? QStringLiteral("These %1 jobs are").arg(all)
                        : billed == 1   ? QStringLiteral("1 of these jobs is")
                                        : QStringLiteral("%1 of these jobs are").arg(billed);
  return which + QStringLiteral(
                     " invoiced or paid already.\nA cancelled job no longer counts in what the "
                     "client owes; its invoice and its payment stay as they are.\n\nCancel all "
                     "the same?");
}

}  // namespace

QString CountedEntries(const Entries& entries) {
  const size_t visits = CountIf(entries, [](const DiaryRow& row) { return IsVisit(row.status); });
  const size_t quotes = CountIf(entries, IsAQuote);
  QStringList parts;
  if (const size_t jobs = entries.size() - visits - quotes) parts += Counted(jobs, "job");
  if (visits > 0) parts += Counted(visits, "visit");
  if (quotes > 0) parts += Counted(quotes, "quote");
  return parts.join(QStringLiteral(", "));
}

bool CancelEntries(Business& business, Prompter& prompter, const Entries& entries) {
  const Entries reached = WithoutQuotes(prompter, entries);
  if (reached.empty()) return false;
  const size_t billed = CountIf(reached, IsInvoicedOrPaid);
  if (billed > 0 && prompter.AskBeforeLosing(CancelQuestion(billed, reached.size())) != Answer::Yes)
    return false;
  Transaction cancel(business);
  ChangeStatus(business, reached, {EntryStatus::JobCancelled, EntryStatus::VisitCancelled});
  cancel.Commit();
  business.PastCommands().Describe(QStringLiteral("Cancelled: ") + CountedEntries(reached));
  return true;
}

bool MarkEntriesDone(Business& business, Prompter& prompter, const Entries& entries) {
  const Entries reached = WithoutQuotes(prompter, entries);
  if (reached.empty()) return false;
  const size_t paid = CountIf(reached, IsPaid);
  const bool takeOff = paid > 0 && prompter.Ask(TakeOffQuestion(paid)) == Answer::Yes;
  Transaction done(business);
  ChangeStatus(business, reached, {EntryStatus::JobDone, EntryStatus::VisitDone});
  if (takeOff) {
    for (const DiaryRow& entry : reached)
      if (IsPaid(entry))
        business.Write(Sql("UPDATE Diary SET Payment_ID = NULL WHERE Diary_ID = {}", entry.entry),
                       Rows::Exactly(1));
  }
  done.Commit();
  business.PastCommands().Describe(QStringLiteral("Done: ") + CountedEntries(reached));
  return true;
}

void GiveEntriesTo(Business& business, const Entries& entries,
                   std::optional<Id<Employee>> employee) {
  Transaction give(business);
  for (const DiaryRow& entry : entries) ChangeEmployee(business, entry.entry, employee);
  give.Commit();
  const QString name =
      business
          .FirstField(Sql("SELECT Employee_Name FROM Employees WHERE Employee_ID = {}", employee))
          .ToText(QStringLiteral("nobody"));
  business.PastCommands().Describe(
      QStringLiteral("Given to %1: %2").arg(name, CountedEntries(entries)));
}

std::vector<DayLoad> LoadNextDays(Business& business, QDate day, int count) {
  std::map<QDate, DayLoad> days;
  for (int ahead = 1; ahead <= count; ++ahead) {
    DayLoad& load = days[day.addDays(ahead)];
    load.day = day.addDays(ahead);
    if (const HolidayRecord* holiday = HolidayOf(business.holidays, load.day))
      load.holiday = holiday->holDescription;
  }
  for (const Record row :
       business.RunSQL(Sql("SELECT Schedule_Date, Estimated_Minutes FROM Diary "
                           "WHERE Schedule_Date BETWEEN {} AND {} AND Status IN ",
                           day.addDays(1), EndOfDay(day.addDays(count))) +
                       CodesOf(EntryGroup::LiveJobs))) {
    DayLoad& load = days[row[u"Schedule_Date"].ToDate()];
    ++load.jobs;
    load.minutes += static_cast<int>(row[u"Estimated_Minutes"].ToLong());
  }
  std::vector<DayLoad> loads;
  for (auto& [on, load] : days) loads.push_back(std::move(load));
  return loads;
}

bool CanMove(const DiaryRow& entry) {
  return !entry.status.IsIn(EntryGroup::Finished) && !entry.status.IsIn(EntryGroup::WorkDone);
}

void MoveEntriesTo(Business& business, const std::vector<Id<Entry>>& entries, QDate day) {
  Transaction move(business);
  qint64 sequence = business
                        .FirstField(Sql("SELECT MAX(Sequence) FROM Diary "
                                        "WHERE Schedule_Date BETWEEN {} AND {}",
                                        day, EndOfDay(day)))
                        .ToLong();
  for (const Id<Entry> entry : entries)
    business.Write(Sql("UPDATE Diary SET Schedule_Date = {}, Sequence = {} WHERE Diary_ID = {}",
                       day, ++sequence, entry),
                   Rows::Exactly(1));
  move.Commit();
  business.PastCommands().Describe(
      QStringLiteral("Moved to %1: %2")
          .arg(ToShortDateText(day), Counted(entries.size(), "entry", "entries")));
}

}  // namespace quillary::diary
