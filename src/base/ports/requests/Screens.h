#pragma once

#include "base/DateRange.h"

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
struct OpenAbout {};
struct OpenODBCConnection {};

}  // namespace quillary
