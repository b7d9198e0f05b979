#pragma once

#include "diary/DiaryDay.h"

/// What the diary does to the entries that are marked in it, however many: as one command, whole or
/// not at all. All throw WriteFailed, with nothing changed, when an entry has gone meanwhile, and
/// say in the history what they did.
namespace quillary::diary {

using Entries = std::vector<DiaryRow>;

/// Cancels them, jobs and visits each in their own form; a quote is its own screen's to decide and
/// is left. Asks first when some are invoiced or paid. They stay on their day, which keeps the roll
/// from making them again. False when the user would rather not, or nothing was to be done.
bool CancelEntries(Business& business, Prompter& prompter, const Entries& entries);

/// Marks jobs done and visits done; a quote is left. Where jobs had been added to a payment, asks
/// whether to take them off; the payments themselves stay. False when nothing was to be done.
bool MarkEntriesDone(Business& business, Prompter& prompter, const Entries& entries);

/// To nobody when no employee is given.
void GiveEntriesTo(Business& business, const Entries& entries,
                   std::optional<Id<Employee>> employee);

/// What already lies on a day.
struct DayLoad {
  QDate day;
  size_t jobs = 0;  // that are not cancelled
  int minutes = 0;  // that they are estimated to take
  QString holiday;  // what it is called; empty on a working day
};
/// The days after `day`, that many of them.
std::vector<DayLoad> LoadNextDays(Business& business, QDate day, int count);

/// Whether an entry can go to another day: what is done, invoiced or cancelled stays where it was.
bool CanMove(const DiaryRow& entry);
/// Puts the entries behind those of the day, in the order given, and leaves the rhythm of the
/// services alone: the next visits stay as they were.
void MoveEntriesTo(Business& business, const std::vector<Id<Entry>>& entries, QDate day);

/// "3 jobs, 1 visit"
QString CountedEntries(const Entries& entries);

}  // namespace quillary::diary
