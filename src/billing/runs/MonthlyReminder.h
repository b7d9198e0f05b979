#pragma once

#include "data/Business.h"

#include <QDate>

#include <optional>

/// From which day on the start asks whether to run the monthly invoices. Answering does not move
/// it; the owner does.
namespace quillary::billing {

struct MonthlyReminder {
  std::optional<QDate> stored;  // nothing: no reminder
  QDate proposed;               // a month from today
};
MonthlyReminder LoadMonthlyReminder(Business& business);
/// Nothing switches the reminder off.
void SaveMonthlyReminder(Business& business, std::optional<QDate> day);

}  // namespace quillary::billing
