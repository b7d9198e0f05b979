#pragma once

#include "base/DateTime.h"

#include <QStringView>

#include <optional>
#include <string_view>

namespace quillary::jet {

/// Reads what stands between the signs of a date literal: "2019/3/5 14:7:9", "2019-03-05",
/// month before day when the year stands last ("3/5/2019"), or a time alone, which falls on day
/// zero of the dialect. A time may end in AM or PM. Nothing for a date that does not exist.
std::optional<DateTime> ReadDateLiteral(std::string_view text);

/// Reads a text that is assigned to or compared with a date: ISO, the forms of a literal with the
/// year first, and as the business writes dates, day before month ("5/3/2019", "5 Mar 2019").
std::optional<DateTime> ReadDateText(QStringView text);

}  // namespace quillary::jet
