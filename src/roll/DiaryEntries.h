#pragma once

#include "base/Money.h"
#include "data/Business.h"
#include "domain/EntryStatus.h"

#include <QDate>
#include <QString>

#include <optional>

/// The three routines through which a diary entry comes to be, and what follows from its lines.
namespace quillary::roll {

/// Whether any line of the service stands in the client's diary on that day, in whatever status: a
/// cancelled visit counts too, which is what keeps it cancelled through every roll. False for an
/// invalid date.
bool IsServiceScheduledForTheDay(Business& business, Id<Client> client,
                                 std::optional<Id<Service>> service, QDate scheduleDate);

/// The entry of the client on that day for that employee in that status, made when there is none:
/// empty, priced 0, last in the sequence of the whole day. Writes Diary; nothing when it could not
/// be made, which has been reported then.
std::optional<Id<Entry>> SetUpDiaryEntryGetDiaryID(Business& business, Id<Client> client,
                                                   std::optional<Id<Employee>> employee,
                                                   const StoredEntryStatus& status,
                                                   QDate scheduleDate);

/// Adds a line to an entry: inserts into Diary_Services with the tax inside the price, joins the
/// code to the entry's description and the notes to its notes, and adds to its totals. The line is
/// inserted even when the entry does not exist, and a statement that is refused is passed over: the
/// repair of the totals makes good what is left then. `price` includes tax.
void SetUpDiaryServiceEntry(Business& business, Id<Entry> entry, std::optional<Id<Service>> service,
                            const QString& serviceCode, Money price, const QString& notes,
                            int frequency);

/// The first entry of the client on that day for that employee in that status, the oldest of
/// several; nothing when there is none.
std::optional<Id<Entry>> FindDiaryEntry(Business& business, Id<Client> client,
                                        std::optional<Id<Employee>> employee,
                                        const StoredEntryStatus& status, QDate scheduleDate);

/// The highest Sequence of the day over all employees and clients; 0 for an empty day.
int HighestSequence(Business& business, QDate scheduleDate);

/// An entry's description with one more service code: "LM" and "HT" give "LM, HT".
QString JoinDescription(const QString& description, const QString& serviceCode);
/// An entry's notes with those of one more line. The old notes alone decide on the " /// " between,
/// so a line without notes leaves it standing at the end.
QString JoinNotes(const QString& notes, const QString& more);

/// Recomputes the tax of all lines of an entry at the stored rate in whole percents (0.125 as 13),
/// the lines unrounded, and writes their sum to the entry in cents. So an entry can differ from
/// CalculateGSTComponent() of its price. One without lines stays as it is. A failure is told to the
/// user and passed over.
void RecalculateDiaryEntryGST(Business& business, Id<Entry> entry);

}  // namespace quillary::roll
