#pragma once

#include "diary/Jobs.h"

/// A visit: an entry of the diary without lines and without price, made by hand.
namespace quillary::diary {

enum class VisitState { NotDone, Done, Cancelled };

struct Visit {
  qint64 diaryId = kNoRecord;
  std::optional<qint64> clientId;
  QDate date;
  std::optional<qint64> employeeId;
  QString purpose;  // kept as the entry's description
  QString notes;
  VisitState state = VisitState::NotDone;

  bool IsNew() const { return diaryId == kNoRecord; }
};

/// A visit that is not stored yet: today, by the default employee.
Visit NewVisit(Business& business, std::optional<qint64> clientId);
/// Nothing when there is no such entry.
std::optional<Visit> LoadVisit(Business& business, qint64 diaryId);

/// Refuses a visit without employee. Any date will do, a holiday too.
std::optional<Refusal> CheckVisit(const Visit& visit);
/// Writes the visit to Diary, inserting it first when it is new, and gives `visit` its key. Writes
/// nothing when CheckVisit() refuses.
std::optional<Refusal> SaveVisit(Business& business, Visit& visit);
/// Asks, then deletes the entry. False when the user declined.
bool DeleteVisit(Business& business, Prompter& prompter, qint64 diaryId);

}  // namespace quillary::diary
