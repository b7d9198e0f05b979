#include "kit/Pause.h"

namespace quillary {

int MillisecondsOfPause(QTime begun, int seconds) {
  const int goal = qMin(begun.second() + seconds, 59);
  return qMax(0, (goal - begun.second()) * 1000 - begun.msec());
}

}  // namespace quillary
