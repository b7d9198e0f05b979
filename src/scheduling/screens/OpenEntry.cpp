#include "scheduling/screens/OpenEntry.h"

#include "base/ports/requests/Scheduling.h"

namespace quillary {

void OpenEntry(const Navigator& navigator, const QString& status, qint64 diaryId) {
  if (status.startsWith(u'V')) {
    navigator.Open(EditVisit{diaryId});
  } else if (status == QLatin1StringView("Q")) {
    navigator.Open(EditQuoteVisit{diaryId});
  } else {
    navigator.Open(EditJob{diaryId});
  }
}

}  // namespace quillary
