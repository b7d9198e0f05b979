#pragma once

#include "base/DateTime.h"

namespace quillary {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime Now() const = 0;
  QDate Today() const { return Now().date; }
};

/// The clock of the machine, unless QUILLARY_TODAY=yyyy-MM-dd (optionally with " HH:mm:ss") pins
/// the day; a pinned day without a time keeps the machine's time of day.
class SystemClock : public Clock {
 public:
  SystemClock();
  /// Pins the day, as QUILLARY_TODAY does.
  explicit SystemClock(QDate today) : pinnedDate_(today) {}
  DateTime Now() const override;

 private:
  QDate pinnedDate_;
  QTime pinnedTime_ = QTime();  // invalid: the time of day runs on
};

}  // namespace quillary
