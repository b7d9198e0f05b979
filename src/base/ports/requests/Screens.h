#pragma once

#include "base/DateRange.h"

#include <QString>

#include <optional>

/// Requests that open the screens of the daily work. Areas with more requests get a header of
/// their own beside this one.
namespace quillary {

/// How the business stands, and what is to be done next.
struct OpenToday {};
/// Today, unless days are named.
struct OpenDiary {
  std::optional<DateRange> days = {};
};
/// The days that a command is about. Nothing when the user gives up.
struct AskForDays {
  using Result = std::optional<DateRange>;
  QString title;
};
struct OpenAbout {};
struct OpenODBCConnection {};

}  // namespace quillary
