#pragma once

#include "base/Refusal.h"
#include "data/Business.h"
#include "domain/EntryStatus.h"

#include <QDate>
#include <QString>

#include <optional>

/// A visit: an entry of the diary without lines and without price, made by hand.
namespace quillary::diary {

struct Visit {
  std::optional<Id<Entry>> entry = {};  // nothing until it is stored
  std::optional<Id<Client>> client = {};
  QDate date = {};
  std::optional<Id<Employee>> employee = {};
  QString purpose = {};  // kept as the entry's description
  QString notes = {};
  EntryStatus status = EntryStatus::VisitOpen;

  bool IsNew() const { return !entry; }
};

/// A visit that is not stored yet: today, by the default employee.
Visit NewVisit(Business& business, std::optional<Id<Client>> client);
/// Nothing when there is no such entry. What is no status of a visit shows as not done.
std::optional<Visit> LoadVisit(Business& business, Id<Entry> entry);

/// Refuses a visit without employee. Any date will do, a holiday too.
std::optional<Refusal> CheckVisit(const Visit& visit);
/// Writes the visit to Diary, inserting it first when it is new, and gives `visit` its key. Writes
/// nothing when CheckVisit() refuses. Throws WriteFailed, with nothing written, when the visit has
/// gone meanwhile.
std::optional<Refusal> SaveVisit(Business& business, Visit& visit);
/// Asks, then deletes the entry as DeleteEntry() does. False when the user declined.
bool DeleteVisit(Business& business, Prompter& prompter, Id<Entry> entry);

}  // namespace quillary::diary
