#include "diary/OpenEntry.h"

#include "base/ports/requests/Scheduling.h"

namespace quillary::diary {
namespace {

bool IsVisit(const QString& status) {
  return status.startsWith(u'V', Qt::CaseInsensitive);
}

bool IsOpenQuote(const QString& status) {
  return status.compare(u'Q', Qt::CaseInsensitive) == 0;
}

}  // namespace

bool CanOpenEntry(const Navigator& navigator, const QString& status) {
  if (IsVisit(status)) return navigator.CanOpen<EditVisit>();
  if (IsOpenQuote(status)) return navigator.CanOpen<EditQuoteVisit>();
  return navigator.CanOpen<EditJob>();
}

void OpenEntry(const Navigator& navigator, const QString& status, qint64 diaryId) {
  if (IsVisit(status))
    navigator.Open(EditVisit{diaryId});
  else if (IsOpenQuote(status))
    navigator.Open(EditQuoteVisit{diaryId});
  else
    navigator.Open(EditJob{diaryId});
}

}  // namespace quillary::diary
