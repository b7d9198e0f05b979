#include "base/ports/Clock.h"

#include <QDateTime>
#include <QtGlobal>

namespace quillary {

SystemClock::SystemClock() {
  const QString pinned = qEnvironmentVariable("QUILLARY_TODAY").trimmed();
  if (const auto moment = FromIsoText(pinned)) {
    pinnedDate_ = moment->date;
    if (pinned.size() > 10) pinnedTime_ = moment->time;
  }
}

DateTime SystemClock::Now() const {
  const QDateTime now = QDateTime::currentDateTime();
  const QTime time = now.time();
  const QTime wholeSeconds(time.hour(), time.minute(), time.second());
  return {pinnedDate_.isValid() ? pinnedDate_ : now.date(),
          pinnedTime_.isValid() ? pinnedTime_ : wholeSeconds};
}

}  // namespace quillary
