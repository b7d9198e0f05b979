#pragma once

#include "base/ports/Navigator.h"
#include "domain/EntryStatus.h"

/// The screen that a diary entry is edited on, which its status decides: visits, quotes still open,
/// or jobs.
namespace quillary::diary {

/// Whether there is such a screen; a command that would open it is off otherwise.
bool CanOpenEntry(const Navigator& navigator, const StoredEntryStatus& status);
/// Opens it and comes back when the user has finished.
void OpenEntry(const Navigator& navigator, const StoredEntryStatus& status, Id<Entry> entry);

}  // namespace quillary::diary
