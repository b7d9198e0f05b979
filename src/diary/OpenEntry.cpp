#include "diary/OpenEntry.h"

#include "base/ports/requests/Scheduling.h"

namespace quillary::diary {

bool CanOpenEntry(const Navigator& navigator, const StoredEntryStatus& status) {
  if (IsVisit(status)) return navigator.CanOpen<EditVisit>();
  if (status.Is(EntryStatus::QuoteOpen)) return navigator.CanOpen<EditQuoteVisit>();
  return navigator.CanOpen<EditJob>();
}

void OpenEntry(const Navigator& navigator, const StoredEntryStatus& status, Id<Entry> entry) {
  if (IsVisit(status))
    navigator.Open(EditVisit{entry});
  else if (status.Is(EntryStatus::QuoteOpen))
    navigator.Open(EditQuoteVisit{entry});
  else
    navigator.Open(EditJob{entry});
}

}  // namespace quillary::diary
