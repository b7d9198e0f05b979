#pragma once

#include "data/Business.h"

#include <QDate>

#include <optional>

/// The roller: turns the services of clients into dated diary entries, a set number of days ahead.
namespace quillary::roll {

/// What a roll wrote. Entries that were deleted and built again count in both.
struct RollCount {
  int entriesDeleted = 0;
  int entriesMade = 0;

  RollCount& operator+=(const RollCount& other) {
    entriesDeleted += other.entriesDeleted;
    entriesMade += other.entriesMade;
    return *this;
  }
};

/// Rolls the diary of all clients forward to today plus Days_To_Advance_Schedule and stores the new
/// end in infSystem.Last_Schedule_Ending. Does nothing when the diary reaches that far already.
/// Clients that are cancelled or transferred lose what lies in their future. Happens whole or not
/// at all. A failure is told to the user and leaves the diary as it was; when the file is damaged
/// the user may hand it to the repair program, which ends the process.
RollCount AdvanceScheduleGlobally(Business& business);

struct AdvanceOptions {
  std::optional<QDate> startDate = {};  // today when missing
  std::optional<QDate> endDate = {};    // startDate + Days_To_Advance_Schedule when missing
  bool deleteExisting = true;
  std::optional<QDate> deleteFrom = {};  // startDate when missing
};

/// Rebuilds one client's open diary: deletes the open jobs and quotes from `deleteFrom` on, without
/// upper bound, and makes them again from the client's services. Of a client that is neither active
/// nor quote only it just deletes. Rolls Client_Services.Next_Visit of repeating services to today
/// or later. Throws StorageFailure, a damaged file being offered for repair first; the diary is
/// then as it was.
RollCount AdvanceScheduleForClient(Business& business, Id<Client> client,
                                   const AdvanceOptions& options = {});

}  // namespace quillary::roll
