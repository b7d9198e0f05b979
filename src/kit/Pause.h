#pragma once

#include <QTime>

namespace quillary {

/// How long a pause of that many seconds lasts, in milliseconds: until the second hand stands where
/// it should, and never beyond second 59. So a pause ends with the minute at the latest, and one
/// begun at second 59 at once.
int MillisecondsOfPause(QTime begun, int seconds);

}  // namespace quillary
