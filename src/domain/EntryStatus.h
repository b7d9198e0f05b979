#pragma once

#include "domain/Hue.h"
#include "domain/Vocabulary.h"

namespace quillary {

enum class EntryKind { Job, Visit, Quote };

/// What an entry of the diary is and how far it has come. JobDoneUnpaid and JobDonePaid come from
/// earlier files; whether a job is paid is told by its payment alone, and both count as done.
enum class EntryStatus {
  JobOpen,
  JobDone,
  JobDoneUnpaid,
  JobDonePaid,
  JobInvoiced,
  JobCancelled,
  VisitOpen,
  VisitDone,
  VisitCancelled,
  QuoteOpen,
  QuotePending,
  QuoteAccepted,
  QuoteRejected,
};

enum class EntryGroup {
  WorkDone,       // jobs that count in what a client owes
  LiveJobs,       // all jobs but cancelled ones
  NotYetBilled,   // done and not invoiced: what the monthly run bills
  RebuiltByRoll,  // taken away and made again
  Finished,       // may no longer change
  OnDaySheet,     // printed for those who drive out
};

struct EntryStatusFacts {
  EntryStatus value;
  QStringView word;  // the code that is stored
  EntryKind kind;
  QStringView words;   // beside an entry
  QStringView listed;  // in the list that the diary's cell is changed from
  Hue hue;
  Groups<EntryGroup> groups;
};
std::span<const EntryStatusFacts> TableOf(EntryStatus);

/// An entry's status as the diary holds it.
using StoredEntryStatus = Stored<EntryStatus>;

/// Empty for a code that nobody knows; the entry keeps what is stored.
inline std::optional<EntryStatus> EntryStatusFromCode(QStringView code) {
  return FromText<EntryStatus>(code);
}
/// "('JD', 'JU', 'JP', 'JI')" for a statement.
inline Sql CodesOf(EntryGroup group) {
  return ListOf<EntryStatus>(group);
}

/// The same as "{column} IN {CodesOf(group)}" for statements that sum over days or clients. Most of
/// a diary is done work, so an index of statuses would lead to nearly every row of it; in this form
/// the store does not try.
Sql IsInGroup(const char* column, EntryGroup group);

/// Holds in a statement for the codes of that kind, known or not: "LEFT(Diary.Status, 1) = 'J'".
Sql IsOfKind(const char* column, EntryKind kind);

/// Of a code that nobody knows the first letter decides; nothing when it tells nothing.
std::optional<EntryKind> KindOf(const StoredEntryStatus& status);
inline bool IsVisit(const StoredEntryStatus& status) {
  return KindOf(status) == EntryKind::Visit;
}

/// Done for the older forms of done, otherwise the status itself.
StoredEntryStatus Folded(const StoredEntryStatus& status);

/// The words beside an entry: "Job DONE NOT PAID"; the code itself when nobody knows it.
QString WordsOf(const StoredEntryStatus& status);
/// The same with all forms of done reading "Job DONE".
QString FoldedWordsOf(const StoredEntryStatus& status);
/// The words in the list of statuses: "Visit NOT DONE" where an entry shows "Visit".
QString ListedWordsOf(const StoredEntryStatus& status);

/// The hue of an entry's row. A payment wins over every status, and a code that nobody knows looks
/// done, unless it is a visit's.
Hue HueOf(const StoredEntryStatus& status, bool isPaid);

}  // namespace quillary
